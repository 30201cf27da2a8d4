// Features of the square explained where they stand: a small board with the squares on which they hold.

import { byId, make } from "./dom.mjs";
import { squareName } from "./position.mjs";

// The squares on which a piece of White has the bit; all of them, or none, explain nothing.
export const squaresWith = (places, bit) => {
  const squares = [];
  places.forEach((word, square) => {
    if ((word >>> bit) & 1) squares.push(square);
  });
  return squares;
};

const miniBoard = (marked) => {
  const board = make("div", { class: "mini", role: "img", "aria-label": `On ${marked.map(squareName).join(", ")}` });
  for (let row = 7; row >= 0; --row) {
    for (let file = 0; file < 8; ++file) {
      board.append(make("i", { class: marked.includes(8 * row + file) ? "on" : "" }));
    }
  }
  return board;
};

// A feature's name; a button if its squares explain it.
export const featureElement = (data, kind, { bit, name }) =>
  squaresWith(data.places[kind], bit).length === 0
    ? make("span", {}, name)
    : make("button", { type: "button", class: "term", "data-kind": kind, "data-bit": bit, "data-name": name }, name);

export const patternElement = (data, pattern) => {
  const element = make("span", { class: "pattern" });
  if (pattern.features.length === 0) element.append(pattern.name);
  pattern.features.forEach((feature, index) => {
    if (index) element.append(" + ");
    element.append(featureElement(data, pattern.kind, feature));
  });
  return element;
};

export const setUpTerms = (data) => {
  const box = byId("term");
  const close = () => {
    box.hidden = true;
  };
  const open = (button) => {
    const { kind, bit, name } = button.dataset;
    box.replaceChildren(
      make("strong", {}, name),
      miniBoard(squaresWith(data.places[kind], Number(bit))),
      make("span", {}, `Squares on which a ${kind} has this feature; its own side is at the bottom.`),
    );
    box.hidden = false;
    const place = button.getBoundingClientRect();
    const left = Math.min(place.left, document.documentElement.clientWidth - box.offsetWidth - 8);
    box.style.left = `${Math.max(8, left) + window.scrollX}px`;
    box.style.top = `${place.bottom + window.scrollY + 4}px`;
  };
  document.addEventListener("click", (event) => {
    const button = event.target.closest(".term");
    if (button) open(button);
    else if (!event.target.closest("#term")) close();
  });
  document.addEventListener("keydown", (event) => {
    if (event.key === "Escape") close();
  });
};
