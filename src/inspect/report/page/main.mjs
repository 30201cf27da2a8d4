// Puts the page together from its data.

import { drawCounts } from "./counts.mjs";
import { drawCurves } from "./curves.mjs";
import { byId, make } from "./dom.mjs";
import { setUpGames } from "./games.mjs";
import { drawHead } from "./head.mjs";
import { drawMeasures } from "./measures.mjs";
import { readModel } from "./model.mjs";
import { setUpPatterns } from "./pattern_table.mjs";
import { drawSquares } from "./squares.mjs";
import { setUpTerms } from "./terms.mjs";

const setUpTypes = (data, model, followType) => {
  const choose = (type) => {
    byId("type-title").textContent = model.describe(type);
    drawSquares(data, model, type);
    followType(type);
  };
  for (const { type, name, words } of model.types) {
    const input = make("input", { type: "radio", name: "type", value: type });
    input.addEventListener("change", () => choose(type));
    const label = make("span", {}, words, " ", words === name ? null : make("small", {}, name));
    byId("types").append(make("label", {}, input, label));
  }
  const last = model.types.at(-1).type;
  byId("types").querySelector(`input[value="${last}"]`).checked = true;
  choose(last);
};

const data = JSON.parse(byId("data").textContent);
const model = readModel(data);
drawHead(data);
// Without a script nothing of it is true, and without patterns there is nothing to show.
byId("all").hidden = model.types.length === 0;
if (model.types.length > 0) {
  byId("unchecked").hidden = data.validation !== null;
  byId("type-section").hidden = data.validation === null;
  byId("sure").hidden = data.calibration === null;
  setUpTerms(data);
  setUpGames(data, model);
  if (data.calibration) drawCurves(data.calibration, model);
  if (data.validation) drawMeasures(data.validation, model);
  setUpTypes(data, model, setUpPatterns(data, model));
  drawCounts(data, model);
}
