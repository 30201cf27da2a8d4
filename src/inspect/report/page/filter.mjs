// The filter of the patterns.

// Does a name hold all words of the text, in any order and any case?
export const holdsWords = (text) => {
  const words = text
    .toLowerCase()
    .split(/[\s+,]+/)
    .filter(Boolean);
  return (name) => {
    const lower = name.toLowerCase();
    return words.every((word) => lower.includes(word));
  };
};

// `type` and `size` are null and `kind` is "" where all are meant.
export const choosePatterns = (patterns, { type, kind, size, text }) => {
  const holds = holdsWords(text);
  return patterns.filter(
    (pattern) =>
      (type === null || pattern.type === type) &&
      (kind === "" || pattern.kind === kind) &&
      (size === null || pattern.size === size) &&
      holds(pattern.name),
  );
};

// What somebody can do who finds nothing.
export const adviceFor = (patterns, choice) => {
  const elsewhere = choosePatterns(patterns, { type: null, kind: "", size: null, text: choice.text });
  if (elsewhere.length) {
    return `No pattern matches here, but ${elsewhere.length.toLocaleString("en")} of other types, kinds or sizes do: show all of them.`;
  }
  const words = choice.text.split(/[\s+,]+/).filter(Boolean);
  const unknown = words.filter((word) => !patterns.some((pattern) => holdsWords(word)(pattern.name)));
  if (unknown.length)
    return `No pattern names \u201c${unknown.join("\u201d or \u201c")}\u201d. Take the word away or try another.`;
  return "No pattern has all of these words together. Take one away.";
};

export const sortPatterns = (patterns, key, descending) => {
  const direction = descending ? -1 : 1;
  return [...patterns].sort((a, b) => {
    const x = key(a),
      y = key(b);
    return x < y ? -direction : x > y ? direction : 0;
  });
};
