#ifndef QUORVANE_TESTS_SUPPORT_PLAIN_WORDS_H_
#define QUORVANE_TESTS_SUPPORT_PLAIN_WORDS_H_

#include <functional>

#include "board/table.h"
#include "board/types.h"
#include "quorvane/evaluator.h"

namespace quorvane {

// The words of a position by loops over files and ranks, without a set of squares or a table: the yardstick
// of what is fast.
class PlainWords {
 public:
  explicit PlainWords(const quorvane_position& position);

  ConfigurationWord at(Square square) const { return words[square]; }

 private:
  struct Man {
    Side side = noSide;
    std::int32_t kind = emptyKind;
  };

  static bool onBoard(std::int32_t file, std::int32_t rank) {
    return file >= 0 && file < 8 && rank >= 0 && rank < 8;
  }
  bool isFree(Square square) const { return men[square].kind == emptyKind; }
  bool isPawnOf(Side side, std::int32_t file) const;
  bool isPawnEnding() const;
  bool isFreeBesideKing(Side side, Square square) const;
  void mark(const Man& by, Square square);
  // Calls visit(to) for each square that a piece other than a pawn reaches.
  void forEachReached(Square from, const std::function<void(Square)>& visit) const;
  void addOfAll(Square square);
  void addPawn(Square square);
  void addRace(Square square);
  void addKing(Square square);
  void addPiece(Square square);

  Table<Man, squareCount> men{};
  Table<Square, 2> kings{};
  Table<bool, 2> castled{};
  Side sideToMove;
  Table<ConfigurationWord, squareCount> words{};
};

}  // namespace quorvane

#endif  // QUORVANE_TESTS_SUPPORT_PLAIN_WORDS_H_
