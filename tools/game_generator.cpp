#include "tools/game_generator.h"

#include <algorithm>
#include <cstdlib>

#include "board/board_fen.h"
#include "board/hash_state.h"
#include "board/piece.h"
#include "board/piece_classes.h"
#include "board/ring.h"
#include "board/strict_fen.h"

namespace quorvane {

namespace {

constexpr std::int32_t levelCount = 9;
constexpr std::int32_t blunderRarity = 10;  // moves between two blunders at level 1
constexpr std::int32_t blunderNoise = 3000;
constexpr std::int32_t usualNoise = 300;

constexpr std::string_view drawn = "1/2-1/2";
constexpr std::int32_t fiftyMoves = 2 * 50;       // plies
constexpr std::int32_t shortestLimit = 40;        // plies
constexpr std::int32_t earliestResignation = 30;  // plies
constexpr std::int32_t pliesBeforeResigning = 2;  // without a capture or a move of a pawn
constexpr std::int32_t winningMargin = 3000;      // material that wins when a game is adjudicated

std::string_view winFor(Side side) {
  return side == white ? "1-0" : "0-1";
}

std::string tag(const std::string& name, const std::string& value) {
  return "[" + name + " \"" + value + "\"]\n";
}

// Breaks the text at blanks into lines of less than 80 characters.
void wrap(std::string& text) {
  constexpr std::size_t longestLine = 79;
  for (std::size_t start = 0; text.size() - start > longestLine;) {
    const std::size_t blank = text.rfind(' ', start + longestLine);
    text[blank] = '\n';
    start = blank + 1;
  }
}

struct Balance : public Board {
  Balance() {
    for (Piece* king : kings) {
      for (const Piece& piece : Ring(king)) {
        ++pieces;
        total += piece.material;
        whiteLead += piece.side == white ? piece.material : -piece.material;
      }
    }
  }

  // Nobody can mate with a single knight or bishop.
  bool isBare() const { return pieces == 2 || (pieces == 3 && total == bishopClass.material); }

  std::int32_t pieces = 0;
  std::int32_t total = 0;
  std::int32_t whiteLead = 0;
};

}  // namespace

GameGenerator::GameGenerator(std::uint64_t seed) : random(seed) {}

GameGenerator::~GameGenerator() {
  releaseBoard();
}

std::string GameGenerator::nextGame() {
  setupPosition(StrictFen("rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w").placement(), white);
  return play("");
}

std::string GameGenerator::nextEnding() {
  bool usable = false;
  while (!usable) {
    setUpRandomEnding();
    usable = !kings[white]->isAttacked() && !kings[black]->isAttacked() && TriedMoves::hasLegalMove() &&
             std::abs(Balance().whiteLead) < winningMargin;
  }
  return play(tag("SetUp", "1") + tag("FEN", BoardFen::text()));
}

std::string GameGenerator::play(std::string_view startTags) {
  for (std::int32_t& level : levels) level = 1 + random.below(levelCount);
  plyLimit = shortestLimit + random.below(longestGame - shortestLimit + 1);
  resignMargin = 4000 * (1 + random.below(4));
  reversiblePlies = 0;

  std::string text = currentMove.sideToMove == black ? "1... " : "";
  std::string result;
  for (std::int32_t number = 1; true;) {
    const Side side = currentMove.sideToMove;
    const bool blunders = random.below(blunderRarity * levels[side]) == 0;
    moves.tryAll(random, blunders ? blunderNoise : usualNoise);
    result = verdict();
    if (!result.empty()) break;
    if (side == white) text += std::to_string(number) + ". ";
    if (side == black) ++number;
    text += moves.san(*moves.best()) + " ";
    make(moves.best()->move);
  }
  text += result;
  wrap(text);

  std::string pgn = tag("Event", "Generated game") + tag("Site", "?") + tag("Date", "????.??.??");
  pgn += tag("Round", std::to_string(++gameCount));
  pgn += tag("White", "Level " + std::to_string(levels[white]));
  pgn += tag("Black", "Level " + std::to_string(levels[black]));
  pgn += tag("Result", result);
  return pgn.append(startTags).append("\n").append(text).append("\n\n");
}

std::string_view GameGenerator::verdict() const {
  const Side side = currentMove.sideToMove;
  const bool stuck = moves.best() == nullptr;  // or what is legal cannot be written
  if (stuck && !TriedMoves::hasLegalMove()) return kings[side]->isAttacked() ? winFor(opponent(side)) : drawn;
  const Balance balance;
  if (balance.isBare() || reversiblePlies >= fiftyMoves || isThirdTime()) return drawn;

  const std::int32_t lead = std::abs(balance.whiteLead);
  const bool resigns = lead >= resignMargin && history->depth >= earliestResignation &&
                       reversiblePlies >= pliesBeforeResigning;
  if (!resigns && !stuck && history->depth < plyLimit) return "";
  return lead < winningMargin ? drawn : winFor(balance.whiteLead > 0 ? white : black);
}

// By the placement alone: the players agree to a draw even where the rights to castle were others.
bool GameGenerator::isThirdTime() const {
  const std::int32_t now = history->depth;
  std::int32_t times = 1;
  for (std::int32_t ply = now - 2; ply >= now - reversiblePlies; ply -= 2) {
    const bool same = hashState->lockHistory[ply] == hashState->lockHistory[now] &&
                      hashState->indexHistory[ply] == hashState->indexHistory[now];
    if (same) ++times;
  }
  return times >= 3;
}

void GameGenerator::make(const MoveRecord& move) {
  const bool reversible = board[move.from]->kind != pawnKind && board[move.to]->kind == emptyKind;
  reversiblePlies = reversible ? reversiblePlies + 1 : 0;
  currentMove = move;
  makeMove();
}

// As many pieces on either side, but not always legal. There are pawns, so it is not bare.
void GameGenerator::setUpRandomEnding() {
  std::string squares(squareCount, '.');  // in the order of a FEN
  const auto place = [&](char letter, std::int32_t firstRow, std::int32_t rowCount) {
    constexpr std::int32_t kingFile = 4;
    char* square = nullptr;
    bool allowed = false;
    while (!allowed) {
      const std::int32_t row = firstRow + random.below(rowCount);
      const std::int32_t file = random.below(8);
      square = &squares[static_cast<std::size_t>(squareAt(row, file))];
      // An unmoved king on the e-file could castle with an unmoved rook, which the text denies.
      allowed = *square == '.' && (file != kingFile || (letter != 'K' && letter != 'k'));
    }
    *square = letter;
  };
  place('K', 0, 8);
  place('k', 0, 8);
  for (std::int32_t officers = random.below(4); officers > 0; --officers) {
    place("QRRRBBNN"[random.below(8)], 0, 8);
    place("qrrrbbnn"[random.below(8)], 0, 8);
  }
  for (std::int32_t pawns = 1 + random.below(6); pawns > 0; --pawns) {
    place('P', 3, 4);
    place('p', 1, 4);
  }
  const Side side = random.below(2) == 0 ? white : black;
  for (std::size_t slash = 8; slash < squares.size(); slash += 9) squares.insert(slash, 1, '/');
  std::ranges::replace(squares, '.', '1');
  setupPosition(StrictFen(squares).placement(), side);
}

}  // namespace quorvane
