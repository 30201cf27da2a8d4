// Elements. Strings become text, never markup.

import { fixed, signed } from "./format.mjs";

const svgNames = new Set(["svg", "rect", "line", "text", "circle", "polyline", "path", "title", "g"]);

export const byId = (id) => document.getElementById(id);

export const make = (name, attributes = {}, ...children) => {
  const element = svgNames.has(name)
    ? document.createElementNS("http://www.w3.org/2000/svg", name)
    : document.createElement(name);
  for (const [key, value] of Object.entries(attributes)) {
    if (value !== undefined && value !== false) element.setAttribute(key, value);
  }
  element.append(...children.filter((child) => child !== null));
  return element;
};

export const cells = (name, texts, attributes = {}) => texts.map((text) => make(name, attributes, text));

// "plus" or "minus" as class and colour of what is above or below the average.
export const signOf = (number) => (number < 0 ? "minus" : "plus");

export const tint = (difference, strength) =>
  `--hue:var(--${signOf(difference)});--strength:${(0.85 * strength).toFixed(3)}`;

// The bar that says what the colours mean; `most` takes the full colour.
export const colourScale = (most) =>
  make(
    "div",
    { class: "scale" },
    make("i", { "aria-hidden": "true" }),
    make("span", {}, `${fixed(-most, 1)} or less`),
    make("span", {}, "average of the kind"),
    make("span", {}, `${signed(most, 1)} or more`),
  );
