#include "inspect/games/game_verdict.h"

#include "board/piece.h"
#include "board/pseudo_legal_moves.h"

namespace quorvane::inspect {

namespace {

bool isResult(std::string_view token) {
  return token == "1-0" || token == "0-1" || token == "1/2-1/2" || token == "*";
}

bool isCastlingWithZeros(std::string_view token) {
  return token.starts_with("0-0");
}

// Goes through the moves of a game once more, to find out what is odd about them.
class MoveReview : public Board {
 public:
  // Of a game all of whose moves are known to be playable, the board is not needed.
  MoveReview(PgnGame& played, bool onBoard) : game(played), replays(onBoard) {
    game.tokenCursor = 0;
    if (replays) setupPosition(game.placement, game.sideToMove);
  }

  // Leaves oddity, token and ply in the verdict.
  void judge(GameVerdict& verdict) {
    for (;; ++plies) {
      const std::int32_t firstToken = game.tokenCursor;
      DecodedMove move;
      move.kind = emptyKind;  // stays if there is no token left that starts like a move
      const bool decoded = game.nextMove(move);
      // All tokens but the last were passed over.
      for (std::int32_t index = firstToken; index < game.tokenCursor; ++index) {
        if (isCastlingWithZeros(tokenAt(index))) note(verdict, Oddity::castlingWithZeros, index);
      }
      const std::int32_t last = game.tokenCursor - 1;
      if (!decoded) {
        // Behind the result, no harm is done.
        if (move.kind != emptyKind && last < resultToken()) note(verdict, Oddity::unreadableToken, last);
        break;
      }
      if (!replays || playGameMove(move)) continue;
      note(verdict, refusal(move), last);
      break;
    }
    if (verdict.oddity == Oddity::none) verdict.ply = plies;
  }

 private:
  std::string_view tokenAt(std::int32_t index) const { return game.tokens[static_cast<std::size_t>(index)]; }

  // The index of the last result among the tokens, their number without one.
  std::int32_t resultToken() const {
    const auto count = static_cast<std::int32_t>(game.tokens.size());
    for (std::int32_t index = count - 1; index >= 0; --index) {
      if (isResult(tokenAt(index))) return index;
    }
    return count;
  }

  // The first oddity of a game counts.
  void note(GameVerdict& verdict, Oddity oddity, std::int32_t token) const {
    if (verdict.oddity != Oddity::none) return;
    verdict.oddity = oddity;
    verdict.token = tokenAt(token);
    verdict.ply = plies + 1;
  }

  // Why playGameMove has refused the move.
  static Oddity refusal(const DecodedMove& move) {
    if (history->depth + 2 >= depthLimit) return Oddity::tooLong;
    if (kings[opponent(currentMove.sideToMove)]->isAttacked()) return Oddity::opponentInCheck;
    // A king that would be promoted fits nowhere.
    if (move.kind == kingKind && move.promotion != noPromotion) return Oddity::noPiece;
    bool anyFits = false;
    for (const MoveRecord& candidate : PseudoLegalMoves::of(move.kind)) {
      if (!PseudoLegalMoves::fits(move, candidate)) continue;
      if (PseudoLegalMoves::isLegal(candidate)) return Oddity::firstPiecePinned;
      anyFits = true;
    }
    return anyFits ? Oddity::kingInCheck : Oddity::noPiece;
  }

  PgnGame& game;
  const bool replays;
  std::int32_t plies = 0;  // that were played before the move in question
};

}  // namespace

GameVerdict judgeGame(PgnGame& game, const QuietPositions::Visit& visit) {
  GameVerdict verdict;
  verdict.result = game.result();
  if (!verdict.hasResult()) {
    verdict.oddity = Oddity::noResult;
    return verdict;
  }
  const bool wasPlayed = QuietPositions::forEach(game, verdict.result, [&](std::int32_t target) {
    ++verdict.samples;
    visit(target);
  });
  MoveReview(game, !wasPlayed).judge(verdict);
  if (verdict.oddity == Oddity::none && verdict.samples == 0) {
    verdict.oddity = verdict.ply < QuietPositions::shortestGame ? Oddity::tooShort : Oddity::noQuietPosition;
  }
  return verdict;
}

}  // namespace quorvane::inspect
