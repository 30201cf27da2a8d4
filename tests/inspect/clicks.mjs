// What the tests of the page do in it, behind its own script, and tell in a text at its end.

const said = [];
const one = (selector) => document.querySelector(selector);
const all = (selector) => [...document.querySelectorAll(selector)];
// Numbers of graphics in whole units, whatever the browser adds to them.
const rounded = (text) => text.replace(/-?\d+\.\d+/g, (number) => String(Math.round(Number(number)) || 0));
const attributes = (shape) => [...shape.attributes].map(({ name, value }) => `${name}=${value}`);
const graphic = (svg) =>
  [...svg.children].map((shape) => rounded([shape.tagName, ...attributes(shape), shape.textContent].join(" ").trim()));
// What people see of it though it is no text: titles, and the lengths of bars.
const titles = (element) =>
  [...element.querySelectorAll("[title], i[style]")]
    .map((one) => ` [${[one.title, rounded(one.getAttribute("style") ?? "")].filter(Boolean).join("; ")}]`)
    .join("");
const withTitles = (cell) => cell.textContent + (cell.title && ` [${cell.title}]`) + titles(cell);
const row = (tr) => [...tr.cells].map(withTitles).join(" | ");
const square = (cell) =>
  rounded([cell.dataset.square, cell.className, withTitles(cell), cell.getAttribute("style")].join(" "));

// The texts of what the selectors find: rows of tables, shapes of graphics, pieces of boards, texts of all else.
const say = (...selectors) => {
  for (const element of selectors.flatMap(all)) {
    if (element.hidden) said.push(`${element.id} is hidden`);
    else if (element.tagName === "TABLE") said.push(...[...element.rows].map(row));
    else if (element.tagName === "svg") said.push(...graphic(element));
    else if (element.id === "board") said.push(...all("#board [data-square]:not(:empty)").map(square));
    else said.push(element.textContent);
  }
};
const click = (selector) => one(selector).dispatchEvent(new MouseEvent("click", { bubbles: true }));
const point = (selector, type = "pointerover", place = {}) =>
  one(selector).dispatchEvent(new PointerEvent(type, { bubbles: true, pointerType: "mouse", ...place }));
// Where the focus is, as somebody at the keyboard does, or elsewhere.
const press = (name, element = document.activeElement) =>
  element.dispatchEvent(new KeyboardEvent("keydown", { key: name, bubbles: true }));
const key = (selector, name) => press(name, one(selector));
const goTo = (ply) => click(`#moves [data-ply="${ply}"]`);
const enter = (selector, value, type = "input") => {
  one(selector).value = value;
  one(selector).dispatchEvent(new Event(type, { bubbles: true }));
};
const finish = () => {
  if (document.title !== "What was learned") said.push(`An error on the page: ${document.title}`);
  const told = Object.assign(document.createElement("pre"), { id: "said", textContent: said.join("\n") });
  document.body.replaceChildren(told);
};
