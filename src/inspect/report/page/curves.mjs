// What a value means: expected score against value, one drawing a type.

import { byId, make } from "./dom.mjs";
import { grouped, minus, percent, several, signed } from "./format.mjs";
import { expectedScore } from "./position.mjs";
import { scale, ticks } from "./scale.mjs";

// The curve stands between `top` and `floor`, the bars between `floor` and `bottom`.
const frame = { width: 320, height: 258, left: 44, right: 310, top: 12, floor: 168, bottom: 224 };

// The outermost tenths reach far out; the drawing ends a little beyond where most of them lie.
export const reachOf = (bands) => Math.max(0.01, ...bands.map((band) => Math.abs(band.meanValue))) * 1.35;

// Tenths as bars whose areas are as their numbers of positions: { low, high, height }, the highest 1.
export const densityOf = (bands, reach) => {
  const bars = bands
    .map((band) => {
      const low = Math.max(-reach, band.lowest),
        high = Math.min(reach, band.highest);
      const part = band.highest > band.lowest ? (high - low) / (band.highest - band.lowest) : 1;
      return { band, low, high: Math.max(high, low + reach / 300), count: band.samples * part };
    })
    .map((bar) => ({ ...bar, height: bar.count / (bar.high - bar.low) }));
  const most = Math.max(...bars.map((bar) => bar.height));
  return bars.map((bar) => ({ ...bar, height: bar.height / most }));
};

const curveDrawing = (one) => {
  const { width, height, left, right, top, floor, bottom } = frame;
  const reach = reachOf(one.bands);
  const x = scale(-reach, reach, left, right),
    y = scale(0, 1, floor, top);
  const svg = make("svg", {
    viewBox: `0 0 ${width} ${height}`,
    role: "img",
    "aria-label":
      "Expected score: " +
      one.bands.map((band) => `${signed(band.meanValue, 1)} scored ${percent(band.won + band.drawn / 2)}`).join(", "),
  });
  for (const at of [0, 0.25, 0.5, 0.75, 1]) {
    svg.append(
      make("line", { class: at === 0.5 ? "base" : "axis", x1: left, x2: right, y1: y(at), y2: y(at) }),
      make("text", { x: left - 6, y: y(at) + 4, "text-anchor": "end" }, percent(at)),
    );
  }
  for (const at of ticks(reach, 3)) {
    svg.append(
      make("line", { class: at === 0 ? "base" : "axis", x1: x(at), x2: x(at), y1: top, y2: bottom }),
      make("text", { x: x(at), y: bottom + 15, "text-anchor": "middle" }, at > 0 ? `+${at}` : minus(String(at))),
    );
  }
  for (const bar of densityOf(one.bands, reach)) {
    const tall = bar.height * (bottom - floor - 10);
    svg.append(
      make(
        "rect",
        {
          class: "density",
          x: x(bar.low),
          width: Math.max(0.5, x(bar.high) - x(bar.low) - 0.6),
          y: bottom - tall,
          height: tall,
        },
        make(
          "title",
          {},
          `${grouped(bar.band.samples)} positions from ${signed(bar.band.lowest, 2)} to ${signed(bar.band.highest, 2)}`,
        ),
      ),
    );
  }
  const points = Array.from({ length: 61 }, (_, index) => reach * (index / 30 - 1));
  svg.append(
    make("polyline", {
      class: "line",
      points: points
        .map((value) => `${x(value).toFixed(1)},${y(expectedScore(value, one.steepness)).toFixed(1)}`)
        .join(" "),
    }),
    ...one.bands.map((band) =>
      make(
        "circle",
        { class: "dot", cx: x(band.meanValue), cy: y(band.won + band.drawn / 2), r: 3.5 },
        make(
          "title",
          {},
          `value ${signed(band.meanValue, 2)}: won ${percent(band.won)}, drawn ${percent(band.drawn)}, lost ${percent(band.lost)}`,
        ),
      ),
    ),
    make("text", { x: (left + right) / 2, y: height - 1, "text-anchor": "middle" }, "value for the side to move"),
  );
  return svg;
};

// The value at which three points of four are expected.
const meaning = ({ steepness, curveOfAllTypes }) => {
  if (!(steepness > 0)) return "the value says nothing about the result";
  const value = Math.log(3) / steepness;
  return `75\u00a0% from ${signed(value, value < 9.95 ? 1 : 0)} on${curveOfAllTypes ? " (too few positions: the curve of all types)" : ""}`;
};

export const drawCurves = (calibration, model) => {
  byId("curves-of").textContent =
    `The curves are those that fit ${several(calibration.games, "game", "games")} of ${calibration.files.join(", ")} best.`;
  const measured = calibration.types.filter((one) => one.steepness !== null && one.bands.length);
  byId("curves").replaceChildren(
    ...measured.map((one) =>
      make(
        "article",
        { class: "card" },
        make("h3", {}, model.describe(one.type)),
        make("p", {}, `${grouped(one.samples)} positions; ${meaning(one)}`),
        curveDrawing(one),
      ),
    ),
  );
};
