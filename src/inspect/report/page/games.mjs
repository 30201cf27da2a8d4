// Games to step through.

import { makeBoard } from "./board_view.mjs";
import { byId, colourScale, make } from "./dom.mjs";
import { fixed, percent, signed } from "./format.mjs";
import { drawGame } from "./game_chart.mjs";
import { meanOf } from "./model.mjs";
import { showPiece } from "./piece_panel.mjs";
import { expectedScore, forWhite, moveText, piecesOf, resultText } from "./position.mjs";
import { fullColour, strength } from "./scale.mjs";

// Each step's pieces with their worth and its difference to the average of their kind.
export const valuedSteps = (game, kinds, model) =>
  game.steps.map((step) =>
    piecesOf(step, kinds).map((piece) => {
      const worth = model.worthOf(step.type, piece.kind, piece.word);
      const mean = meanOf(model.meansOf(step.type, piece.kind));
      return { ...piece, worth, difference: mean === null ? 0 : worth - mean };
    }),
  );

export const scoreForWhite = (step, model) => {
  const steepness = model.steepnessOf(step.type);
  return steepness !== null && model.hasType(step.type) ? expectedScore(forWhite(step), steepness) : null;
};

const titleOf = (game) => {
  const players = game.white || game.black ? `${game.white || "?"} \u2013 ${game.black || "?"}` : `Game ${game.number}`;
  return `${players} ${resultText(game.result)}`;
};

export const setUpGames = (data, model) => {
  const section = byId("games");
  if (data.games.length === 0) return;
  section.hidden = false;
  const state = { game: data.games[0], steps: [], ply: 0, pinned: null, pointed: null, moveCursor: () => {} };

  const pieceAt = (square) => state.steps[state.ply].find((piece) => piece.square === square);
  const chosen = () =>
    state.pointed ?? state.pinned ?? state.game.steps[state.ply].squares?.[1] ?? state.steps[state.ply][0]?.square;
  const drawPiece = () => {
    board.mark(chosen());
    showPiece(byId("piece"), data, model, state.game.steps[state.ply], pieceAt(chosen()));
  };
  const board = makeBoard(byId("board"), {
    onPoint: (square) => {
      if (square !== state.pointed) {
        state.pointed = square;
        drawPiece();
      }
    },
    onChoose: (square) => {
      state.pinned = square;
      drawPiece();
    },
  });

  const draw = () => {
    const { game, ply } = state;
    const step = game.steps[ply],
      pieces = state.steps[ply];
    board.show(
      pieces.map((piece) => ({
        ...piece,
        text: model.hasType(step.type) ? fixed(piece.worth, Math.abs(piece.worth) >= 99.5 ? 0 : 1) : "",
        strength: strength(piece.difference, state.most),
      })),
      step.squares,
    );
    const score = scoreForWhite(step, model);
    byId("move").textContent = moveText(game, ply);
    byId("position").textContent = !model.hasType(step.type)
      ? `Type ${step.type}: nothing was learned about it.`
      : `Value ${signed(forWhite(step), 2)} for White${score === null ? "" : `, expected score ${percent(score)}`}. ${step.sideToMove === "white" ? "White" : "Black"} to move; type ${step.type}, ${model.nameOfType(step.type)}.`;
    byId("ply").value = ply;
    byId("ply").setAttribute("aria-valuetext", moveText(game, ply));
    byId("first").disabled = byId("back").disabled = ply === 0;
    byId("last").disabled = byId("forward").disabled = ply === game.steps.length - 1;
    state.moveCursor(ply);
    drawPiece();
  };
  const stepTo = (wanted) => {
    const ply = Math.min(state.game.steps.length - 1, Math.max(0, wanted));
    // A piece that was chosen stays so when it moves on.
    if (ply === state.ply + 1 && state.game.steps[ply].squares[0] === state.pinned)
      state.pinned = state.game.steps[ply].squares[1];
    else if (ply === state.ply - 1 && state.game.steps[state.ply].squares[1] === state.pinned)
      state.pinned = state.game.steps[state.ply].squares[0];
    state.ply = ply;
    if (!pieceAt(state.pinned)) state.pinned = null;
    state.pointed = null;
    draw();
  };
  const choose = (index) => {
    const game = data.games[index];
    Object.assign(state, { game, ply: 0, pinned: null, pointed: null, steps: valuedSteps(game, data.kinds, model) });
    state.most = fullColour(state.steps.flat().map((piece) => piece.difference));
    byId("colours").replaceChildren(colourScale(state.most));
    byId("game-note").textContent = [game.event, game.date, `${game.file}, game ${game.number}`]
      .filter(Boolean)
      .join(", ");
    byId("ply").max = game.steps.length - 1;
    const scores = game.steps.map((step) => scoreForWhite(step, model));
    state.moveCursor = drawGame(byId("charts"), {
      onStep: stepTo,
      result: Math.abs(game.result) > 1 ? null : game.result,
      values: game.steps.map((step) => (model.hasType(step.type) ? forWhite(step) : null)),
      scores: scores.some((score) => score !== null) ? scores : null,
    });
    draw();
  };

  for (const [index, game] of data.games.entries())
    byId("game").append(make("option", { value: index }, titleOf(game)));
  byId("game").addEventListener("change", (event) => choose(Number(event.target.value)));
  byId("ply").addEventListener("input", (event) => stepTo(Number(event.target.value)));
  const buttons = {
    first: () => 0,
    back: () => state.ply - 1,
    forward: () => state.ply + 1,
    last: () => state.game.steps.length,
  };
  for (const [id, target] of Object.entries(buttons)) byId(id).addEventListener("click", () => stepTo(target()));

  const nextPiece = (direction) => {
    const pieces = state.steps[state.ply];
    const index = pieces.findIndex((piece) => piece.square === chosen());
    state.pinned = pieces[(index + direction + pieces.length) % pieces.length].square;
    drawPiece();
  };
  const keys = {
    Home: () => stepTo(0),
    ArrowLeft: () => stepTo(state.ply - 1),
    ArrowRight: () => stepTo(state.ply + 1),
    End: () => stepTo(state.game.steps.length),
    ArrowUp: () => nextPiece(1),
    ArrowDown: () => nextPiece(-1),
  };
  byId("board").addEventListener("keydown", (event) => {
    if (!keys[event.key] || event.altKey || event.ctrlKey || event.metaKey) return;
    event.preventDefault();
    keys[event.key]();
  });
  choose(0);
};
