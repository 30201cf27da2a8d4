// Numbers as the page writes them: a true minus sign, no minus before a rounded zero.

export const minus = (text) => text.replace("-", "\u2212");

export const fixed = (number, digits) => {
  const text = number.toFixed(digits);
  return minus(Number(text) === 0 ? (0).toFixed(digits) : text);
};

export const signed = (number, digits) => {
  const text = fixed(number, digits);
  return Number(number.toFixed(digits)) > 0 ? "+" + text : text;
};

export const percent = (share) => `${fixed(100 * share, 0)}\u00a0%`;

export const grouped = (count) => count.toLocaleString("en");

export const several = (count, one, many) => `${grouped(count)} ${count === 1 ? one : many}`;
