// Games to step through.

import { makeBoard } from "./board_view.mjs";
import { byId, colourScale, make } from "./dom.mjs";
import { fixed, percent, signed } from "./format.mjs";
import { drawGame } from "./game_chart.mjs";
import { meanOf } from "./model.mjs";
import { drawMoves } from "./moves.mjs";
import { showPiece } from "./piece_panel.mjs";
import { answeredAtOnce, expectedScore, forWhite, moveText, piecesOf, resultText } from "./position.mjs";
import { fullColour, strength } from "./scale.mjs";

// Each step's pieces with their worth and its difference to the average of their kind.
const valuedSteps = (game, kinds, model) =>
  game.steps.map((step) =>
    piecesOf(step, kinds).map((piece) => {
      const worth = model.worthOf(step.type, piece.kind, piece.word);
      const mean = meanOf(model.meansOf(step.type, piece.kind));
      return { ...piece, worth, difference: mean === null ? 0 : worth - mean };
    }),
  );

// The difference that takes the full colour, by type: what is much in an opening is nothing in an ending.
const fullColours = (game, steps) => {
  const differences = new Map();
  game.steps.forEach(({ type }, ply) => {
    if (!differences.has(type)) differences.set(type, []);
    differences.get(type).push(...steps[ply].map((piece) => piece.difference));
  });
  return new Map([...differences].map(([type, all]) => [type, fullColour(all)]));
};

const scoreForWhite = (step, model) => {
  const steepness = model.steepnessOf(step.type);
  return steepness !== null && model.hasType(step.type) ? expectedScore(forWhite(step), steepness) : null;
};

// The data hold the games foreseen worst first, then as many of all the others. Both come with their places there, the
// others first, and the page opens on the one in their middle.
export const menuOf = (games) => {
  const entries = games.map((game, index) => ({ index, title: titleOf(game) }));
  const worst = Math.floor(games.length / 2);
  return {
    groups: [
      { label: "Of all the games", entries: entries.slice(worst) },
      { label: "Most misjudged", entries: entries.slice(0, worst) },
    ],
    opening: worst + Math.floor((games.length - worst - 1) / 2),
  };
};

const titleOf = (game) => {
  const players = game.white || game.black ? `${game.white || "?"} \u2013 ${game.black || "?"}` : `Game ${game.number}`;
  return `${players} ${resultText(game.result)}`;
};

// Why a piece that everybody knows to be strong is worth next to nothing in the opening.
const drawQueens = (data, model) => {
  const averages = model.types
    .map(({ type }) => ({ type, mean: meanOf(model.meansOf(type, "queen")) }))
    .filter(({ mean }) => mean !== null);
  const opening = averages.find(({ type }) => type === data.types.at(-1).type);
  if (!opening) return;
  const most = averages.reduce((best, one) => (one.mean > best.mean ? one : best));
  const elsewhere =
    most === opening ? "" : `, and ${signed(most.mean, 1)} in \u201c${model.nameOfType(most.type)}\u201d`;
  byId("queens").textContent =
    `An average queen shows ${signed(opening.mean, 1)} in the opening${elsewhere}. This is no price list: in the opening both sides have a queen, what both have cancels out, and only where she stands makes a difference.`;
};

export const setUpGames = (data, model) => {
  const section = byId("games");
  if (data.games.length === 0) return;
  section.hidden = false;
  const state = { pinned: null, pointed: null, whiteBelow: true };

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

  const positionText = (step, score) => {
    const toMove = `${step.sideToMove === "white" ? "White" : "Black"} to move; ${model.describe(step.type)}.`;
    if (!model.hasType(step.type)) return `${toMove} Nothing was learned about such positions.`;
    const expected = score === null ? "" : `White expects ${percent(score)} of the point, `;
    return `${expected}value ${signed(forWhite(step), 2)} for White. ${toMove}`;
  };
  const draw = () => {
    const { game, ply } = state;
    const step = game.steps[ply];
    const most = state.fullColours.get(step.type);
    board.show(
      state.steps[ply].map((piece) => ({
        ...piece,
        text: model.hasType(step.type) ? fixed(piece.worth, Math.abs(piece.worth) >= 99.5 ? 0 : 1) : "",
        strength: strength(piece.difference, most),
      })),
      step.squares,
    );
    byId("colours").replaceChildren(colourScale(most));
    byId("move").textContent = moveText(game, ply);
    byId("position").textContent = positionText(step, scoreForWhite(step, model));
    // Not disabled, which would take the focus away, and the keys with it.
    for (const id of ["first", "back"]) byId(id).setAttribute("aria-disabled", ply === 0);
    for (const id of ["forward", "last"]) byId(id).setAttribute("aria-disabled", ply === game.steps.length - 1);
    state.moveCursor(ply);
    state.showMove(ply);
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
    const steps = valuedSteps(game, data.kinds, model);
    Object.assign(state, { game, steps, ply: 0, pinned: null, pointed: null, fullColours: fullColours(game, steps) });
    byId("game-note").textContent = [game.event, game.date, `${game.file}, game ${game.number}`]
      .filter(Boolean)
      .join(", ");
    state.showMove = drawMoves(byId("moves"), game, stepTo);
    state.moveCursor = drawGame(byId("chart"), {
      onStep: stepTo,
      result: Math.abs(game.result) > 1 ? null : game.result,
      scores: game.steps.map((step) => scoreForWhite(step, model)),
      answered: [...game.steps.keys()].filter((ply) => answeredAtOnce(game, ply)),
    });
    draw();
  };

  const { groups, opening } = menuOf(data.games);
  for (const { label, entries } of groups) {
    const options = entries.map(({ index, title }) => make("option", { value: index }, title));
    if (options.length) byId("game").append(make("optgroup", { label }, ...options));
  }
  byId("game").value = opening;
  byId("game").addEventListener("change", (event) => choose(Number(event.target.value)));

  const nextPiece = (direction) => {
    const pieces = state.steps[state.ply];
    const index = pieces.findIndex((piece) => piece.square === chosen());
    state.pinned = pieces[(index + direction + pieces.length) % pieces.length].square;
    drawPiece();
  };
  const steps = {
    first: () => stepTo(0),
    back: () => stepTo(state.ply - 1),
    forward: () => stepTo(state.ply + 1),
    last: () => stepTo(state.game.steps.length),
  };
  for (const [id, step] of Object.entries(steps)) byId(id).addEventListener("click", step);
  byId("flip").addEventListener("click", () => {
    state.whiteBelow = !state.whiteBelow;
    board.arrange(state.whiteBelow);
  });

  const stepKeys = { Home: steps.first, ArrowLeft: steps.back, ArrowRight: steps.forward, End: steps.last };
  const pieceKeys = { ArrowUp: () => nextPiece(1), ArrowDown: () => nextPiece(-1) };
  section.addEventListener("keydown", (event) => {
    if (event.altKey || event.ctrlKey || event.metaKey) return;
    // In the list of games up and down choose one of them.
    const action = stepKeys[event.key] ?? (event.target === byId("game") ? null : pieceKeys[event.key]);
    if (!action) return;
    event.preventDefault();
    action();
  });
  drawQueens(data, model);
  choose(opening);
};
