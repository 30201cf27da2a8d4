// What the page works out, without a browser: node --test page_functions_test.mjs

import assert from "node:assert/strict";
import test from "node:test";

import { countBySize } from "../../src/inspect/report/page/counts.mjs";
import { densityOf, reachOf } from "../../src/inspect/report/page/curves.mjs";
import { adviceFor, choosePatterns, holdsWords } from "../../src/inspect/report/page/filter.mjs";
import { fixed, signed } from "../../src/inspect/report/page/format.mjs";
import { menuOf } from "../../src/inspect/report/page/games.mjs";
import { verdictOf } from "../../src/inspect/report/page/head.mjs";
import { meanOf, readModel } from "../../src/inspect/report/page/model.mjs";
import { answeredAtOnce, expectedScore, moveText } from "../../src/inspect/report/page/position.mjs";
import { fullColour, scale, ticks } from "../../src/inspect/report/page/scale.mjs";

const kinds = ["pawn", "queen"];
const namesOf = (kind) => Array.from({ length: 32 }, (_, bit) => `${kind} feature ${bit}`);
const nodes = [
  [2, 0.5],
  [6, -1.25],
  [131072, 3],
  [131074, 0.25],
  [2147483648, 9],
];
const model = readModel({
  kinds,
  bits: Object.fromEntries(kinds.map((kind) => [kind, namesOf(kind)])),
  pawnEndings: [1, 4],
  pawnEndingBits: namesOf("ending"),
  always: { pawn: 1 << 17 },
  types: [
    { type: 4, name: "kings and pawns", words: "kings and pawns" },
    { type: 6, name: "little material", words: "ending" },
  ],
  lists: [
    { type: 4, kind: "pawn", nodes: [[2, 1]] },
    { type: 6, kind: "pawn", nodes },
  ],
  worth: [{ type: 6, kind: "pawn", counts: [1, 3, 0], means: [2, 6, null] }],
});

test("numbers have a true minus, and none before a rounded zero", () => {
  assert.deepEqual([fixed(-1.25, 1), fixed(-0.001, 2)], ["\u22121.3", "0.00"]);
  assert.deepEqual([signed(0.004, 2), signed(0.4, 1)], ["0.00", "+0.4"]);
});

test("the filter takes several words in any order and says what to do when nothing matches", () => {
  assert.ok(holdsWords("King  GUARDED")("guarded by a rook + own king next to it"));
  assert.ok(!holdsWords("king pawn")("guarded by a rook + own king next to it"));
  const choice = { type: 4, kind: "pawn", size: null, text: "" };
  assert.equal(choosePatterns(model.patterns, choice).length, 1);
  assert.match(adviceFor(model.patterns, { ...choice, text: "feature 31" }), /^No pattern matches here, but 1 /);
  assert.match(adviceFor(model.patterns, { ...choice, text: "feature zebra" }), /names \u201czebra\u201d/);
  assert.match(adviceFor(model.patterns, { ...choice, text: "ending 31" }), /together/);
});

test("patterns that differ only by what always holds are one, and nothing is lost", () => {
  assert.equal(model.listOf(6, "pawn").merged.length, 4);
  for (const word of [131072, 131074, 131078, 2147483648 + 131072]) {
    const plain = nodes.filter(([mask]) => (mask & word) >>> 0 === mask);
    assert.equal(model.worthOf(6, "pawn", word), plain.reduce((sum, [, weight]) => sum + weight, 0));
  }
  assert.deepEqual(
    model.firing(6, "pawn", 131078).map(({ weight, name }) => [weight, name]),
    [[3, "any pawn"], [-1.25, "pawn feature 2 + pawn feature 1"], [0.75, "pawn feature 1"]],
  );
  assert.equal(model.firing(4, "pawn", 2)[0].name, "ending feature 1");
  assert.deepEqual(model.firing(6, "queen", 2), []);
  assert.deepEqual([meanOf(model.meansOf(6, "pawn")), meanOf(model.meansOf(6, "queen"))], [5, null]);
});

test("the number of patterns on the page is that of its list, one without a feature of its own among them", () => {
  const counted = countBySize(model.patterns);
  assert.deepEqual(counted, [4, 1, 0, 0]);
  assert.equal(counted.reduce((sum, count) => sum + count), model.patterns.length);
});

test("types are called in words, beside their material where the words do not tell it", () => {
  assert.deepEqual([4, 6].map(model.describe), ["kings and pawns", "ending (little material)"]);
});

test("the verdict is a sentence for a player, and claims nothing that was not measured", () => {
  const all = { decided: 9, network: { rightPercentage: 66.6 }, material: { rightPercentage: 60.2 } };
  const of = (validation) => verdictOf({ lists: [{}], validation });
  assert.equal(of({ all }), "Names the winner in 67 of 100 positions; counting material, 60.");
  assert.equal(of({ all: { ...all, decided: 0 }, verdict: "All drawn." }), "All drawn.");
  assert.match(of(null), /^How good it is, this page cannot tell/);
  assert.match(verdictOf({ lists: [], validation: { all } }), /^Nothing was learned/);
});

test("the page opens on a game in the middle, and every game can be chosen", () => {
  for (let count = 1; count <= 20; ++count) {
    const games = Array.from({ length: count }, (_, number) => ({ number, result: 1 }));
    const { groups, opening } = menuOf(games);
    const [others, worst] = groups.map(({ entries }) => entries.map(({ index }) => index));
    assert.deepEqual([...worst, ...others], [...games.keys()]);
    assert.ok(others.includes(opening) && worst.length <= others.length, `${count}: ${opening}`);
  }
  assert.equal(menuOf(Array.from({ length: 20 }, () => ({ result: 0 }))).opening, 14);
});

test("a capture is answered at once if the next move takes on its square", () => {
  const steps = [
    [32, null],
    [32, [12, 28]],
    [32, [51, 35]],
    [31, [28, 35]],
    [30, [59, 35]],
    [30, [1, 18]],
    [29, [35, 8]],
    [28, [18, 1]],
  ].map(([pieces, squares]) => ({ words: Array(pieces), squares }));
  const answered = [...steps.keys()].filter((ply) => answeredAtOnce({ steps }, ply));
  assert.deepEqual(answered, [3]);
});

test("moves are counted from the side that begins", () => {
  const moves = ["a", "b", "c"].map((move) => ({ move }));
  const texts = (first) => [1, 2, 3].map((ply) => moveText({ steps: [{ sideToMove: first }, ...moves] }, ply));
  assert.deepEqual(texts("white"), ["1. a", "1\u2026 b", "2. c"]);
  assert.deepEqual(texts("black"), ["1\u2026 a", "2. b", "2\u2026 c"]);
});

test("expected scores of both sides add up to one point", () => {
  for (const value of [0, 3, 250])
    assert.ok(Math.abs(expectedScore(value, 0.05) + expectedScore(-value, 0.05) - 1) < 1e-12);
});

test("scales keep to their ends, and their ticks are round, even-handed and few", () => {
  assert.deepEqual([-1, 0, 5, 10, 11].map(scale(0, 10, 100, 200)), [100, 100, 150, 200, 200]);
  for (const most of [0.013, 0.9, 1, 7, 49, 50.1, 99, 812]) {
    const marks = ticks(most, 3);
    assert.ok(marks.length >= 3 && marks.length <= 7 && marks.at(-1) <= most, `${most}: ${marks}`);
    assert.deepEqual(marks.map(Math.abs).reverse(), marks.map(Math.abs));
  }
  assert.equal(fullColour(Array.from({ length: 100 }, (_, index) => index - 50)), 47);
});

test("the area of a bar tells how many positions it stands for", () => {
  const limits = [-90, -10, -2, 0, 2, 10, 90];
  const bands = limits.slice(1).map((highest, index) => {
    const lowest = limits[index];
    return { lowest, highest, samples: 100, meanValue: (lowest + highest) / 2 };
  });
  const bars = densityOf(bands, reachOf(bands));
  const areas = bars.map(({ low, high, height }) => (high - low) * height);
  for (const area of areas.slice(1, 5)) assert.ok(Math.abs(area - areas[2]) < 1e-9);
  assert.equal(Math.max(...bars.map(({ height }) => height)), 1);
});
