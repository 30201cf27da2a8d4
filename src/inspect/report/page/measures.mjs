// The figures of the validation in full.

import { byId, cells, make } from "./dom.mjs";
import { fixed, grouped, percent } from "./format.mjs";

const figure = (number, digits) => (number === null || number === undefined ? "\u2013" : fixed(number, digits));

const measureColumns = [
  ["Positions", (one) => grouped(one.samples)],
  ["Right side, %", (one) => figure(one.network.rightPercentage, 1)],
  ["by material", (one) => figure(one.material.rightPercentage, 1)],
  ["f(w)", (one) => figure(one.network.f, 1)],
  ["of material", (one) => figure(one.material.f, 1)],
  ["of zeros", (one) => figure(one.zeros.f, 1)],
  ["Log loss", (one) => figure(one.network.logLoss, 3)],
  ["of material", (one) => figure(one.material.logLoss, 3)],
  ["Brier", (one) => figure(one.network.brier, 3)],
  ["Mean error", (one) => figure(one.network.meanError, 1)],
  ["Hits, %", (one) => figure(one.network.hitPercentage, 1)],
];

const bandColumns = [
  ["Positions", (band) => grouped(band.samples)],
  ["Expected, %", (band) => figure(100 * band.expected, 1)],
  ["Scored, %", (band) => figure(100 * band.score, 1)],
];

const fill = (table, first, rows, columns, nameOf) => {
  const body = make(
    "tbody",
    {},
    ...rows.map((row) =>
      make(
        "tr",
        {},
        make("th", { scope: "row" }, nameOf(row)),
        ...columns.map(([title, read]) => make("td", { class: "number", "data-title": title }, read(row))),
      ),
    ),
  );
  table.append(
    make(
      "thead",
      {},
      make(
        "tr",
        {},
        make("th", { scope: "col" }, first),
        ...cells(
          "th",
          columns.map(([title]) => title),
          { scope: "col", class: "number" },
        ),
      ),
    ),
    body,
  );
};

export const drawMeasures = (validation, model) => {
  byId("figures").hidden = false;
  byId("learned").textContent = validation.verdict;
  fill(
    byId("measures"),
    "Type",
    [{ type: "all", ...validation.all }, ...validation.types.filter((one) => one.patterns)],
    measureColumns,
    ({ type }) => (type === "all" ? "All types" : `${type}, ${model.nameOfType(type)}`),
  );
  fill(
    byId("bands"),
    "Expected score",
    validation.scoreBands.filter((band) => band.samples),
    bandColumns,
    ({ from }) => `${fixed(100 * from, 0)} to ${percent(from + 0.1)}`,
  );
};
