#include "tools/tried_moves.h"

#include <algorithm>

#include "board/piece.h"
#include "board/piece_classes.h"
#include "board/piece_letter.h"
#include "board/pseudo_legal_moves.h"
#include "board/ring.h"
#include "board/square_name.h"

namespace quorvane {

namespace {

constexpr std::int32_t endingMaterial = 26000;  // of both sides
constexpr std::int32_t kingAsTaker = 100000;    // dearer than all: it takes nothing that is guarded
constexpr std::int32_t untaken = 200000;
constexpr std::int32_t castlingBonus = 500;
constexpr std::int32_t checkBonus = 150;  // of mates too: if none were overlooked, few games would last

// How well the piece stands, danger apart.
std::int32_t standing(const Piece& piece, bool ending) {
  const std::int32_t rank = relativeRank(piece.side, rankOf(piece.square));
  const std::int32_t file = std::min(fileOf(piece.square), 7 - fileOf(piece.square));
  const std::int32_t central = std::min(rank, 7 - rank) + file;
  switch (piece.kind) {
    case pawnKind:
      return ending ? 30 * rank * rank : 20 * file * std::min(rank, 4);
    case kingKind:
      return ending ? 60 * central : -60 * central - 100 * rank;
    case knightKind:
    case bishopKind:
      return 50 * central;
    default:
      return 10 * central;
  }
}

}  // namespace

void TriedMoves::tryAll(SeededRandom& random, std::int32_t noise) {
  std::int32_t material = 0;
  for (Piece* king : kings) {
    for (const Piece& piece : Ring(king)) material += piece.material;
  }
  moves.clear();
  for (const MoveRecord& move : PseudoLegalMoves::all()) {
    if (move.kind != promoteToKnight) moves.push_back({move, random.below(noise)});
  }
  for (TriedMove& tried : moves) tryOut(tried, material < endingMaterial);
}

// The material of the cheapest piece that could take this one, `untaken` if there is none.
std::int32_t TriedMoves::cheapestTaker(const Piece& piece) {
  std::int32_t cheapest = untaken;
  for (Piece& taker : Ring(kings[opponent(piece.side)])) {
    currentMove.to = piece.square;
    taker.testMove();
    if (!currentMove.found) continue;
    cheapest = std::min(cheapest, taker.kind == kingKind ? kingAsTaker : taker.material);
  }
  return cheapest;
}

// What the piece stands to lose where it is.
std::int32_t TriedMoves::riskOf(Piece& piece) {
  const std::int32_t taker = cheapestTaker(piece);
  if (taker == untaken) return 0;
  piece.side = opponent(piece.side);  // those who could take it now are its guards
  const bool guarded = cheapestTaker(piece) != untaken;
  piece.side = opponent(piece.side);
  return guarded ? std::max(0, piece.material - taker) : piece.material;
}

void TriedMoves::tryOut(TriedMove& tried, bool ending) {
  Piece& mover = *board[tried.move.from];
  const std::int32_t before = mover.material + standing(mover, ending) - riskOf(mover);
  tried.legal = PseudoLegalMoves::makeIfLegal(tried.move);
  if (!tried.legal) return;
  Piece& moved = *board[tried.move.to];  // a queen after a promotion
  tried.score += moved.material + standing(moved, ending) - riskOf(moved) - before;
  tried.score += history->record(history->depth).capturedPiece->material;
  if (tried.move.kind == enPassantCapture) tried.score += whitePawnClass.material;
  if (isCastling(tried.move.kind)) tried.score += castlingBonus;
  tried.check = kings[currentMove.sideToMove]->isAttacked();
  tried.mate = tried.check && !hasLegalMove();
  if (tried.check) tried.score += checkBonus;
  unmakeMove();
}

bool TriedMoves::hasLegalMove() {
  return std::ranges::any_of(PseudoLegalMoves::all(), PseudoLegalMoves::isLegal);
}

// Do pieces of one kind go to one square?
bool TriedMoves::areTwins(const TriedMove& a, const TriedMove& b) {
  return a.move.to == b.move.to && a.move.from != b.move.from &&
         board[a.move.from]->kind == board[b.move.from]->kind;
}

bool TriedMoves::isPlayable(const TriedMove& tried) const {
  if (!tried.legal) return false;
  // A reader takes castling only without a check mark behind it.
  if (isCastling(tried.move.kind) && tried.check) return false;
  // SAN does not name the origin if the other piece is pinned, but playGameMove may pick that piece.
  return std::ranges::none_of(moves,
                              [&](const TriedMove& other) { return !other.legal && areTwins(tried, other); });
}

const TriedMove* TriedMoves::best() const {
  const TriedMove* found = nullptr;
  for (const TriedMove& tried : moves) {
    if ((found == nullptr || tried.score > found->score) && isPlayable(tried)) found = &tried;
  }
  return found;
}

// What tells the moving piece from others of its kind: its file, else its rank, else both.
std::string TriedMoves::origin(const TriedMove& chosen) const {
  const Square from = chosen.move.from;
  const auto twinShares = [&](auto trait) {
    return std::ranges::any_of(moves, [&](const TriedMove& other) {
      return areTwins(chosen, other) && trait(other.move.from) == trait(from);
    });
  };
  if (!twinShares([](Square) { return 0; })) return "";
  if (!twinShares(fileOf)) return squareName(from).substr(0, 1);
  return twinShares(rankOf) ? squareName(from) : squareName(from).substr(1);
}

std::string TriedMoves::san(const TriedMove& chosen) const {
  const MoveRecord& move = chosen.move;
  if (isCastling(move.kind)) return move.kind == castleKingSide ? "O-O" : "O-O-O";

  const PieceKind kind = board[move.from]->kind;
  const bool captures = board[move.to]->kind != emptyKind || move.kind == enPassantCapture;
  std::string text;
  if (kind != pawnKind) {
    text = pieceLetter(white, kind) + origin(chosen);
  } else if (captures) {
    text = squareName(move.from)[0];
  }
  if (captures) text += 'x';
  text += squareName(move.to);
  if (move.kind == promoteToQueen) text += "=Q";
  if (chosen.check) text += chosen.mate ? '#' : '+';
  return text;
}

}  // namespace quorvane
