// The network as the page reads it: patterns by their names, and what they say of a piece.

const sizeOf = (mask) => {
  let bits = 0;
  for (; mask; mask = (mask & (mask - 1)) >>> 0) ++bits;
  return bits;
};

export const readModel = (data) => {
  const key = (type, kind) => `${type} ${kind}`;
  const namesFor = (type, kind) =>
    kind === "pawn" && data.pawnEndings.includes(type) ? data.pawnEndingBits : data.bits[kind];

  // The features of a mask, the highest bit first: place, then marks, then material.
  const featuresOf = (type, kind, mask) => {
    const features = [];
    for (let bit = 31; bit >= 0; --bit) {
      if ((mask >>> bit) & 1) features.push({ bit, name: namesFor(type, kind)[bit] });
    }
    return features;
  };

  // Patterns that differ only by what always holds fire together, and count as one.
  const patternsOf = (list) => {
    const always = data.always[list.kind] ?? 0;
    const byMask = new Map();
    for (const [mask, weight] of list.nodes) {
      const kept = (mask & ~always) >>> 0;
      const known = byMask.get(kept);
      if (known) {
        known.weight += weight;
        continue;
      }
      const features = featuresOf(list.type, list.kind, kept);
      const name = features.length ? features.map((feature) => feature.name).join(" + ") : `any ${list.kind}`;
      byMask.set(kept, { type: list.type, kind: list.kind, mask: kept, weight, size: sizeOf(kept), features, name });
    }
    return [...byMask.values()];
  };

  const lists = new Map(data.lists.map((list) => [key(list.type, list.kind), { ...list, merged: patternsOf(list) }]));
  const types = data.types.filter(({ type }) => data.lists.some((list) => list.type === type));
  const wordsOf = (type) => data.types.find((one) => one.type === type);
  const means = new Map((data.worth ?? []).map((worth) => [key(worth.type, worth.kind), worth]));
  const steepness = new Map((data.calibration?.types ?? []).map((one) => [one.type, one.steepness ?? null]));

  // The patterns that fire on a piece, the greatest weight first, whatever its sign.
  const firing = (type, kind, word) =>
    (lists.get(key(type, kind))?.merged ?? [])
      .filter(({ mask }) => (mask & word) >>> 0 === mask)
      .sort((a, b) => Math.abs(b.weight) - Math.abs(a.weight));

  return {
    types,
    patterns: [...lists.values()].flatMap((list) => list.merged),
    listOf: (type, kind) => lists.get(key(type, kind)),
    hasType: (type) => types.some((one) => one.type === type),
    nameOfType: (type) => wordsOf(type).words,
    describe: (type) => {
      const { words, name } = wordsOf(type);
      return words === name ? name : `${words} (${name})`;
    },
    firing,
    worthOf: (type, kind, word) => firing(type, kind, word).reduce((sum, { weight }) => sum + weight, 0),
    meansOf: (type, kind) => means.get(key(type, kind)),
    steepnessOf: (type) => steepness.get(type) ?? null,
  };
};

// Over all squares; null if the piece was never seen.
export const meanOf = (worth) => {
  if (!worth) return null;
  const count = worth.counts.reduce((sum, one) => sum + one, 0);
  return count === 0
    ? null
    : worth.means.reduce((sum, mean, square) => sum + (mean ?? 0) * worth.counts[square], 0) / count;
};
