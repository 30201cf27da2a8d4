// A board of 64 cells that stay, so that pointing and focus survive a step.

import { make, tint } from "./dom.mjs";
import { squareName } from "./position.mjs";

const glyphs = { king: "\u265a", queen: "\u265b", rook: "\u265c", bishop: "\u265d", knight: "\u265e", pawn: "\u265f" };

// `onPoint(square)` follows the mouse, with null where it leaves; `onChoose(square)` a click or a tap.
export const makeBoard = (board, { onPoint, onChoose }) => {
  const cells = new Map();
  for (let square = 0; square < 64; ++square) {
    const shade = ((square >> 3) + square) % 2 ? "light" : "dark";
    cells.set(square, make("div", { class: shade, "data-square": square }));
  }
  const coordinate = (text) => make("span", { class: "coordinate", "aria-hidden": "true" }, text);
  const arrange = (whiteBelow) => {
    const upwards = [0, 1, 2, 3, 4, 5, 6, 7],
      downwards = [...upwards].reverse();
    const ranks = whiteBelow ? downwards : upwards,
      files = whiteBelow ? upwards : downwards;
    board.replaceChildren(
      ...ranks.flatMap((rank) => [coordinate(String(rank + 1)), ...files.map((file) => cells.get(8 * rank + file))]),
      make("span"),
      ...files.map((file) => coordinate("abcdefgh"[file])),
    );
  };
  arrange(true);

  const squareOf = (event) => {
    const cell = event.target.closest("[data-square]");
    return cell && cell.firstChild ? Number(cell.dataset.square) : null;
  };
  board.addEventListener("pointerover", (event) => {
    if (event.pointerType === "mouse") onPoint(squareOf(event));
  });
  board.addEventListener("pointerleave", () => onPoint(null));
  board.addEventListener("click", (event) => {
    if (squareOf(event) !== null) onChoose(squareOf(event));
  });

  return {
    arrange,
    // `pieces` with `text`, what stands below the glyph, `difference` and `strength`, its colour.
    show(pieces, moved) {
      for (const cell of cells.values()) {
        cell.replaceChildren();
        cell.removeAttribute("style");
        cell.classList.remove("moved");
      }
      for (const square of moved ?? []) cells.get(square).classList.add("moved");
      for (const piece of pieces) {
        const cell = cells.get(piece.square);
        cell.setAttribute("style", tint(piece.difference, piece.strength));
        cell.append(
          make(
            "span",
            { class: piece.white ? "piece white" : "piece black", "aria-hidden": "true" },
            glyphs[piece.kind] + "\ufe0e",
          ),
          make(
            "small",
            { title: `${piece.white ? "white" : "black"} ${piece.kind} ${squareName(piece.square)}` },
            piece.text,
          ),
        );
      }
    },
    mark(square) {
      for (const [place, cell] of cells) cell.classList.toggle("chosen", place === square);
    },
  };
};
