#ifndef QUORVANE_INSPECT_POSITION_H_
#define QUORVANE_INSPECT_POSITION_H_

#include <string>

#include "board/board.h"

namespace quorvane {

// Keeps the board of the process while it lives, and puts positions on it. One at a time.
class Position : public Board {
 public:
  Position() = default;
  ~Position() { releaseBoard(); }
  Position(const Position&) = delete;
  Position& operator=(const Position&) = delete;

  // Throws a Fault if the utility would refuse the text in a FEN tag.
  static void setFen(const std::string& fen);

  // The position of the file's game `number`, from 1, behind its first `plies` moves. Throws a Fault if there
  // is no such game or no such ply.
  static void setGame(const std::string& fileName, std::int32_t number, std::int32_t plies);
};

}  // namespace quorvane

#endif  // QUORVANE_INSPECT_POSITION_H_
