// The moves of a game as a list to choose from.

import { make } from "./dom.mjs";
import { answeredAtOnce, moveNumber } from "./position.mjs";

// Draws the list, of which Tab reaches one move; what it gives back shows where the game stands.
export const drawMoves = (list, game, onStep) => {
  const buttons = game.steps.map((step, ply) => {
    const button = make(
      "button",
      { type: "button", tabindex: -1, "data-ply": ply, class: answeredAtOnce(game, ply) && "answered" },
      ply === 0 ? "Start" : step.move,
    );
    button.addEventListener("click", () => onStep(ply));
    return button;
  });
  list.replaceChildren(buttons[0]);
  buttons.slice(1).forEach((button, index) => {
    const { number, white } = moveNumber(game, index + 1);
    if (white) list.append(make("span", {}, `${number}.`));
    else if (index === 0) list.append(make("span", {}, `${number}.`), make("span", {}, "\u2026"));
    list.append(button);
  });
  let current = buttons[0];
  return (ply) => {
    current.setAttribute("tabindex", -1);
    current.removeAttribute("aria-current");
    current = buttons[ply];
    current.setAttribute("tabindex", 0);
    current.setAttribute("aria-current", "true");
    // The list alone is to move, not the page.
    const { offsetTop, offsetHeight } = current;
    if (offsetTop < list.scrollTop || offsetTop + offsetHeight > list.scrollTop + list.clientHeight)
      list.scrollTop = offsetTop - list.clientHeight / 2;
    if (list.contains(document.activeElement)) current.focus({ preventScroll: true });
  };
};
