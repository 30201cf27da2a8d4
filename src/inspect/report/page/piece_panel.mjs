// What one piece is worth, and why: a table whose lines add up.

import { make, signOf } from "./dom.mjs";
import { fixed, several, signed } from "./format.mjs";
import { meanOf } from "./model.mjs";
import { squareName } from "./position.mjs";
import { patternElement } from "./terms.mjs";

const shownAtFirst = 6;

const weightRow = (weight, content, most) =>
  make(
    "tr",
    {},
    make("td", { class: "number" }, signed(weight, 2)),
    make(
      "td",
      { class: "strength" },
      most ? make("i", { class: signOf(weight), style: `width:${(100 * Math.abs(weight)) / most}%` }) : "",
    ),
    make("td", {}, content),
  );

// ", 0.40 more than the average knight of this type".
const comparison = (worth, mean, kind) => {
  if (mean === null) return "";
  const difference = worth - mean;
  if (Math.abs(difference) < 0.005) return `, as the average ${kind} of this type`;
  return `, ${fixed(Math.abs(difference), 2)} ${difference > 0 ? "more" : "less"} than the average ${kind} of this type`;
};

export const showPiece = (host, data, model, step, piece) => {
  // Focus on what goes stays here, where keys are still heard.
  if (host.contains(document.activeElement)) host.focus({ preventScroll: true });
  if (!piece) return host.replaceChildren();
  const patterns = model.firing(step.type, piece.kind, piece.word);
  const worth = patterns.reduce((sum, { weight }) => sum + weight, 0);
  const side = piece.white ? "White" : "Black";
  const title = make("h3", {}, `${side} ${piece.kind} ${squareName(piece.square)}`);
  if (patterns.length === 0) {
    return host.replaceChildren(
      title,
      make(
        "p",
        {},
        model.hasType(step.type)
          ? `No pattern of this piece: worth 0 to ${side}.`
          : "Nothing was learned about positions of this type.",
      ),
    );
  }
  const rest = patterns.slice(shownAtFirst);
  const most = Math.abs(patterns[0].weight);
  const body = make(
    "tbody",
    {},
    ...patterns.slice(0, shownAtFirst).map((one) => weightRow(one.weight, patternElement(data, one), most)),
  );
  if (rest.length) {
    const more = make("button", { type: "button" }, `Show ${rest.length} more`);
    const summed = weightRow(
      rest.reduce((sum, { weight }) => sum + weight, 0),
      more,
      0,
    );
    more.addEventListener("click", () => {
      host.focus({ preventScroll: true });
      summed.replaceWith(...rest.map((one) => weightRow(one.weight, patternElement(data, one), most)));
    });
    body.append(summed);
  }
  host.replaceChildren(
    title,
    make(
      "p",
      {},
      `Worth ${signed(worth, 2)} to ${side}${comparison(worth, meanOf(model.meansOf(step.type, piece.kind)), piece.kind)}. Its patterns, the strongest first:`,
    ),
    make(
      "table",
      { class: "weights" },
      body,
      make("tfoot", {}, weightRow(worth, `sum of ${several(patterns.length, "pattern", "patterns")}`, 0)),
    ),
  );
};
