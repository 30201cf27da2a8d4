// The expected score along a game.

import { make } from "./dom.mjs";
import { percent } from "./format.mjs";
import { scale } from "./scale.mjs";

// As wide as its place when it is drawn, so that its letters keep their size.
const chart = { left: 46, right: 8, top: 22, bottom: 162, height: 170 };

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

const plyAt = (svg, width, event, last) => {
  const box = svg.getBoundingClientRect();
  const part = (((event.clientX - box.left) / box.width) * width - chart.left) / (width - chart.left - chart.right);
  return Math.round(Math.min(1, Math.max(0, part)) * last);
};

// `scores` as White sees them, null where nothing is known; `answered` are plies to mark; `result` is null for a game
// without one. What it gives back moves the cursor.
export const drawGame = (host, { scores, answered, result, onStep }) => {
  const width = Math.max(320, host.clientWidth);
  const last = scores.length - 1;
  const x = scale(0, Math.max(1, last), chart.left, width - chart.right);
  const y = scale(0, 1, chart.bottom, chart.top);
  const title = "Expected score for White; dashed: how the game ended";
  const svg = make("svg", { viewBox: `0 0 ${width} ${chart.height}`, role: "img", "aria-label": title });
  const across = (name, at) =>
    make("line", { class: name, x1: chart.left, x2: width - chart.right, y1: y(at), y2: y(at) });
  svg.append(make("text", { x: chart.left, y: 12, class: "title" }, title));
  for (const at of [0, 0.25, 0.5, 0.75, 1]) {
    svg.append(
      across(at === 0.5 ? "base" : "axis", at),
      make("text", { x: chart.left - 6, y: y(at) + 4, "text-anchor": "end" }, percent(at)),
    );
  }
  if (result !== null) svg.append(across("ideal", (result + 1) / 2));
  const points = scores.map((score, ply) => (score === null ? null : [x(ply).toFixed(1), y(score).toFixed(1)]));
  const cursor = make("line", { class: "cursor", y1: chart.top - 4, y2: chart.bottom + 4 });
  svg.append(
    ...brokenLines(points),
    ...answered
      .filter((ply) => points[ply] !== null)
      .map((ply) => make("circle", { class: "answered", cx: points[ply][0], cy: points[ply][1], r: 3.5 })),
    cursor,
  );
  const step = (event) => onStep(plyAt(svg, width, event, last));
  svg.addEventListener("pointerdown", step);
  svg.addEventListener("pointermove", (event) => {
    if (event.buttons) step(event);
  });
  host.replaceChildren(svg);
  return (ply) => {
    cursor.setAttribute("x1", x(ply));
    cursor.setAttribute("x2", x(ply));
  };
};
