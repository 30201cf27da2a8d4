// A board of 64 cells that stay, so that pointing and focus survive a step.

import { make, tint } from "./dom.mjs";
import { squareName } from "./position.mjs";

const glyphs = { king: "\u265a", queen: "\u265b", rook: "\u265c", bishop: "\u265d", knight: "\u265e", pawn: "\u265f" };

// `onPoint(square)` follows the mouse, with null where it leaves; `onChoose(square)` a click or a tap.
export const makeBoard = (board, { onPoint, onChoose }) => {
  const cells = new Map();
  for (let row = 7; row >= 0; --row) {
    board.append(make("span", { class: "coordinate", "aria-hidden": "true" }, String(row + 1)));
    for (let file = 0; file < 8; ++file) {
      const cell = make("div", { class: (row + file) % 2 ? "light" : "dark", "data-square": 8 * row + file });
      cells.set(8 * row + file, cell);
      board.append(cell);
    }
  }
  board.append(
    make("span"),
    ...[..."abcdefgh"].map((file) => make("span", { class: "coordinate", "aria-hidden": "true" }, file)),
  );

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
