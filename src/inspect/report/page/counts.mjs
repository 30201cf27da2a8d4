// How many patterns of which size there are.

import { byId, cells, make } from "./dom.mjs";
import { grouped } from "./format.mjs";

const sizeNames = ["1 feature", "2 features", "3 features", "4 and more"];

export const drawCounts = (data, model) => {
  const used = data.lists.some((list) => list.bySize.length > 3) ? 4 : 3;
  const sizesOf = (list) =>
    list.bySize.reduce(
      (sizes, count, index) => {
        sizes[Math.min(index, 3)] += count;
        return sizes;
      },
      [0, 0, 0, 0],
    );
  sizeNames
    .slice(0, used)
    .forEach((name, index) =>
      byId("counts-legend").append(make("li", {}, make("i", { class: `size${index + 1}` }), name)),
    );
  const most = Math.max(1, ...data.lists.map((list) => list.patterns));
  const body = make("tbody");
  for (const { type, name } of model.types) {
    const row = make("tr", {}, make("th", { scope: "row" }, `${type} `, make("span", {}, name)));
    for (const kind of data.kinds) {
      const list = model.listOf(type, kind);
      const bar = make("div", { class: "bar", "aria-hidden": "true" });
      if (list)
        sizesOf(list).forEach((count, index) =>
          bar.append(
            make("i", {
              class: `size${index + 1}`,
              style: `width:${(100 * count) / most}%`,
              title: `${count} of ${sizeNames[index]}`,
            }),
          ),
        );
      row.append(make("td", {}, list ? grouped(list.patterns) : "\u2013", bar));
    }
    body.append(row);
  }
  byId("counts").append(
    make("thead", {}, make("tr", {}, ...cells("th", ["Type", ...data.kinds], { scope: "col" }))),
    body,
  );
};
