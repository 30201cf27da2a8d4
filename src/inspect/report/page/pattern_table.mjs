// All patterns: filtered, sorted, a hundred at a time.

import { byId, make, signOf } from "./dom.mjs";
import { adviceFor, choosePatterns, sortPatterns } from "./filter.mjs";
import { grouped, signed } from "./format.mjs";
import { patternElement } from "./terms.mjs";

const patternsAtOnce = 100;

export const setUpPatterns = (data, model) => {
  const columns = [
    { title: "Weight", key: (pattern) => pattern.weight, number: true },
    { title: "Strength", key: (pattern) => Math.abs(pattern.weight), descending: true },
    { title: "Pattern", key: (pattern) => pattern.name },
    { title: "Kind", key: (pattern) => data.kinds.indexOf(pattern.kind) },
    { title: "Type", key: (pattern) => pattern.type },
    { title: "Features", key: (pattern) => pattern.size },
  ];
  const state = { column: 1, descending: true, limit: patternsAtOnce };
  const numberOf = (id) => (byId(id).value === "" ? null : Number(byId(id).value));
  const choice = () => ({
    type: numberOf("filter-type"),
    kind: byId("filter-kind").value,
    size: numberOf("filter-size"),
    text: byId("filter-text").value,
  });

  const inFile = data.lists.reduce((sum, list) => sum + list.patterns, 0);
  byId("merged").textContent =
    inFile === model.patterns.length
      ? ""
      : `Patterns that differ only by what always holds fire together, and are one here: the ${grouped(inFile)} of the file are ${grouped(model.patterns.length)} on this page.`;

  const row = (pattern, most) =>
    make(
      "tr",
      {},
      make("td", { class: "number" }, signed(pattern.weight, 2)),
      make(
        "td",
        { class: "strength" },
        make("i", { class: signOf(pattern.weight), style: `width:${(100 * Math.abs(pattern.weight)) / most}%` }),
      ),
      make("td", { class: "name" }, patternElement(data, pattern)),
      make("td", {}, pattern.kind),
      make("td", {}, model.nameOfType(pattern.type)),
      make(
        "td",
        { class: "number", "data-after": pattern.size === 1 ? " feature" : " features" },
        String(pattern.size),
      ),
    );

  const draw = () => {
    const found = sortPatterns(choosePatterns(model.patterns, choice()), columns[state.column].key, state.descending);
    const shown = found.slice(0, state.limit);
    byId("shown").textContent = found.length
      ? `${grouped(shown.length)} of ${grouped(found.length)} patterns shown`
      : adviceFor(model.patterns, choice());
    byId("widen").hidden = found.length > 0;
    byId("more").hidden = shown.length === found.length;
    byId("patterns").hidden = found.length === 0;
    const most = Math.max(1e-6, ...shown.map((pattern) => Math.abs(pattern.weight)));
    byId("patterns").tBodies[0].replaceChildren(...shown.map((pattern) => row(pattern, most)));
    [...byId("patterns").tHead.rows[0].cells].forEach((cell, index) =>
      index === state.column
        ? cell.setAttribute("aria-sort", state.descending ? "descending" : "ascending")
        : cell.removeAttribute("aria-sort"),
    );
  };
  const redraw = () => {
    state.limit = patternsAtOnce;
    draw();
  };

  const options = (id, entries) =>
    byId(id).append(
      make("option", { value: "" }, "all"),
      ...entries.map(([value, text]) => make("option", { value }, text)),
    );
  options(
    "filter-type",
    model.types.map(({ type }) => [type, model.describe(type)]),
  );
  options(
    "filter-kind",
    data.kinds.map((kind) => [kind, kind]),
  );
  const sizes = [...new Set(model.patterns.map((pattern) => pattern.size))].sort((a, b) => a - b);
  options(
    "filter-size",
    sizes.map((size) => [size, String(size)]),
  );

  byId("filters").addEventListener("input", redraw);
  byId("filters").addEventListener("submit", (event) => event.preventDefault());
  byId("more").addEventListener("click", () => {
    state.limit += patternsAtOnce;
    draw();
  });
  byId("widen").addEventListener("click", () => {
    const elsewhere = choosePatterns(model.patterns, { ...choice(), type: null, kind: "", size: null });
    for (const id of ["filter-type", "filter-kind", "filter-size"]) byId(id).value = "";
    if (elsewhere.length === 0) byId("filter-text").value = "";
    redraw();
  });
  byId("patterns").append(
    make(
      "thead",
      {},
      make(
        "tr",
        {},
        ...columns.map((column, index) => {
          const button = make("button", { type: "button" }, column.title);
          button.addEventListener("click", () => {
            state.descending = index === state.column ? !state.descending : Boolean(column.number || column.descending);
            state.column = index;
            redraw();
          });
          return make("th", { scope: "col", class: column.title.toLowerCase() }, button);
        }),
      ),
    ),
    make("tbody"),
  );

  // The filter follows the type that is chosen for the page.
  return (type) => {
    byId("filter-type").value = String(type);
    redraw();
  };
};
