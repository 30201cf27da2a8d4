// One position type: what a piece is worth on each square, on one scale for all kinds.

import { byId, colourScale, make, tint } from "./dom.mjs";
import { fixed, several, signed } from "./format.mjs";
import { meanOf } from "./model.mjs";
import { squareName } from "./position.mjs";
import { fullColour, strength } from "./scale.mjs";

// Squares seen less often say little; they show their figure without a colour.
const fewest = 10;

const differencesOf = (worth) => {
  const mean = meanOf(worth);
  return worth.means.flatMap((one, square) => (worth.counts[square] < fewest ? [] : [one - mean]));
};

const squaresTable = (kind, worth, most, say) => {
  const mean = meanOf(worth);
  const table = make("table", { class: "squares", "aria-label": `Mean worth of a ${kind} by square` });
  for (let row = 7; row >= 0; --row) {
    const line = make("tr", {}, make("th", { scope: "row" }, String(row + 1)));
    for (let file = 0; file < 8; ++file) {
      const square = 8 * row + file,
        count = worth.counts[square],
        value = worth.means[square];
      if (count === 0) {
        line.append(make("td", { class: "none" }));
        continue;
      }
      const text = `${squareName(square)}: ${signed(value, 2)}, ${signed(value - mean, 2)} against the average ${kind}; seen ${several(count, "time", "times")}`;
      const cell = make(
        "td",
        {
          class: count < fewest ? "few" : "",
          style: count < fewest ? undefined : tint(value - mean, strength(value - mean, most)),
          title: text,
        },
        fixed(value, Math.abs(value) >= 99.5 ? 0 : 1),
      );
      cell.addEventListener("click", () => say(text));
      line.append(cell);
    }
    table.append(line);
  }
  table.append(
    make("tr", {}, make("td", { class: "none" }), ...[..."abcdefgh"].map((file) => make("th", { scope: "col" }, file))),
  );
  return table;
};

const squaresCard = (kind, worth, most) => {
  const article = make("article", { class: "card" }, make("h3", {}, kind));
  if (!worth) {
    article.append(make("p", {}, "not seen"));
    return article;
  }
  const seen = worth.counts.reduce((sum, count) => sum + count, 0);
  const line = make(
    "p",
    { role: "status" },
    `average ${signed(meanOf(worth), 2)}, seen ${several(seen, "time", "times")}`,
  );
  article.append(
    line,
    squaresTable(kind, worth, most, (text) => {
      line.textContent = text;
    }),
  );
  return article;
};

export const drawSquares = (data, model, type) => {
  const worths = data.kinds.map((kind) => model.meansOf(type, kind));
  const known = worths.filter(Boolean);
  const most = fullColour(known.flatMap(differencesOf));
  byId("cards").replaceChildren(
    ...(known.length === 0
      ? [make("p", {}, "The games hold no position of this type.")]
      : data.kinds.map((kind, index) => squaresCard(kind, worths[index], most))),
  );
  byId("squares-scale").replaceChildren(colourScale(most));
};
