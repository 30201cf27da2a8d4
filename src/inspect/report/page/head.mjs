// What the page begins with: the verdict, and what it is of.

import { byId } from "./dom.mjs";
import { fixed, grouped, several } from "./format.mjs";

// How good the network is, in one sentence for a player.
export const verdictOf = ({ lists, validation }) => {
  if (lists.length === 0) return "Nothing was learned: this network holds no patterns.";
  if (validation === null) return "How good it is, this page cannot tell: it was written without games to check it on.";
  const { decided, network, material } = validation.all;
  if (decided === 0) return validation.verdict;
  const often = ({ rightPercentage }) => fixed(rightPercentage, 0);
  return `Names the winner in ${often(network)} of 100 positions; counting material, ${often(material)}.`;
};

export const drawHead = (data) => {
  const { validation } = data;
  byId("verdict").textContent = verdictOf(data);
  const date = { dateStyle: "long", timeStyle: "short" };
  byId("network").textContent =
    data.written === null
      ? `${data.network}.`
      : `${data.network}, written ${new Date(1000 * data.written).toLocaleString("en-GB", date)}.`;
  byId("learned-from").textContent = data.learnedFrom.length
    ? `Learned from ${data.learnedFrom.join(", ")}.`
    : "The file does not say which games it was learned from.";
  if (validation === null) return;
  byId("checked-on").textContent =
    `Checked on ${several(validation.games, "game", "games")} of ${validation.files.join(", ")}, of which ${grouped(validation.tally.withSamples)} gave positions.`;
};
