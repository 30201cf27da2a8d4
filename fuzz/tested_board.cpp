#include "fuzz/tested_board.h"

#include <algorithm>
#include <array>
#include <bit>

#include "board/hash_state.h"
#include "fuzz/fuzz_target.h"

namespace quorvane {

void TestedBoard::setUp(const PgnGame& game) {
  setupPosition(game.placement, game.sideToMove);
  images.clear();
  checkPieces();
}

void TestedBoard::checkPieces() const {
  std::ptrdiff_t inRings = 0;
  for (Piece* king : kings) {
    forEachInRing(king, [&](const Piece& piece) {
      ++inRings;
      require(board[piece.square] == &piece && pieceById[piece.id] == &piece && piece.next->prev == &piece &&
                  piece.side == king->side && (&piece == king || piece.id < piece.next->id),
              "rings are linked both ways by rising ids, and stand on the board");
    });
  }
  require(squareCount - std::count(board, board + squareCount, board[noSquare]) == inRings,
          "nothing else stands there");
}

TestedBoard::Image TestedBoard::image() const {
  Image numbers;
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
  add(currentMove.sideToMove, enPassantSquare, depth());
  add(*hashState->indexTop, *hashState->lockTop, *hashState->slotTop);
  for (std::int32_t bucket = 0; bucket < HashState::buckets; ++bucket) {
    for (std::int32_t way = 0; way < HashState::ways; ++way) {
      const std::uint8_t count = hashState->repetitionCounts[bucket][way];
      if (count != 0)
        add(bucket, count, hashState->repetitionKeys[bucket][way]);  // a free way may hold any key
    }
  }
  return numbers;
}

std::vector<MoveRecord> TestedBoard::moves() {
  std::vector<MoveRecord> all;
  forEachInRing(kings[currentMove.sideToMove], [&](Piece& piece) {
    constexpr std::int32_t noMove = -1;
    MoveList list{moveBuffer, 0};
    activeMoveList = &list;
    require(piece.generateMoves() == list.cursor - moveBuffer, "a generator counts its moves");
    std::array<std::int32_t, squareCount> firstKinds;
    firstKinds.fill(noMove);
    for (const MoveRecord* move = list.cursor; move-- != moveBuffer;)
      firstKinds[static_cast<std::size_t>(move->to)] = move->kind;
    for (currentMove.to = 0; currentMove.to < squareCount; ++currentMove.to) {
      piece.testMove();
      const std::int32_t kind = currentMove.found ? currentMove.kind : noMove;
      require(firstKinds[static_cast<std::size_t>(currentMove.to)] == kind,
              "testMove answers what the generator finds first");
    }
    all.insert(all.end(), moveBuffer, list.cursor);
  });
  const Piece& enemyKing = *kings[1 - currentMove.sideToMove];
  const auto captures =
      std::erase_if(all, [&](const MoveRecord& move) { return move.to == enemyKing.square; });
  require(kings[1 - currentMove.sideToMove]->isAttacked() == (captures != 0),
          "a king is attacked if it could be taken");
  return all;
}

void TestedBoard::make(const MoveRecord& move) {
  images.push_back(image());
  currentMove = move;
  makeMove();
  checkPieces();
}

void TestedBoard::unmake() {
  unmakeMove();
  require(image() == images.back(), "taking back restores everything");
  images.pop_back();
}

void TestedBoard::play(const std::vector<MoveRecord>& moves, const MoveRecord& wanted, std::uint32_t named,
                       std::int32_t promotion) {
  const auto ranksAndFiles = [](const MoveRecord& move) {
    return std::array{rankOf(move.from), fileOf(move.from), rankOf(move.to), fileOf(move.to)};
  };
  const PieceKind kind = board[wanted.from]->kind;
  const auto wantedValues = ranksAndFiles(wanted);
  std::array<std::int32_t, 4> values;
  for (std::size_t i = 0; i < 4; ++i) values[i] = (named >> i & 1) != 0 ? wantedValues[i] : anyRankOrFile;
  const MoveRecord& first = *std::find_if(moves.begin(), moves.end(), [&](const MoveRecord& move) {
    const auto fits = [](std::int32_t value, std::int32_t own) {
      return value == anyRankOrFile || value == own;
    };
    const auto own = ranksAndFiles(move);
    return board[move.from]->kind == kind && std::equal(values.begin(), values.end(), own.begin(), fits);
  });
  const bool promotes = promotion >= knightKind && promotion <= queenKind;
  Piece& ownKing = *kings[currentMove.sideToMove];
  const bool refused = depth() + 2 >= depthLimit || kings[1 - currentMove.sideToMove]->isAttacked() ||
                       (promotes && kind == kingKind);
  images.push_back(image());
  if (playGameMove(values[0], values[1], values[2], values[3], kind, promotion)) {
    require(!refused && !ownKing.isAttacked(), "a made move is legal");
    require(currentMove.from == first.from && currentMove.to == first.to, "the first move that fits is made");
    require(!promotes || board[first.to]->kind == promotion, "a promotion code counts");
    checkPieces();
    return;
  }
  require(image() == images.back(), "a refused move changes nothing");
  images.pop_back();
  if (refused) return;
  make(first);
  require(ownKing.isAttacked(), "a move that fits is refused for its own king alone");
  unmake();
}

void TestedBoard::describe() {
  network.classifyPosition(Network::classifyBoard, false);
  Network::computeConfigurations();
}

}  // namespace quorvane
