// The page in a browser, as a reader uses it: node page_test.mjs LEARN INSPECT GAMES [FOLDER FOR SCREENSHOTS].
// Ends with 77 where no browser is found.

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";

import { readModel } from "../../src/inspect/report/page/model.mjs";
import { piecesOf, squareName } from "../../src/inspect/report/page/position.mjs";
import { findBrowser, openBrowser } from "./browser.mjs";

const [learn, inspect, games, pictures] = process.argv.slice(2);
const program = findBrowser();
if (!program) {
  console.log("no browser found");
  process.exit(77);
}

const folder = mkdtempSync(join(tmpdir(), "quorvane-page-test-"));
const run = (command, options, input) => {
  const done = spawnSync(command, options, { cwd: folder, input });
  assert.equal(done.status, 0, `${command} ${options}: ${done.stderr}`);
};

// A page of a small network, of games with a player whose name is markup.
const hostile = "</script><img src=x onerror=document.title='broken'>";
const makePage = () => {
  const all = readFileSync(games, "latin1")
    .split(/(?=\[Event )/)
    .filter(Boolean);
  writeFileSync(join(folder, "some.pgn"), all.slice(0, 200).join(""), "latin1");
  writeFileSync(
    join(folder, "rest.pgn"),
    all
      .slice(200)
      .join("")
      .replaceAll(/\[White "[^"]*"\]/g, `[White "${hostile}"]`),
    "latin1",
  );
  run(learn, [], "some.pgn\nno\n");
  run(inspect, ["report", "-o", "page.html", "--learned-from", "some.pgn", "--validate", "rest.pgn"]);
  run(inspect, ["report", "-o", "bare.html"]);
  writeFileSync(join(folder, "empty.dat"), Uint32Array.of(1, 0, 2));
  run(inspect, ["report", "-o", "empty.html", "empty.dat", "--validate", "rest.pgn"]);
  const text = readFileSync(join(folder, "page.html"), "utf8");
  return JSON.parse(text.split('<script type="application/json" id="data">')[1].split("</script>")[0]);
};

const cases = {};
const test = (name, body) => {
  cases[name] = body;
};

let data, browser;
const page = (options) => browser.open(join(folder, options.bare ? "bare.html" : "page.html"), options);
const text = (selector) => browser.value(`document.querySelector(${JSON.stringify(selector)}).textContent`);
const number = (string) => Number(string.replace("\u2212", "-"));
const click = (selector) => browser.value(`document.querySelector(${JSON.stringify(selector)}).click()`);
const centre = (selector) =>
  browser.value(`(() => { const element = document.querySelector(${JSON.stringify(selector)});
  element.scrollIntoView({ block: "center" });
  const box = element.getBoundingClientRect(); return { x: box.x + box.width / 2, y: box.y + box.height / 2 }; })()`);
// The pieces of the first game's start position, and where and how the page shows one.
const firstPieces = () => piecesOf(data.games[0].steps[0], data.kinds);
const cellOf = (piece) => `[data-square="${piece.square}"]`;
const titleOf = (piece) => `${piece.white ? "White" : "Black"} ${piece.kind} ${squareName(piece.square)}`;
const picture = async (name) => {
  if (pictures) writeFileSync(join(pictures, `${name}.png`), await browser.screenshot());
};

test("the worths of pieces add up to the value of every position", async () => {
  const model = readModel(data);
  assert.equal(data.games.length, 20);
  for (const game of data.games) {
    for (const step of game.steps) {
      const value = piecesOf(step, data.kinds).reduce(
        (sum, piece) =>
          sum +
          (piece.white === (step.sideToMove === "white") ? 1 : -1) * model.worthOf(step.type, piece.kind, piece.word),
        0,
      );
      assert.ok(Math.abs(value - step.value) < 1e-3, `${game.number}: ${value} is not ${step.value}`);
    }
  }
});

test("a game can be stepped through with buttons, keys, the slider and the chart", async () => {
  await page({ width: 1400 });
  assert.match(await text("#network"), /^network\.dat, written .* patterns for \d+ position types\.$/);
  assert.equal(await text("#learned-from"), "Learned from some.pgn.");
  const game = data.games[0];
  assert.equal(await text("#move"), "Start position");
  await click("#forward");
  assert.equal(await text("#move"), `1. ${game.steps[1].move}`);
  await browser.value("document.getElementById('board').focus()");
  await browser.key("ArrowRight");
  assert.equal(await text("#move"), `1\u2026 ${game.steps[2].move}`);
  await browser.key("ArrowLeft");
  await browser.key("End");
  assert.ok((await text("#move")).endsWith(game.steps.at(-1).move));
  assert.equal(await browser.value("document.getElementById('forward').disabled"), true);
  await browser.key("Home");
  await browser.value(
    "document.getElementById('ply').value = 3; document.getElementById('ply').dispatchEvent(new Event('input'))",
  );
  assert.equal(await text("#move"), `2. ${game.steps[3].move}`);
  await browser.value(`(() => { const chart = document.querySelector("#charts svg"), box = chart.getBoundingClientRect();
    chart.dispatchEvent(new PointerEvent("pointerdown", { clientX: box.right, clientY: box.top + 50, bubbles: true })); })()`);
  assert.ok((await text("#move")).endsWith(game.steps.at(-1).move));
  for (let index = 0; index < data.games.length; ++index) {
    await browser.value(
      `document.getElementById("game").value = ${index}; document.getElementById("game").dispatchEvent(new Event("change"))`,
    );
    await click("#last");
  }
  assert.ok((await text("#game")).includes(hostile));
  assert.equal(await browser.value("document.title"), "What was learned");
});

test("the patterns of a piece that is chosen add up to its worth", async () => {
  await page({ width: 1400 });
  const [first, second] = firstPieces();
  const at = await centre(cellOf(first));
  await browser.tell("Input.dispatchMouseEvent", { type: "mouseMoved", ...at });
  assert.equal(await text("#piece h3"), titleOf(first));
  await browser.value("document.getElementById('board').focus()");
  await browser.key("ArrowUp");
  assert.ok(await browser.value("document.querySelectorAll('#board .chosen').length === 1"));
  await click(`${cellOf(second)} .piece`);
  await browser.tell("Input.dispatchMouseEvent", { type: "mouseMoved", x: 1, y: 1 });
  assert.equal(await text("#piece h3"), titleOf(second));
  const weights = () =>
    browser.value("[...document.querySelectorAll('#piece tbody td:first-child')].map((cell) => cell.textContent)");
  const total = number(await text("#piece tfoot td"));
  const sum = (texts) => texts.map(number).reduce((one, other) => one + other, 0);
  const few = await weights();
  assert.ok(few.length > 1 && Math.abs(sum(few) - total) < 0.05, `${few} is not ${total}`);
  await click("#piece button:not(.term)");
  const many = await weights();
  assert.ok(
    many.length > few.length && Math.abs(sum(many) - total) < 0.005 * many.length + 0.01,
    `${many} is not ${total}`,
  );
});

test("the type that is chosen leads boards and filter, and the filter finds words in any order", async () => {
  await page({ width: 1400 });
  await click('#types input[value="8"]');
  assert.match(await text("#type-title"), /^Type 8: /);
  assert.equal(await browser.value("document.getElementById('filter-type').value"), "8");
  assert.ok((await browser.value("document.querySelectorAll('.squares').length")) >= 5);
  const filter = async (words) => {
    await browser.value(
      "document.getElementById('filter-text').value = ''; document.getElementById('filter-text').focus()",
    );
    await browser.type(words);
    return text("#shown");
  };
  const one = await filter("guarded king");
  assert.match(one, /patterns shown$/);
  assert.equal(await filter("king guarded"), one);
  assert.ok(
    await browser.value(
      "[...document.querySelectorAll('#patterns tbody .name')].every((cell) => /guarded/.test(cell.textContent) && /king/.test(cell.textContent))",
    ),
  );
  assert.match(await filter("king zebra"), /zebra.*another/);
  await click("#widen");
  assert.match(await text("#shown"), /^100 of/);
  await filter("rank");
  await click("#patterns .term");
  assert.equal(await browser.value("document.getElementById('term').hidden"), false);
  assert.ok((await browser.value("document.querySelectorAll('#term .on').length")) > 0);
  await browser.key("Escape");
  assert.equal(await browser.value("document.getElementById('term').hidden"), true);
});

test("on a telephone every figure is on the screen, and a tap chooses a piece", async () => {
  await page({ width: 420, touch: true, dark: true });
  await browser.value("document.getElementById('figures').open = true");
  assert.equal(await browser.value("document.documentElement.scrollWidth"), 420);
  const outside =
    await browser.value(`[...document.querySelectorAll("td, th, svg text, #board div, button, select")].filter((one) => {
    const box = one.getBoundingClientRect(); return box.width > 0 && (box.right > 420.5 || box.left < -0.5); }).map((one) => one.textContent)`);
  assert.deepEqual(outside, []);
  const piece = firstPieces().at(-1);
  const at = await centre(cellOf(piece));
  for (const [type, touchPoints] of [
    ["touchStart", [at]],
    ["touchEnd", []],
  ])
    await browser.tell("Input.dispatchTouchEvent", { type, touchPoints });
  await new Promise((resolve) => setTimeout(resolve, 100));
  assert.equal(await text("#piece h3"), titleOf(piece));
  await picture("narrow-dark");
});

test("it is dark where dark is wanted", async () => {
  const lightness = async (dark) => {
    await page({ width: 1400, dark });
    await picture(dark ? "wide-dark" : "wide-light");
    return browser.value(
      "getComputedStyle(document.body).backgroundColor.match(/\\d+/g).slice(0, 3).reduce((sum, one) => sum + Number(one), 0)",
    );
  };
  assert.ok((await lightness(false)) > 600);
  assert.ok((await lightness(true)) < 150);
});

test("it prints on few pages", async () => {
  await page({ width: 1400 });
  const pdf = await browser.pdf();
  if (pictures) writeFileSync(join(pictures, "page.pdf"), pdf);
  const pages = pdf.toString("latin1").match(/\/Type \/Page\b/g).length;
  assert.ok(pages >= 3 && pages <= 7, `${pages} pages`);
});

test("of a network without patterns it says so and nothing else", async () => {
  await browser.open(join(folder, "empty.html"), { width: 420 });
  assert.match(await text("#network"), /: 0 patterns for 0 position types\.$/);
  assert.equal(await browser.value("document.getElementById('all').hidden"), true);
});

test("without games it says what is missing and how to get it", async () => {
  await page({ width: 420, bare: true });
  assert.match(await text("#unchecked"), /--validate/);
  assert.equal(await text("#learned-from"), "The file does not say which games it was learned from.");
  assert.equal(await browser.value("document.getElementById('games').hidden"), true);
  assert.ok((await browser.value("document.querySelectorAll('#patterns tbody tr').length")) > 0);
});

try {
  if (pictures) mkdirSync(pictures, { recursive: true });
  data = makePage();
  browser = await openBrowser(program);
  for (const [name, body] of Object.entries(cases)) {
    await body().then(
      () => console.log(`ok: ${name}`),
      (error) => {
        process.exitCode = 1;
        console.log(`FAILED: ${name}\n${error.stack}`);
      },
    );
    assert.deepEqual(browser.errors, [], "errors on the page");
  }
} finally {
  await browser?.close();
  rmSync(folder, { recursive: true, force: true });
}
