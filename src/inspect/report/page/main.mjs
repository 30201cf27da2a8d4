// Puts the page together from its data.

import { drawCounts } from "./counts.mjs";
import { drawVerdict } from "./curves.mjs";
import { byId, make } from "./dom.mjs";
import { grouped, several } from "./format.mjs";
import { setUpGames } from "./games.mjs";
import { drawMeasures } from "./measures.mjs";
import { readModel } from "./model.mjs";
import { setUpPatterns } from "./pattern_table.mjs";
import { drawSquares } from "./squares.mjs";
import { setUpTerms } from "./terms.mjs";

const lead = (data, model) => {
  const count = data.lists.reduce((sum, list) => sum + list.patterns, 0);
  const written =
    data.written === null
      ? ""
      : `, written ${new Date(1000 * data.written).toLocaleString("en-GB", { dateStyle: "long", timeStyle: "short" })}`;
  byId("network").textContent =
    `${data.network}${written}: ${several(count, "pattern", "patterns")} for ${several(model.types.length, "position type", "position types")}.`;
  byId("learned-from").textContent = data.learnedFrom.length
    ? `Learned from ${data.learnedFrom.join(", ")}.`
    : "The file does not say which games it was learned from.";
  const { validation } = data;
  byId("checked-on").textContent =
    validation === null
      ? "Not checked on games."
      : `Checked on ${several(validation.games, "game", "games")} of ${validation.files.join(", ")}, of which ${grouped(validation.tally.withSamples)} gave positions.`;
};

const setUpTypes = (data, model, followType) => {
  const choose = (type) => {
    byId("type-title").textContent = `Type ${type}: ${model.nameOfType(type)}`;
    drawSquares(data, model, type);
    followType(type);
  };
  for (const { type, name } of model.types) {
    const input = make("input", { type: "radio", name: "type", value: type, "aria-label": `${type}, ${name}` });
    input.addEventListener("change", () => choose(type));
    byId("types").append(make("label", { title: name }, input, make("span", {}, String(type))));
  }
  const last = model.types.at(-1).type;
  byId("types").querySelector(`input[value="${last}"]`).checked = true;
  choose(last);
};

const data = JSON.parse(byId("data").textContent);
const model = readModel(data);
lead(data, model);
if (model.types.length === 0) {
  byId("all").hidden = true; // there is nothing to show
} else {
  drawVerdict(data, model);
  if (data.validation) drawMeasures(data.validation);
  setUpTerms(data);
  setUpGames(data, model);
  setUpTypes(data, model, setUpPatterns(data, model));
  drawCounts(data, model);
}
