// Positions of the games as the data hold them.

export const squareName = (square) => "abcdefgh"[square & 7] + ((square >> 3) + 1);

// The pieces of a step in the order of its words: a1, b1 to h8.
export const piecesOf = (step, kinds) => {
  const pieces = [];
  [...step.board].forEach((letter, square) => {
    if (letter === ".") return;
    const white = letter === letter.toUpperCase();
    pieces.push({
      square,
      white,
      kind: kinds["PNBRQK".indexOf(letter.toUpperCase())],
      word: step.words[pieces.length],
    });
  });
  return pieces;
};

// What White expects of a value that the side to move sees.
export const forWhite = (step) => (step.sideToMove === "white" ? step.value : -step.value);

// The share of a point that a value is worth to the side that sees it.
export const expectedScore = (value, steepness) => 1 / (1 + Math.exp(-steepness * value));

// A square as the piece's own side sees it: Black's board is turned round.
export const ownView = (square, white) => (white ? square : square ^ 56);

export const resultText = (result) => ({ 1: "1\u20130", "-1": "0\u20131", 0: "\u00bd\u2013\u00bd" })[result] ?? "*";

// Of the move that leads to a ply: its number, and is it White's? Games that start with Black to move count from there.
export const moveNumber = (game, ply) => {
  const half = ply - (game.steps[0].sideToMove === "black" ? 0 : 1);
  return { number: Math.floor(half / 2) + 1, white: half % 2 === 0 };
};

// "12. Nf3", "12\u2026 Nf6".
export const moveText = (game, ply) => {
  if (ply === 0) return "Start position";
  const { number, white } = moveNumber(game, ply);
  return `${number}${white ? "." : "\u2026"} ${game.steps[ply].move}`;
};

// Does the move that leads to this ply take something, and the next one take on the same square?
export const answeredAtOnce = ({ steps }, ply) =>
  ply > 0 &&
  ply + 1 < steps.length &&
  steps[ply].words.length < steps[ply - 1].words.length &&
  steps[ply + 1].squares[1] === steps[ply].squares[1];
