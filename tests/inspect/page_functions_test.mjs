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
  types: [4, 6].map((type) => ({ type, name: `type ${type}`, words: "ending" })),
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
  assert.equal(countBySize(model.patterns).join(), "4,1,0,0");
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

test("the verdict rounds, and claims nothing of games that nobody won", () => {
  const all = { decided: 9, network: { rightPercentage: 66.6 }, material: { rightPercentage: 60.2 } };
  const of = (validation) => verdictOf({ lists: [{}], validation });
  assert.match(of({ all }), /in 67 of 100 positions; counting material, 60\.$/);
  assert.equal(of({ all: { ...all, decided: 0 }, verdict: "All drawn." }), "All drawn.");
});

test("however many games there are, each can be chosen, and the page opens on none of the most misjudged", () => {
  for (let count = 1; count <= 20; ++count) {
    const { groups, opening } = menuOf(Array.from({ length: count }, () => ({ result: 1 })));
    const [others, worst] = groups.map(({ entries }) => entries.map(({ index }) => index));
    assert.deepEqual([...worst, ...others], [...Array(count).keys()]);
    assert.ok(others.includes(opening), `${count}: ${opening}`);
  }
});

test("a capture is answered at once if the next move takes on its square", () => {
  const [pieces, targets] = [[32, 32, 32, 31, 30, 30, 29, 28], [0, 28, 35, 35, 35, 18, 8, 1]];
  const steps = pieces.map((count, ply) => ({ words: Array(count), squares: [63, targets[ply]] }));
  assert.deepEqual([...steps.keys()].filter((ply) => answeredAtOnce({ steps }, ply)), [3]);
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
