// What the page works out, without a browser: node --test page_functions_test.mjs

import assert from "node:assert/strict";
import test from "node:test";

import { densityOf, reachOf } from "../../src/inspect/report/page/curves.mjs";
import { adviceFor, choosePatterns, holdsWords, sortPatterns } from "../../src/inspect/report/page/filter.mjs";
import { fixed, signed } from "../../src/inspect/report/page/format.mjs";
import { meanOf, readModel } from "../../src/inspect/report/page/model.mjs";
import { expectedScore, forWhite, moveText, piecesOf, squareName } from "../../src/inspect/report/page/position.mjs";
import { fullColour, scale, ticks } from "../../src/inspect/report/page/scale.mjs";
import { squaresWith } from "../../src/inspect/report/page/terms.mjs";

const kinds = ["pawn", "knight", "bishop", "rook", "queen", "king"];
const bits = Object.fromEntries(
  kinds.map((kind) => [kind, Array.from({ length: 32 }, (_, bit) => `${kind} feature ${bit}`)]),
);
const data = {
  kinds,
  bits,
  pawnEndings: [1, 4],
  pawnEndingBits: bits.pawn.map((name) => `ending ${name}`),
  always: { pawn: 1 << 17 },
  types: [
    { type: 4, name: "kings and pawns" },
    { type: 6, name: "little material" },
  ],
  lists: [
    { type: 4, kind: "pawn", nodes: [[2, 1]] },
    {
      type: 6,
      kind: "pawn",
      nodes: [
        [2, 0.5],
        [6, -1.25],
        [131072, 3],
        [131074, 0.25],
        [2147483648, 9],
      ],
    },
  ],
  worth: [{ type: 6, kind: "pawn", counts: [1, 3, 0], means: [2, 6, null] }],
};

test("numbers have a true minus, and none before a rounded zero", () => {
  assert.equal(fixed(-1.25, 1), "\u22121.3");
  assert.equal(fixed(-0.001, 2), "0.00");
  assert.equal(signed(0.004, 2), "0.00");
  assert.equal(signed(0.4, 1), "+0.4");
});

test("the filter takes several words in any order and says what to do when nothing matches", () => {
  assert.ok(holdsWords("King  GUARDED")("guarded by a rook + own king next to it"));
  assert.ok(!holdsWords("king pawn")("guarded by a rook + own king next to it"));
  const patterns = readModel(data).patterns;
  const choice = { type: 4, kind: "pawn", size: null, text: "" };
  assert.equal(choosePatterns(patterns, choice).length, 1);
  assert.match(adviceFor(patterns, { ...choice, text: "feature 31" }), /^No pattern matches here, but 1 /);
  assert.match(adviceFor(patterns, { ...choice, text: "feature zebra" }), /names \u201czebra\u201d/);
  assert.match(adviceFor(patterns, { ...choice, text: "ending 31" }), /together/);
  assert.deepEqual(
    sortPatterns([2, 3, 1], (one) => one, true),
    [3, 2, 1],
  );
});

test("patterns that differ only by what always holds are one, and nothing is lost", () => {
  const model = readModel(data);
  assert.equal(model.listOf(6, "pawn").merged.length, 4);
  for (const word of [131072, 131074, 131078, 2147483648 + 131072]) {
    const plain = data.lists[1].nodes.filter(([mask]) => (mask & word) >>> 0 === mask);
    assert.equal(
      model.worthOf(6, "pawn", word),
      plain.reduce((sum, [, weight]) => sum + weight, 0),
    );
  }
  assert.deepEqual(
    model.firing(6, "pawn", 131078).map(({ weight, name }) => [weight, name]),
    [
      [3, "any pawn"],
      [-1.25, "pawn feature 2 + pawn feature 1"],
      [0.75, "pawn feature 1"],
    ],
  );
  assert.equal(model.firing(4, "pawn", 2)[0].name, "ending pawn feature 1");
  assert.deepEqual(model.firing(6, "queen", 2), []);
  assert.equal(meanOf(model.meansOf(6, "pawn")), 5);
  assert.equal(meanOf(model.meansOf(6, "king")), null);
});

test("boards and moves are read as they are written", () => {
  const step = { board: "R..." + ".".repeat(59) + "k", words: [5, 7], sideToMove: "black", value: 1.5, move: "Kh8" };
  assert.deepEqual(piecesOf(step, kinds), [
    { square: 0, white: true, kind: "rook", word: 5 },
    { square: 63, white: false, kind: "king", word: 7 },
  ]);
  assert.equal(squareName(63), "h8");
  assert.equal(forWhite(step), -1.5);
  const game = (first) => ({ steps: [{ sideToMove: first }, { move: "a" }, { move: "b" }, { move: "c" }] });
  assert.deepEqual(
    [1, 2, 3].map((ply) => moveText(game("white"), ply)),
    ["1. a", "1\u2026 b", "2. c"],
  );
  assert.deepEqual(
    [1, 2, 3].map((ply) => moveText(game("black"), ply)),
    ["1\u2026 a", "2. b", "2\u2026 c"],
  );
  assert.deepEqual(squaresWith([1, 3, 2], 1), [1, 2]);
});

test("expected scores of both sides add up to one point", () => {
  for (const value of [0, 3, 250])
    assert.ok(Math.abs(expectedScore(value, 0.05) + expectedScore(-value, 0.05) - 1) < 1e-12);
  assert.equal(expectedScore(17, 0), 0.5);
});

test("scales keep to their ends, and their ticks are round, even-handed and few", () => {
  assert.deepEqual([-1, 0, 5, 10, 11].map(scale(0, 10, 100, 200)), [100, 100, 150, 200, 200]);
  for (const most of [0.013, 0.9, 1, 7, 49, 50.1, 99, 812]) {
    const marks = ticks(most, 3);
    assert.ok(marks.length >= 3 && marks.length <= 7, `${most}: ${marks}`);
    assert.deepEqual(
      marks
        .map((mark) => -mark)
        .reverse()
        .map(Math.abs),
      marks.map(Math.abs),
    );
    assert.ok(Math.abs(marks.at(-1)) <= most);
  }
  assert.equal(fullColour(Array.from({ length: 100 }, (_, index) => index - 50)), 47);
});

test("the area of a bar tells how many positions it stands for", () => {
  const bands = [
    [-90, -10],
    [-10, -2],
    [-2, 0],
    [0, 2],
    [2, 10],
    [10, 90],
  ].map(([lowest, highest]) => ({ lowest, highest, samples: 100, meanValue: (lowest + highest) / 2 }));
  const bars = densityOf(bands, reachOf(bands));
  const areas = bars.map(({ low, high, height }) => (high - low) * height);
  for (const area of areas.slice(1, 5)) assert.ok(Math.abs(area - areas[2]) < 1e-9);
  assert.equal(Math.max(...bars.map(({ height }) => height)), 1);
});
