#include "play/match/openings.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <unordered_set>

#include "files/file_name.h"
#include "pgn/pgn_database.h"
#include "play/position/move_text.h"

namespace quorvane::play {

namespace {

constexpr const char* usualLines =
    "e4 c5 Nf3 d6 d4 cxd4 Nxd4 Nf6 Nc3 a6 *\n"
    "e4 e5 Nf3 Nc6 Bb5 a6 Ba4 Nf6 O-O Be7 *\n"
    "d4 Nf6 c4 g6 Nc3 Bg7 e4 d6 Nf3 O-O *\n"
    "e4 c5 Nf3 d6 d4 cxd4 Nxd4 Nf6 Nc3 Nc6 *\n"
    "d4 Nf6 c4 g6 Nc3 d5 cxd5 Nxd5 e4 Nxc3 *\n"
    "d4 Nf6 c4 g6 Nc3 Bg7 e4 d6 Be2 O-O *\n"
    "e4 c5 Nf3 e6 d4 cxd4 Nxd4 Nc6 Nc3 Qc7 *\n"
    "d4 Nf6 c4 e6 Nc3 Bb4 e3 O-O Bd3 d5 *\n"
    "d4 Nf6 c4 e6 Nf3 b6 g3 Bb7 Bg2 Be7 *\n"
    "e4 e5 Nf3 Nc6 Bb5 Nf6 O-O Nxe4 d4 Nd6 *\n"
    "e4 c5 Nf3 d6 d4 cxd4 Nxd4 Nf6 Nc3 g6 *\n"
    "d4 Nf6 c4 e6 Nc3 Bb4 Qc2 O-O a3 Bxc3+ *\n"
    "e4 e5 Nf3 Nc6 Bb5 a6 Ba4 Nf6 O-O Nxe4 *\n"
    "e4 c5 Nf3 Nc6 d4 cxd4 Nxd4 Nf6 Nc3 e5 *\n"
    "e4 e6 d4 d5 Nc3 Bb4 e5 c5 a3 Bxc3+ *\n"
    "e4 e5 Nf3 Nf6 Nxe5 d6 Nf3 Nxe4 d4 d5 *\n"
    "d4 d5 c4 c6 Nf3 Nf6 Nc3 dxc4 a4 Bf5 *\n"
    "d4 d5 c4 c6 Nc3 Nf6 e3 e6 Nf3 Nbd7 *\n"
    "e4 e6 d4 d5 Nc3 Nf6 e5 Nfd7 f4 c5 *\n"
    "e4 c5 Nf3 e6 d4 cxd4 Nxd4 Nc6 Nc3 a6 *\n"
    "e4 c6 d4 d5 Nc3 dxe4 Nxe4 Bf5 Ng3 Bg6 *\n"
    "d4 Nf6 c4 c5 d5 e6 Nc3 exd5 cxd5 d6 *\n"
    "e4 c5 Nf3 e6 d4 cxd4 Nxd4 a6 Nc3 Qc7 *\n"
    "e4 e6 d4 d5 Nc3 Bb4 e5 Ne7 a3 Bxc3+ *\n"
    "d4 d5 c4 dxc4 Nf3 Nf6 e3 e6 Bxc4 c5 *\n"
    "e4 c6 d4 d5 e5 Bf5 Nf3 e6 Be2 Ne7 *\n"
    "Nf3 Nf6 c4 g6 g3 Bg7 Bg2 O-O O-O d6 *\n"
    "e4 c5 Nf3 Nc6 d4 cxd4 Nxd4 g6 c4 Nf6 *\n"
    "e4 e5 Nf3 Nf6 Nxe5 d6 Nf3 Nxe4 Nc3 Nxc3 *\n"
    "e4 d6 d4 Nf6 Nc3 e5 Nf3 Nbd7 Bc4 Be7 *\n"
    "Nf3 Nf6 c4 b6 g3 Bb7 Bg2 e6 O-O Be7 *\n"
    "c4 e5 Nc3 Nf6 Nf3 Nc6 g3 d5 cxd5 Nxd5 *\n"
    "e4 e5 Nf3 Nf6 d4 Nxe4 Bd3 d5 Nxe5 Nd7 *\n"
    "e4 d5 exd5 Qxd5 Nc3 Qd6 d4 Nf6 Nf3 c6 *\n"
    "d4 d5 c4 e6 Nc3 c5 cxd5 exd5 Nf3 Nc6 *\n"
    "d4 Nf6 Nf3 g6 g3 Bg7 Bg2 O-O O-O d6 *\n"
    "d4 d5 c4 e6 Nc3 Nf6 cxd5 exd5 Bg5 c6 *\n"
    "d4 Nf6 Nf3 g6 c4 Bg7 g3 O-O Bg2 d6 *\n"
    "d4 Nf6 c4 c5 d5 b5 cxb5 a6 bxa6 g6 *\n"
    "e4 d6 d4 Nf6 Nc3 g6 f4 Bg7 Nf3 O-O *\n";

std::string fenOf(const PgnGame& game) {
  for (std::size_t i = 0; i < game.tags.size(); ++i) {
    const std::string_view tag = game.tags[i];
    if (!tag.starts_with("FEN ")) continue;
    const std::size_t begin = tag.find('"') + 1;
    return std::string(tag.substr(begin, tag.find('"', begin) - begin));
  }
  return std::string(Position::usualStart);
}

// The beginning of a game; nothing if it is shorter, or if its moves are none.
bool readGame(PgnGame& game, std::int32_t plies, Opening& opening) {
  try {
    opening = {Position(fenOf(game)), {}};
  } catch (const BadPosition&) {
    return false;
  }
  Position reached = opening.start;
  for (std::int32_t ply = 0; ply < plies; ++ply) {
    DecodedMove decoded;
    const Move move = game.nextMove(decoded) ? moveOf(reached, decoded) : Move{};
    if (!move) return false;
    opening.moves.push_back(move);
    reached.make(move);
  }
  return true;
}

// Takes what has not come before, and goes on.
class Openings {
 public:
  void add(const Opening& opening) {
    Position reached = opening.start;
    for (const Move move : opening.moves) reached.make(move);
    if (legalMoves(reached).empty() || reached.hasTooLittleMaterial() || !known.insert(reached.key).second)
      return;
    openings.push_back(opening);
  }
  void addGames(PgnDatabase& games, std::int32_t plies) {
    Opening opening;
    for (std::int32_t index = 0; PgnGame* const game = games.game(index); ++index) {
      if (readGame(*game, plies, opening)) add(opening);
    }
  }

  std::vector<Opening> openings;

 private:
  std::unordered_set<std::uint64_t> known;  // the keys of what they lead to
};

// Does a file hold positions rather than games? Its first line is one then.
bool holdsPositions(const std::string& line) {
  return line.find('/') != std::string::npos && !line.starts_with("[") && !line.starts_with("1.");
}

}  // namespace

std::vector<Opening> usualOpenings() {
  Openings found;
  std::istringstream lines(usualLines);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream text(line);
    PgnDatabase game;
    game.load(text);
    found.addGames(game, 10);
  }
  return found.openings;
}

std::vector<Opening> readOpenings(const std::string& file, std::int32_t plies) {
  const auto refuse = [&](const std::string& fault) {
    throw std::runtime_error(inOneLine(file) + ' ' + fault);
  };
  std::ifstream stream(pathOf(file), std::ios::binary);
  std::string line;
  if (!stream || stream.peek() == std::ifstream::traits_type::eof()) refuse("cannot be read, or is empty");
  Openings found;
  std::getline(stream, line);
  if (holdsPositions(line)) {
    std::size_t number = 1;
    do {
      try {
        if (line.find_first_not_of(" \t\r") != std::string::npos) found.add({Position(line), {}});
      } catch (const BadPosition& fault) {
        refuse("line " + std::to_string(number) + ": " + fault.what());
      }
      ++number;
    } while (std::getline(stream, line));
  } else {
    PgnDatabase games;
    games.load(file);
    found.addGames(games, plies);
  }
  if (found.openings.empty()) refuse("holds no openings");
  return found.openings;
}

}  // namespace quorvane::play
