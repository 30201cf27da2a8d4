#ifndef QUORVANE_BOARD_PSEUDO_LEGAL_MOVES_H_
#define QUORVANE_BOARD_PSEUDO_LEGAL_MOVES_H_

#include <span>

#include "board/board.h"

namespace quorvane {

// The moves of the side to move that may leave their own king attacked, and which of them do not and are
// legal.
class PseudoLegalMoves : public Board {
 public:
  // In the order of generation: of one piece of that side, of all its pieces of a kind as they follow each
  // other in the ring, of all pieces. They stand in moveBuffer, until moves are generated again.
  static std::span<const MoveRecord> of(const Piece& piece);
  static std::span<const MoveRecord> of(PieceKind kind);
  static std::span<const MoveRecord> all();

  // Do the ranks and files of the move agree with those that are wanted?
  static bool fits(const DecodedMove& wanted, const MoveRecord& move) {
    return agrees(wanted.fromRank, rankOf(move.from)) && agrees(wanted.fromFile, fileOf(move.from)) &&
           agrees(wanted.toRank, rankOf(move.to)) && agrees(wanted.toFile, fileOf(move.to));
  }

  // Makes a pseudo-legal move. Takes it back and says false if it leaves its own king attacked.
  static bool makeIfLegal(const MoveRecord& move);
  // The same, but leaves the position and currentMove as they were.
  static bool isLegal(const MoveRecord& move);

 private:
  static bool agrees(std::int32_t wanted, std::int32_t rankOrFile) {
    return wanted == anyRankOrFile || wanted == rankOrFile;
  }
};

}  // namespace quorvane

#endif  // QUORVANE_BOARD_PSEUDO_LEGAL_MOVES_H_
