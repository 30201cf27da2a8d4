#include "inspect/games/game_verdict.h"

#include <vector>

#include "board/piece.h"
#include "board/ring.h"

namespace quorvane::inspect {

namespace {

bool isResult(std::string_view token) {
  return token == "1-0" || token == "0-1" || token == "1/2-1/2" || token == "*";
}

bool isCastlingWithZeros(std::string_view token) {
  return token.starts_with("0-0");
}

// Replays a game once more, to find out what is odd about it.
class Replay : public Board {
 public:
  explicit Replay(PgnGame& played) : game(played) {}

  // Leaves oddity, token and ply in the verdict.
  void judge(GameVerdict& verdict) {
    game.tokenCursor = 0;
    setupPosition(game.placement, game.sideToMove);
    for (;;) {
      const std::int32_t firstToken = game.tokenCursor;
      DecodedMove move;
      move.kind = emptyKind;  // stays if there is no token left that starts like a move
      const bool decoded = game.nextMove(move);
      noteZeros(verdict, firstToken);
      if (!decoded) {
        // Behind the result, no harm is done.
        const bool unreadable = move.kind != emptyKind && game.tokenCursor <= resultToken();
        if (unreadable) note(verdict, Oddity::unreadableToken);
        break;
      }
      if (playGameMove(move)) continue;
      note(verdict, refusal(move));
      break;
    }
    if (verdict.oddity == Oddity::none) verdict.ply = history->depth;
  }

 private:
  // The index of the last result among the tokens, their number without one.
  std::int32_t resultToken() const {
    const auto count = static_cast<std::int32_t>(game.tokens.size());
    for (std::int32_t index = count - 1; index >= 0; --index) {
      if (isResult(game.tokens[static_cast<std::size_t>(index)])) return index;
    }
    return count;
  }

  // The token that nextMove has just read.
  void note(GameVerdict& verdict, Oddity oddity) const {
    if (verdict.oddity != Oddity::none) return;
    verdict.oddity = oddity;
    verdict.token = game.tokens[static_cast<std::size_t>(game.tokenCursor - 1)];
    verdict.ply = history->depth + 1;
  }

  // Of the tokens since `firstToken`, all but the last were passed over.
  void noteZeros(GameVerdict& verdict, std::int32_t firstToken) const {
    for (std::int32_t index = firstToken; index < game.tokenCursor; ++index) {
      const std::string_view token = game.tokens[static_cast<std::size_t>(index)];
      if (verdict.oddity != Oddity::none || !isCastlingWithZeros(token)) continue;
      verdict.oddity = Oddity::castlingWithZeros;
      verdict.token = token;
      verdict.ply = history->depth + 1;
    }
  }

  // Why playGameMove has refused the move.
  static Oddity refusal(const DecodedMove& move) {
    if (history->depth + 2 >= depthLimit) return Oddity::tooLong;
    if (kings[opponent(currentMove.sideToMove)]->isAttacked()) return Oddity::opponentInCheck;
    bool anyFits = false;
    for (const MoveRecord& candidate : generate(move.kind)) {
      if (!fits(move, candidate)) continue;
      if (isLegal(candidate)) return Oddity::firstPiecePinned;
      anyFits = true;
    }
    return anyFits ? Oddity::kingInCheck : Oddity::noPiece;
  }

  static std::vector<MoveRecord> generate(PieceKind kind) {
    MoveList moves{moveBuffer, 0};
    activeMoveList = &moves;
    for (Piece& piece : Ring(kings[currentMove.sideToMove])) {
      if (piece.kind == kind) piece.generateMoves();
    }
    activeMoveList = nullptr;
    return {moveBuffer, moves.cursor};
  }

  static bool fits(const DecodedMove& move, const MoveRecord& candidate) {
    const auto agrees = [](std::int32_t wanted, std::int32_t rankOrFile) {
      return wanted == anyRankOrFile || wanted == rankOrFile;
    };
    // A king that would be promoted fits nowhere.
    if (move.kind == kingKind && move.promotion != noPromotion) return false;
    return agrees(move.fromRank, rankOf(candidate.from)) && agrees(move.fromFile, fileOf(candidate.from)) &&
           agrees(move.toRank, rankOf(candidate.to)) && agrees(move.toFile, fileOf(candidate.to));
  }

  static bool isLegal(const MoveRecord& candidate) {
    const MoveRecord saved = currentMove;
    currentMove = candidate;
    makeMove();
    const bool legal = !kings[opponent(currentMove.sideToMove)]->isAttacked();
    unmakeMove();
    currentMove = saved;
    return legal;
  }

  PgnGame& game;
};

}  // namespace

const char* oddityName(Oddity oddity) {
  switch (oddity) {
    case Oddity::none:
      return "none";
    case Oddity::noResult:
      return "noResult";
    case Oddity::tooShort:
      return "tooShort";
    case Oddity::tooLong:
      return "tooLong";
    case Oddity::noPiece:
      return "noPiece";
    case Oddity::firstPiecePinned:
      return "firstPiecePinned";
    case Oddity::kingInCheck:
      return "kingInCheck";
    case Oddity::opponentInCheck:
      return "opponentInCheck";
    case Oddity::castlingWithZeros:
      return "castlingWithZeros";
    case Oddity::unreadableToken:
      return "unreadableToken";
    case Oddity::noQuietPosition:
      return "noQuietPosition";
  }
  return "";
}

const char* oddityText(Oddity oddity) {
  switch (oddity) {
    case Oddity::none:
      return "nothing";
    case Oddity::noResult:
      return "no result behind the moves";
    case Oddity::tooShort:
      return "10 plies or fewer";
    case Oddity::tooLong:
      return "more than 398 plies";
    case Oddity::noPiece:
      return "no piece can make the move";
    case Oddity::firstPiecePinned:
      return "the first piece that fits is pinned";
    case Oddity::kingInCheck:
      return "leaves the king in check";
    case Oddity::opponentInCheck:
      return "starts with the side not to move in check";
    case Oddity::castlingWithZeros:
      return "castling with zeros is passed over";
    case Oddity::unreadableToken:
      return "cannot be read, ends the game";
    case Oddity::noQuietPosition:
      return "no quiet position";
  }
  return "";
}

void GameTally::add(const GameVerdict& verdict) {
  ++games;
  samples += verdict.samples;
  if (verdict.hasResult()) ++withResult;
  if (verdict.samples != 0) ++withSamples;
  if (verdict.oddity != Oddity::none) ++(verdict.samples != 0 ? partly : withoutSamples)[verdict.oddity];
}

GameVerdict judgeGame(PgnGame& game, const QuietPositions::Visit& visit) {
  GameVerdict verdict;
  verdict.result = game.result();
  if (!verdict.hasResult()) {
    verdict.oddity = Oddity::noResult;
    return verdict;
  }
  QuietPositions::forEach(game, verdict.result, [&](std::int32_t target) {
    ++verdict.samples;
    visit(target);
  });
  Replay(game).judge(verdict);
  if (verdict.oddity == Oddity::none && verdict.samples == 0) {
    verdict.oddity = verdict.ply < QuietPositions::shortestGame ? Oddity::tooShort : Oddity::noQuietPosition;
  }
  return verdict;
}

GameVerdict judgeMoves(PgnGame& game) {
  GameVerdict verdict;
  Replay(game).judge(verdict);
  return verdict;
}

std::string tagValue(const PgnGame& game, std::string_view name) {
  for (std::size_t index = 0; index < game.tags.size(); ++index) {
    const std::string_view tag = game.tags[index];
    if (!tag.starts_with(name) || tag.substr(name.size(), 1).find_first_not_of(" \t\"") == 0) continue;
    const std::size_t begin = tag.find('"');
    const std::size_t end = tag.rfind('"');
    if (end != begin) return std::string(tag.substr(begin + 1, end - begin - 1));
  }
  return {};
}

}  // namespace quorvane::inspect
