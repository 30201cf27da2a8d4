#include "support/board_laws.h"

#include <algorithm>
#include <array>
#include <bit>

#include "board/hash_state.h"
#include "board/piece.h"
#include "board/pseudo_legal_moves.h"
#include "board/ring.h"

namespace quorvane {

const char* BoardLaws::brokenByPieces() {
  std::ptrdiff_t standing = 0;
  auto squaresInRings = PieceSets{};
  for (Piece* const king : kings) {
    if (king->kind != kingKind) return "a ring is anchored at its king";
    for (const Piece& piece : Ring(king)) {
      ++standing;
      squaresInRings[piece.side][piece.kind] |= setOf(piece.square);
      if (board[piece.square] != &piece || pieceById[piece.id] != &piece)
        return "pieces of a ring stand on the board";
      if (piece.side != king->side || piece.next->prev != &piece) return "a side is linked both ways";
      if (&piece != king && piece.id >= piece.next->id) return "ids rise along a ring";
    }
  }
  for (const Side side : {black, white}) {
    if (!std::ranges::equal(squaresOf[side], squaresInRings[side]))
      return "the squares of a kind are its pieces'";
  }
  return std::count(board, board + squareCount, EmptySquare) == squareCount - standing
             ? nullptr
             : "nothing stands on the board but rings";
}

const char* BoardLaws::brokenByMovesOf(Piece& piece) {
  MoveList list{moveBuffer, 0};
  activeMoveList = &list;
  const std::int32_t count = piece.generateMoves();
  const std::vector<MoveRecord> moves(moveBuffer, list.cursor);
  if (count != std::ssize(moves) || count != list.count) return "a generator counts its moves";

  constexpr std::int32_t noMove = -1;
  std::array<std::int32_t, squareCount> firstKinds;
  firstKinds.fill(noMove);
  std::vector<MoveRecord> captures;
  for (const MoveRecord& move : moves) {
    if (move.from != piece.square) return "a generated move starts where its piece stands";
    std::int32_t& first = firstKinds[static_cast<std::size_t>(move.to)];
    if (first == noMove) first = move.kind;
    if (move.kind == promoteToQueen || (move.kind == ordinaryMove && board[move.to] != EmptySquare))
      captures.push_back(move);
  }
  for (currentMove.to = 0; currentMove.to < squareCount; ++currentMove.to) {
    piece.testMove();
    const std::int32_t kind = currentMove.found ? currentMove.kind : noMove;
    if (firstKinds[static_cast<std::size_t>(currentMove.to)] != kind)
      return "testMove answers what the generator finds first";
  }

  list = {moveBuffer, 0};
  piece.generateCaptures();
  const auto same = [](const MoveRecord& a, const MoveRecord& b) {
    return a.from == b.from && a.to == b.to && a.kind == b.kind;
  };
  if (!std::equal(captures.begin(), captures.end(), moveBuffer, list.cursor, same))
    return "captures are those among the moves, in their order, with the step to the last rank";
  return nullptr;
}

const char* BoardLaws::brokenByMoves() {
  const Side side = currentMove.sideToMove;
  Piece& enemyKing = *kings[opponent(side)];
  bool takesKing = false;
  for (Piece& piece : Ring(kings[side])) {
    if (const char* const broken = brokenByMovesOf(piece); broken != nullptr) return broken;
    for (const MoveRecord& move : PseudoLegalMoves::of(piece)) takesKing |= move.to == enemyKing.square;
  }
  return enemyKing.isAttacked() == takesKing ? nullptr : "a king is attacked if it could be taken";
}

std::vector<std::uint64_t> BoardLaws::state() {
  std::vector<std::uint64_t> numbers;
  numbers.reserve(1024);
  const auto add = [&](auto... values) { (numbers.push_back(static_cast<std::uint64_t>(values)), ...); };
  const auto addPiece = [&](const Piece* piece) { add(std::bit_cast<std::uintptr_t>(piece)); };
  std::for_each(std::begin(board), std::end(board), addPiece);
  std::for_each(std::begin(kings), std::end(kings), addPiece);
  for (const Piece* piece : pieceById) {
    addPiece(piece);
    if (piece == nullptr) continue;
    addPiece(piece->prev);
    addPiece(piece->next);
    add(piece->kind, piece->side, piece->id, piece->moveCount, piece->keyIndex, piece->material);
    if (piece->kind != emptyKind) add(piece->square);  // of the empty square's piece it means nothing
    if (piece->kind == kingKind) add(static_cast<const King*>(piece)->castled);
  }
  for (const auto& squares : squaresOf) std::for_each(squares.begin(), squares.end(), add);
  add(currentMove.sideToMove, enPassantSquare, history->depth);
  const HashState& keys = *hashState;
  add(*keys.indexTop, *keys.lockTop, *keys.slotTop);
  add(keys.indexTop - keys.indexHistory, keys.lockTop - keys.lockHistory, keys.slotTop - keys.slotHistory);
  for (std::int32_t bucket = 0; bucket < HashState::buckets; ++bucket) {
    for (std::int32_t way = 0; way < HashState::ways; ++way) {
      const std::uint8_t count = keys.repetitionCounts[bucket][way];
      // A free way may hold any key.
      if (count != 0) add(bucket, count, keys.repetitionKeys[bucket][way]);
    }
  }
  return numbers;
}

}  // namespace quorvane
