#include "inspect/games/oddity.h"

#include "board/records.h"
#include "learning/collect/quiet_positions.h"

namespace quorvane::inspect {

const OddityWords& wordsOf(Oddity oddity) {
  static const OddityWords words[] = {
      {"none", "nothing"},
      {"noResult", "no result behind the moves"},
      {"tooShort", std::to_string(QuietPositions::shortestGame - 1) + " plies or fewer"},
      {"tooLong", std::string("more than ").append(std::to_string(depthLimit - 2)) + " plies"},
      {"noPiece", "no piece can make the move"},
      {"firstPiecePinned", "the first piece that fits is pinned"},
      {"kingInCheck", "leaves the king in check"},
      {"opponentInCheck", "starts with the side not to move in check"},
      {"castlingWithZeros", "castling with zeros is passed over"},
      {"unreadableToken", "cannot be read, ends the game"},
      {"noQuietPosition", "no quiet position"},
  };
  static_assert(std::size(words) == static_cast<std::size_t>(Oddity::noQuietPosition) + 1);
  return words[static_cast<std::size_t>(oddity)];
}

}  // namespace quorvane::inspect
