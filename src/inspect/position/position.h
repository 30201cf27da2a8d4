#ifndef QUORVANE_INSPECT_POSITION_POSITION_H_
#define QUORVANE_INSPECT_POSITION_POSITION_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/board.h"
#include "inspect/position/position_value.h"
#include "play/position/position.h"

namespace quorvane::inspect {

// Where a position comes from.
struct Origin {
  std::string fen;
  // Of a game: its players, if it has tags for them, and the move that led to the position, "12. Nbd7" or
  // "12... Nf6"; empty for the start position.
  std::string white;
  std::string black;
  std::string move;
  // As chess has it, for a search; nothing for what chess does not know.
  std::optional<play::Position> position;
  std::vector<std::uint64_t> earlierKeys;  // of the positions of its game before it
};

// Keeps the board of the process while it lives, and puts positions on it. One at a time.
class Position : public Board {
 public:
  Position() = default;
  ~Position() { releaseBoard(); }
  Position(const Position&) = delete;
  Position& operator=(const Position&) = delete;

  // Which texts of a FEN are taken.
  enum class Rules {
    chess,    // those of a position that chess allows
    lenient,  // those that the utility takes in a FEN tag
  };
  // Nobody has castled in it, or, if that is to be guessed, who looks like it. Throws a Fault that tells why
  // the text is refused.
  static Origin setFen(const std::string& fen, Rules rules, bool guessCastling);

  // The position of the file's game `number`, from 1, behind its first `plies` moves, read by the rules of
  // chess. Throws a Fault if there is no such game or no such ply.
  static Origin setGame(const std::string& fileName, std::int32_t number, std::int32_t plies);

  // The position on the board, which must have been set up.
  static DescribedPosition described();

 private:
  static void put(const PositionSets& position);
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_POSITION_POSITION_H_
