// How many patterns of which size there are.

import { byId, cells, make } from "./dom.mjs";
import { grouped } from "./format.mjs";

const sizeNames = ["1 feature", "2 features", "3 features", "4 and more"];

// How many of the patterns have 1, 2, 3 and more features; one of what always holds alone counts to the first.
export const countBySize = (patterns) => {
  const counts = [0, 0, 0, 0];
  for (const { size } of patterns) ++counts[Math.min(Math.max(size, 1), 4) - 1];
  return counts;
};

export const drawCounts = (data, model) => {
  const used = countBySize(model.patterns)[3] > 0 ? 4 : 3;
  sizeNames
    .slice(0, used)
    .forEach((name, index) =>
      byId("counts-legend").append(make("li", {}, make("i", { class: `size${index + 1}` }), name)),
    );
  const patternsOf = (type, kind) => model.listOf(type, kind)?.merged ?? [];
  const most = Math.max(...model.types.flatMap(({ type }) => data.kinds.map((kind) => patternsOf(type, kind).length)));
  const body = make("tbody");
  for (const { type, name, words } of model.types) {
    const row = make(
      "tr",
      {},
      make("th", { scope: "row" }, words, " ", words === name ? null : make("span", {}, name)),
    );
    for (const kind of data.kinds) {
      const patterns = patternsOf(type, kind);
      const bar = make("div", { class: "bar", "aria-hidden": "true" });
      countBySize(patterns).forEach((count, index) => {
        if (count > 0)
          bar.append(
            make("i", {
              class: `size${index + 1}`,
              style: `width:${(100 * count) / most}%`,
              title: `${count} of ${sizeNames[index]}`,
            }),
          );
      });
      row.append(make("td", {}, patterns.length ? grouped(patterns.length) : "\u2013", bar));
    }
    body.append(row);
  }
  byId("counts").append(
    make("thead", {}, make("tr", {}, ...cells("th", ["Type", ...data.kinds], { scope: "col" }))),
    body,
  );
};
