// Value and expected score along a game, one above the other.

import { make } from "./dom.mjs";
import { minus, percent } from "./format.mjs";
import { scale, ticks } from "./scale.mjs";

// As wide as its place when it is drawn, so that its letters keep their size.
const chart = { left: 46, right: 8 };

// Lines break where nothing is known.
const brokenLines = (points) => {
  const runs = [[]];
  for (const point of points) {
    if (point === null) runs.push([]);
    else runs.at(-1).push(point);
  }
  return runs
    .filter((run) => run.length)
    .map((run) => make("polyline", { class: "line", points: run.map((point) => point.join(",")).join(" ") }));
};

const drawPanel = (values, marks, { title, width, low, high, height, base }) => {
  const x = scale(0, Math.max(1, values.length - 1), chart.left, width - chart.right);
  const y = scale(low, high, height - 8, 22);
  const svg = make("svg", { viewBox: `0 0 ${width} ${height}`, role: "img", "aria-label": title });
  svg.append(make("text", { x: chart.left, y: 12, class: "title" }, title));
  for (const { at, text, kind } of marks) {
    svg.append(
      make("line", {
        class: kind ?? (at === base ? "base" : "axis"),
        x1: chart.left,
        x2: width - chart.right,
        y1: y(at),
        y2: y(at),
      }),
    );
    if (text) svg.append(make("text", { x: chart.left - 6, y: y(at) + 4, "text-anchor": "end" }, text));
  }
  svg.append(
    ...brokenLines(values.map((value, ply) => (value === null ? null : [x(ply).toFixed(1), y(value).toFixed(1)]))),
  );
  const cursor = make("line", { class: "cursor", y1: 18, y2: height - 4 });
  svg.append(cursor);
  return {
    svg,
    move: (ply) => {
      cursor.setAttribute("x1", x(ply));
      cursor.setAttribute("x2", x(ply));
    },
  };
};

const plyAt = (svg, width, event, last) => {
  const box = svg.getBoundingClientRect();
  const part = (((event.clientX - box.left) / box.width) * width - chart.left) / (width - chart.left - chart.right);
  return Math.round(Math.min(1, Math.max(0, part)) * last);
};

// `values` and `scores` as White sees them, null where nothing is known; `scores` may be null as a whole.
export const drawGame = (host, { values, scores, result, onStep }) => {
  const most = Math.max(1, ...values.map((value) => Math.abs(value ?? 0)));
  const width = Math.max(320, host.clientWidth);
  const panels = [];
  if (scores) {
    const marks = [0, 0.25, 0.5, 0.75, 1].map((at) => ({ at, text: percent(at) }));
    if (result !== null) marks.push({ at: (result + 1) / 2, kind: "ideal" });
    panels.push(
      drawPanel(scores, marks, {
        title: "Expected score for White; dashed: how the game ended",
        width,
        low: 0,
        high: 1,
        height: 190,
        base: 0.5,
      }),
    );
  }
  panels.push(
    drawPanel(
      values,
      ticks(most, 2).map((at) => ({ at, text: at > 0 ? `+${at}` : minus(String(at)) })),
      { title: "Value for White", width, low: -most, high: most, height: 150, base: 0 },
    ),
  );
  for (const { svg } of panels) {
    const step = (event) => onStep(plyAt(svg, width, event, values.length - 1));
    svg.addEventListener("pointerdown", step);
    svg.addEventListener("pointermove", (event) => {
      if (event.buttons) step(event);
    });
  }
  host.replaceChildren(...panels.map(({ svg }) => svg));
  return (ply) => panels.forEach(({ move }) => move(ply));
};
