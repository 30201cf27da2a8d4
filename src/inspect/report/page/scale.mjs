// Scales of the drawings.

// Maps [low, high] onto [from, to]; what lies outside is kept at the ends.
export const scale = (low, high, from, to) => (value) => {
  const part = high === low ? 0.5 : (value - low) / (high - low);
  return from + Math.min(1, Math.max(0, part)) * (to - from);
};

// Round numbers from -most to most, at most `about` on either side of 0.
export const ticks = (most, about) => {
  if (!(most > 0)) return [0];
  const power = 10 ** Math.floor(Math.log10(most / about));
  const step = [1, 2, 5, 10].map((factor) => factor * power).find((one) => most / one <= about + 1e-9);
  const count = Math.floor(most / step + 1e-9);
  return Array.from({ length: 2 * count + 1 }, (_, index) => Number(((index - count) * step).toPrecision(6)));
};

// How strongly a difference is coloured, 0 to 1; `most` takes the full colour.
export const strength = (difference, most) => (most > 0 ? Math.min(1, Math.abs(difference) / most) : 0);

// The difference that takes the full colour. One in twenty is greater: a few that stand out must not pale all others.
export const fullColour = (differences) => {
  const sorted = differences.map(Math.abs).sort((a, b) => a - b);
  return sorted.length ? Math.max(0.01, sorted[Math.floor((sorted.length - 1) * 0.95)]) : 1;
};
