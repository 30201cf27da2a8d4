"use strict";
(() => {
  const data = JSON.parse(document.getElementById("data").textContent);
  const byId = (id) => document.getElementById(id);
  const minus = (text) => text.replace("-", "\u2212");
  const fixed = (number, digits) => minus(Number(number.toFixed(digits) === "-" + (0).toFixed(digits) ? 0 : number).toFixed(digits));
  const six = (number) => number === null ? "\u2013" : minus(String(Number(number.toPrecision(6))));

  // An element with attributes and children; strings become text.
  const make = (name, attributes = {}, ...children) => {
    const isSvg = ["svg", "rect", "line", "text", "circle", "polyline", "title", "g"].includes(name);
    const element = isSvg ? document.createElementNS("http://www.w3.org/2000/svg", name) : document.createElement(name);
    for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
    element.append(...children);
    return element;
  };
  const cells = (name, texts, attributes = {}) => texts.map((text) => make(name, attributes, text));

  const types = data.types.filter((type) => data.lists.some((list) => list.type === type.type));
  const listOf = (type, kind) => data.lists.find((list) => list.type === type && list.kind === kind);
  const sizeOf = (mask) => { let bits = 0; for (; mask; mask = (mask & (mask - 1)) >>> 0) ++bits; return bits; };
  const nameOf = (type, kind, mask) => {
    const names = kind === "pawn" && data.pawnEndings.includes(type) ? data.pawnEndingBits : data.bits[kind];
    const parts = [];
    for (let bit = 31; bit >= 0; --bit) if (mask >>> bit & 1) parts.push(names[bit]);
    return parts.join(" + ");
  };

  const all = data.lists.flatMap((list) => list.nodes.map(([mask, weight]) =>
    ({ type: list.type, kind: list.kind, mask, weight, size: sizeOf(mask), name: nameOf(list.type, list.kind, mask) })));
  byId("lead").textContent = `${data.network}: ${all.length.toLocaleString("en")} patterns of ${types.length} position types`;

  // Patterns by type and kind.
  const sizeNames = ["1 feature", "2 features", "3 features", "4 and more"];
  const sizesUsed = all.some((pattern) => pattern.size > 3) ? 4 : 3;
  const bySize = (list) => {
    const sizes = [0, 0, 0, 0];
    list.bySize.forEach((count, index) => { sizes[Math.min(index, 3)] += count; });
    return sizes;
  };
  const drawCounts = () => {
    sizeNames.slice(0, sizesUsed).forEach((name, index) =>
      byId("counts-legend").append(make("li", {}, make("i", { class: `size${index + 1}` }), name)));
    const most = Math.max(1, ...data.lists.map((list) => list.patterns));
    byId("counts").append(make("thead", {}, make("tr", {}, ...cells("th", ["Type", ...data.kinds], { scope: "col" }))));
    const body = make("tbody");
    for (const { type, name } of types) {
      const row = make("tr", {}, make("th", { scope: "row" }, `${type} `, make("span", {}, name)));
      for (const kind of data.kinds) {
        const list = listOf(type, kind);
        const bar = make("div", { class: "bar", "aria-hidden": "true" });
        if (list) bySize(list).forEach((count, index) =>
          bar.append(make("i", { class: `size${index + 1}`, style: `width:${100 * count / most}%`, title: `${count} of ${sizeNames[index]}` })));
        row.append(make("td", {}, list ? list.patterns.toLocaleString("en") : "\u2013", bar));
      }
      body.append(row);
    }
    byId("counts").append(body);
  };

  // One type: a card for each kind.
  const board = (list) => {
    const most = Math.max(0.005, ...list.squares.map((value) => Math.abs(value ?? 0)));
    const table = make("table", { class: "board", "aria-label": `Value of the square for a ${list.kind}` });
    const digits = most >= 9.95 ? 0 : most >= 0.995 ? 1 : 2;
    for (let rank = 7; rank >= 0; --rank) {
      const row = make("tr", {}, make("th", { scope: "row" }, String(rank + 1)));
      for (let file = 0; file < 8; ++file) {
        const value = list.squares[8 * rank + file];
        row.append(value === null ? make("td", { class: "none" }) : make("td", {
          style: `--hue:var(--${value < 0 ? "minus" : "plus"});--strength:${(0.9 * Math.abs(value) / most).toFixed(3)}`,
          title: `${"abcdefgh"[file]}${rank + 1}: ${fixed(value, 3)}` }, fixed(value, digits)));
      }
      table.append(row);
    }
    table.append(make("tr", {}, make("th"), ...cells("th", [..."abcdefgh"], { scope: "col" })));
    const scale = make("div", { class: "scale" }, fixed(-most, 2), make("i"), "+" + fixed(most, 2));
    return [table, scale];
  };

  const histogram = (list) => {
    const binCount = 31, width = 300, height = 90;
    const most = Math.max(1e-6, Math.abs(list.lowest), Math.abs(list.highest));
    const bins = new Array(binCount).fill(0);
    for (const [, weight] of list.nodes) ++bins[Math.min(binCount - 1, Math.floor((weight / most + 1) / 2 * binCount))];
    const top = Math.max(...bins);
    const svg = make("svg", { viewBox: `0 0 ${width} ${height + 18}`, role: "img",
      "aria-label": `Histogram of the weights of ${list.kind} patterns, from ${fixed(list.lowest, 2)} to ${fixed(list.highest, 2)}` });
    bins.forEach((count, index) => {
      if (count === 0) return;
      const tall = Math.max(1, count / top * (height - 14));
      const middle = (2 * (index + 0.5) / binCount - 1) * most;
      svg.append(make("rect", { class: index === (binCount - 1) / 2 ? "middle" : middle < 0 ? "minus" : "plus", x: index * width / binCount + 0.5, width: width / binCount - 1,
        y: height - tall, height: tall }, make("title", {}, `${count} around ${fixed(middle, 2)}`)));
    });
    svg.append(make("line", { class: "axis", x1: 0, x2: width, y1: height, y2: height }),
      make("text", { x: 0, y: height + 14 }, fixed(-most, 2)), make("text", { x: width / 2, y: height + 14, "text-anchor": "middle" }, "weight 0"),
      make("text", { x: width, y: height + 14, "text-anchor": "end" }, "+" + fixed(most, 2)),
      make("text", { x: 0, y: 9 }, `most in a bin: ${top.toLocaleString("en")}`));
    return svg;
  };

  const drawCards = (type) => {
    byId("cards").replaceChildren(...data.kinds.map((kind) => {
      const list = listOf(type, kind);
      if (!list) return make("article", { class: "card" }, make("h3", {}, kind), make("p", {}, "no patterns"));
      return make("article", { class: "card" }, make("h3", {}, kind),
        make("p", {}, `${list.patterns.toLocaleString("en")} patterns, ${fixed(list.lowest, 2)} to ${fixed(list.highest, 2)}, deviation ${fixed(list.deviation, 2)}`),
        ...board(list), histogram(list));
    }));
  };

  // Validation.
  const plot = (title, measured) => {
    const size = 300, low = 34;
    const bands = measured.bands;
    const most = Math.max(1, ...bands.flatMap((band) => [Math.abs(band.meanValue), Math.abs(band.meanTarget)])) * 1.08;
    const x = (value) => low + (value / most + 1) / 2 * size;
    const y = (value) => 8 + (1 - value / most) / 2 * size;
    const step = [1, 2, 5, 10, 20, 50, 100, 200].find((candidate) => most / candidate <= 3.2) ?? 500;
    const svg = make("svg", { viewBox: `0 0 ${size + low + 8} ${size + 46}`, role: "img", "aria-label":
      `${title}: ` + bands.map((band) => `value ${fixed(band.meanValue, 1)} target ${fixed(band.meanTarget, 1)}`).join(", ") });
    for (let tick = -Math.floor(most / step) * step; tick <= most; tick += step) {
      svg.append(make("line", { class: "axis", x1: x(tick), x2: x(tick), y1: 8, y2: size + 8 }),
        make("line", { class: "axis", x1: low, x2: size + low, y1: y(tick), y2: y(tick) }),
        make("text", { x: x(tick), y: size + 22, "text-anchor": "middle" }, minus(String(tick))),
        make("text", { x: low - 6, y: y(tick) + 4, "text-anchor": "end" }, minus(String(tick))));
    }
    svg.append(make("line", { class: "ideal", x1: x(-most), y1: y(-most), x2: x(most), y2: y(most) }),
      make("polyline", { class: "line", points: bands.map((band) => `${x(band.meanValue)},${y(band.meanTarget)}`).join(" ") }),
      ...bands.map((band) => make("circle", { class: "dot", cx: x(band.meanValue), cy: y(band.meanTarget), r: 4 },
        make("title", {}, `${band.samples} samples, value ${fixed(band.lowest, 2)} to ${fixed(band.highest, 2)}, mean ${fixed(band.meanValue, 2)}, mean target ${fixed(band.meanTarget, 2)}`))),
      make("text", { x: low + size / 2, y: size + 40, "text-anchor": "middle" }, "predicted value, tenths of the samples"),
      make("text", { x: -(8 + size / 2), y: 9, "text-anchor": "middle", transform: "rotate(-90)" }, "mean target"));
    return make("article", { class: "card" }, make("h3", {}, title),
      make("p", {}, `${measured.samples.toLocaleString("en")} samples; on the dashed line the value is right on average`), svg);
  };
  const drawPlots = (type) => {
    const measured = data.validation?.types.find((one) => one.type === type);
    const plots = [plot("all learned types", data.validation.all)];
    if (measured?.bands.length) plots.push(plot(`position type ${type}`, measured));
    byId("plots").replaceChildren(...plots);
  };
  const drawMeasures = () => {
    const validation = data.validation;
    byId("validation").hidden = false;
    byId("validation-note").textContent = `${validation.games.toLocaleString("en")} games with a result of ${validation.files.join(", ")}. The second plot follows the position type chosen above.`;
    byId("measures").append(make("thead", {}, make("tr", {}, make("th", { scope: "col" }, "Type"), ...cells("th",
      ["Samples", "f(w)", "Mean error", "Hit %", "Sign %", "f(w), zeros", "Mean error, zeros", "Hit %, zeros"], { scope: "col", class: "number" }))));
    const body = make("tbody");
    for (const one of [...validation.types, { type: "all", patterns: 1, ...validation.all }]) {
      const measures = (residuals) => [residuals.f, residuals.meanError, residuals.hitPercentage];
      const own = one.patterns ? [...measures(one.network), one.signPercentage] : [null, null, null, null];
      body.append(make("tr", {}, make("th", { scope: "row" }, String(one.type)), ...cells("td",
        [one.samples.toLocaleString("en"), ...[...own, ...measures(one.zeros)].map(six)], { class: "number" })));
    }
    byId("measures").append(body);
  };

  // The table of patterns.
  const columns = [
    { title: "Type", key: (pattern) => pattern.type, number: true },
    { title: "Kind", key: (pattern) => data.kinds.indexOf(pattern.kind) },
    { title: "Features", key: (pattern) => pattern.size, number: true },
    { title: "Pattern", key: (pattern) => pattern.name },
    { title: "Weight", key: (pattern) => pattern.weight, number: true },
    { title: "Strength", key: (pattern) => Math.abs(pattern.weight), descending: true },
  ];
  const state = { column: 5, descending: true, limit: 100 };
  const drawPatterns = () => {
    const [type, kind, size] = ["type", "kind", "size"].map((name) => byId(`filter-${name}`).value);
    const text = byId("filter-text").value.trim().toLowerCase();
    const found = all.filter((pattern) => (type === "" || pattern.type === Number(type)) && (kind === "" || pattern.kind === kind) &&
      (size === "" || pattern.size === Number(size)) && pattern.name.toLowerCase().includes(text));
    const key = columns[state.column].key, direction = state.descending ? -1 : 1;
    found.sort((a, b) => { const x = key(a), y = key(b); return x < y ? -direction : x > y ? direction : 0; });
    const shown = found.slice(0, state.limit);
    byId("shown").textContent = `${shown.length.toLocaleString("en")} of ${found.length.toLocaleString("en")} patterns shown`;
    byId("more").hidden = shown.length === found.length;
    const most = Math.max(1e-6, ...shown.map((pattern) => Math.abs(pattern.weight)));
    byId("patterns").tBodies[0].replaceChildren(...shown.map((pattern) => make("tr", {},
      make("td", { class: "number" }, String(pattern.type)), make("td", {}, pattern.kind),
      make("td", { class: "number" }, String(pattern.size)), make("td", {}, pattern.name),
      make("td", { class: "number" }, fixed(pattern.weight, 2)),
      make("td", {}, make("i", { class: pattern.weight < 0 ? "minus" : "plus", style: `width:${100 * Math.abs(pattern.weight) / most}%` })))));
    [...byId("patterns").tHead.rows[0].cells].forEach((cell, index) => index === state.column
      ? cell.setAttribute("aria-sort", state.descending ? "descending" : "ascending") : cell.removeAttribute("aria-sort"));
  };
  const setUpPatterns = () => {
    const options = (id, entries) => byId(id).append(make("option", { value: "" }, "all"),
      ...entries.map((entry) => make("option", { value: entry }, String(entry))));
    options("filter-type", types.map((type) => type.type));
    options("filter-kind", data.kinds);
    options("filter-size", [...new Set(all.map((pattern) => pattern.size))].sort((a, b) => a - b));
    const redraw = () => { state.limit = 100; drawPatterns(); };
    byId("filters").addEventListener("input", redraw);
    byId("filters").addEventListener("submit", (event) => event.preventDefault());
    byId("more").addEventListener("click", () => { state.limit += 100; drawPatterns(); });
    const head = make("tr");
    columns.forEach((column, index) => {
      const button = make("button", { type: "button" }, column.title);
      button.addEventListener("click", () => {
        state.descending = index === state.column ? !state.descending : Boolean(column.number || column.descending);
        state.column = index;
        redraw();
      });
      head.append(make("th", column.number ? { scope: "col", class: "number" } : { scope: "col" }, button));
    });
    byId("patterns").append(make("thead", {}, head), make("tbody"));
  };

  const choose = (type) => {
    const { name } = data.types[type];
    byId("type-title").textContent = `Type ${type}: ${name}`;
    drawCards(type);
    if (data.validation) drawPlots(type);
  };
  drawCounts();
  setUpPatterns();
  drawPatterns();
  if (data.validation) drawMeasures();
  for (const { type, name } of types) {
    const input = make("input", { type: "radio", name: "type", value: type, "aria-label": `${type}, ${name}` });
    input.addEventListener("change", () => choose(type));
    byId("types").append(make("label", { title: name }, input, make("span", {}, String(type))));
  }
  const last = types.at(-1);
  if (last) {
    byId("types").querySelector(`input[value="${last.type}"]`).checked = true;
    choose(last.type);
  }
})();
