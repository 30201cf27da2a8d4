#include "play/protocol/protocol.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <utility>

#include "board/square_name.h"
#include "files/file_name.h"
#include "play/position/move_text.h"
#include "play/protocol/judgement_text.h"

namespace quorvane::play {

namespace {

constexpr std::int64_t mostMegabytes = sizeof(void*) > 4 ? 4096 : 512;
constexpr std::int64_t mostOverhead = 5000;  // milliseconds
constexpr std::int64_t most = std::numeric_limits<std::int32_t>::max();

// Names of options are told with any letters.
bool isNamed(std::string_view name, std::string_view wanted) {
  const auto small = [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 'a' - 'A') : letter;
  };
  return std::ranges::equal(name, wanted, {}, small, small);
}

// Among masters: of games that stand level, half are drawn (Rao and Kupper 1967).
std::string scoresText(std::int32_t score) {
  constexpr double drawn = 1.0986122886681098;  // log 3
  const auto wins = [](double pawns) {
    const double p = 1.0 / (1.0 + std::exp(drawn - steepnessOfPawns * pawns));
    return static_cast<int>(std::lround(1000.0 * p));
  };
  const int won = isMate(score) ? (score > 0 ? 1000 : 0) : wins(score / 100.0);
  const int lost = isMate(score) ? 1000 - won : wins(-score / 100.0);
  return std::to_string(won) + ' ' + std::to_string(1000 - won - lost) + ' ' + std::to_string(lost);
}

}  // namespace

Protocol::Protocol(LineQueue& read, std::ostream& written, const std::string& named, std::int32_t megabytes)
    : input(read), output(written), network(named), table(megabytes) {
  setUpPlayer();
}

void Protocol::run() {
  for (;;) {
    const std::optional<std::string> line = postponed ? std::exchange(postponed, {}) : input.next();
    if (!line || Words(*line).next() == "quit") return;
    answer(*line);
  }
}

void Protocol::answer(const std::string& line) {
  Words words(line);
  const std::string_view command = words.next();
  if (command == "uci") {
    introduce();
  } else if (command == "isready") {
    output << "readyok" << std::endl;
  } else if (command == "ucinewgame") {
    table.clear();
    player->search.clear();
  } else if (command == "position") {
    setPosition(words);
  } else if (command == "go") {
    if (words.peek() == "perft") return tellPerft(words);
    startSearch(words);
  } else if (command == "setoption") {
    setOption(words);
  } else if (command == "d") {
    tellBoard();
  } else if (command == "eval") {
    tellJudgement();
  } else if (!command.empty() && command != "stop" && command != "ponderhit" && command != "debug" &&
             command != "register") {
    tellText("unknown command: " + inOneLine(std::string(command.substr(0, 80))));
  }
}

void Protocol::introduce() {
  output << "id name quorvane-play " QUORVANE_VERSION
            "\n"
            "id author the authors of quorvane-learn\n"
            "option name Network type string default "
         << (network.empty() ? "<empty>" : network)
         << "\noption name Calibration type string default <empty>\n"
            "option name Hash type spin default 16 min 1 max "
         << mostMegabytes
         << "\noption name Ponder type check default false\n"
            "option name Move Overhead type spin default 30 min 0 max "
         << mostOverhead
         << "\noption name UCI_ShowWDL type check default false\n"
            "uciok"
         << std::endl;
}

void Protocol::setOption(Words words) {
  std::string name;
  if (words.next() != "name") return tellText("setoption needs a name");
  for (std::string_view word = words.next(); !word.empty() && word != "value"; word = words.next())
    name.append(name.empty() ? "" : " ").append(word);
  std::string value(words.rest());
  if (value == "<empty>") value.clear();
  if (isNamed(name, "Network")) {
    network = value == "material" ? "" : value;
    setUpPlayer();
  } else if (isNamed(name, "Calibration")) {
    calibration = value;
    setUpPlayer();
  } else if (isNamed(name, "Hash")) {
    if (const auto megabytes = numberOf(value, 1, mostMegabytes)) setHash(*megabytes);
  } else if (isNamed(name, "Move Overhead")) {
    if (const auto given = numberOf(value, 0, mostOverhead)) overhead = Milliseconds(*given);
  } else if (isNamed(name, "UCI_ShowWDL")) {
    showsScores = isNamed(value, "true");
  } else if (!isNamed(name, "Ponder")) {
    tellText("unknown option: " + inOneLine(name));
  }
}

void Protocol::setUpPlayer() {
  try {
    Knowledge knowledge = network.empty() ? Knowledge() : Knowledge(network, calibration);
    player = std::make_unique<Player>(std::move(knowledge), table);
    table.clear();
  } catch (const std::runtime_error& fault) {
    if (!player) player = std::make_unique<Player>(Knowledge(), table);
    return tellText(std::string(fault.what()) + "; playing on by " + inOneLine(player->knowledge.name()));
  }
  const Knowledge& known = player->knowledge;
  if (!known.remark().empty()) tellText(known.remark());
  if (known.isMaterial()) return tellText("no network: playing by material alone");
  tellText("playing by " + inOneLine(known.name()) + (known.isCalibrated() ? ", calibrated" : ""));
}

void Protocol::setHash(std::int64_t megabytes) {
  try {
    table.resize(static_cast<std::int32_t>(megabytes));
  } catch (const std::bad_alloc&) {
    tellText("no memory for a hash of " + std::to_string(megabytes) + " MB");
  }
}

void Protocol::setPosition(Words words) {
  const std::string_view kind = words.next();
  if (kind == "startpos") {
    position = Position();
  } else if (kind == "fen") {
    std::string fen;
    while (!words.peek().empty() && words.peek() != "moves") fen.append(words.next()).append(" ");
    try {
      position = Position(fen);
    } catch (const BadPosition& fault) {
      return tellText("the FEN " + std::string(fault.what()) + "; the position stays as it was");
    }
  } else {
    return tellText("position needs startpos or fen");
  }
  keys.clear();
  if (words.next() == "moves") makeMoves(words);
}

void Protocol::makeMoves(Words words) {
  for (std::string_view word = words.next(); !word.empty(); word = words.next()) {
    const Move move = moveOf(position, word);
    if (!move) {
      return tellText("the move " + inOneLine(std::string(word.substr(0, 80))) +
                      " is not legal; the position is the one before it");
    }
    keys.push_back(position.key);
    position.make(move);
    if (position.halfmoves == 0) keys.clear();
  }
}

void Protocol::startSearch(Words words) {
  current = {std::chrono::steady_clock::now(), {}, false, false, {}};
  Goal goal;
  Allowance allowance;
  const bool isWhite = position.sideToMove == white;
  for (std::string_view word = words.next(); !word.empty(); word = words.next()) {
    const auto number = [&](std::int64_t least) {
      const auto read = numberOf(words.peek(), least, most);
      if (read) words.next();
      return read;
    };
    if (word == (isWhite ? "wtime" : "btime")) {
      if (const auto left = number(-most)) allowance.left = Milliseconds(*left);
    } else if (word == (isWhite ? "winc" : "binc")) {
      if (const auto increment = number(0)) allowance.increment = Milliseconds(*increment);
    } else if (word == "movestogo") {
      if (const auto moves = number(0)) allowance.movesToGo = static_cast<std::int32_t>(*moves);
    } else if (word == "movetime") {
      if (const auto time = number(0)) allowance.forThisMove = Milliseconds(*time);
    } else if (word == "depth") {
      if (const auto depth = number(1)) goal.depth = static_cast<std::int32_t>(*depth);
    } else if (word == "nodes") {
      if (const auto nodes = numberOf(words.peek(), 1, std::numeric_limits<std::int64_t>::max()))
        goal.nodes = static_cast<std::uint64_t>(*nodes);
    } else if (word == "mate") {
      if (const auto moves = number(1)) goal.mateInMoves = static_cast<std::int32_t>(*moves);
    } else if (word == "infinite" || word == "ponder") {
      current.waits = true;
    } else if (word == "searchmoves") {
      for (Move move; (move = moveOf(position, words.peek())); words.next()) goal.amongMoves.push_back(move);
    }
  }
  current.limits = timeLimits(allowance, overhead);
  input.lookAgain();
  const Finding found = player->search.run(position, keys, goal, *this);
  if (found.nodes != current.last.nodes || found.line.empty()) tell(found);
  waitForStop();
  output << "bestmove " << (found.line.empty() ? "(none)" : coordinates(found.line[0]));
  if (found.line.size() > 1) output << " ponder " << coordinates(found.line[1]);
  output << std::endl;
}

// A search that was told to go on until it is stopped has no answer before, even if nothing is left to find;
// but what begins something new stops it too.
void Protocol::waitForStop() {
  while (current.waits && !current.stopped) {
    std::optional<std::string> line = input.next();
    if (!line) return;
    const std::string_view command = Words(*line).next();
    if (command == "quit" || command == "position" || command == "go" || command == "ucinewgame") {
      postponed = std::move(line);
      return;
    }
    if (!hear(*line)) answer(*line);
  }
}

bool Protocol::hear(const std::string& line) {
  const std::string_view command = Words(line).next();
  if (command == "isready") {
    output << "readyok" << std::endl;
  } else if (command == "stop") {
    current.stopped = true;
  } else if (command == "ponderhit") {
    current.waits = false;
    current.begin = std::chrono::steady_clock::now();
  } else {
    return false;
  }
  return true;
}

bool Protocol::endsNow(std::uint64_t) {
  bool quits = false;
  const bool closed = input.takeOut([&](const std::string& line, bool isNext) {
    const std::string_view command = Words(line).next();
    quits = quits || command == "quit";
    // Who asks whether all is ready means what was said before as well.
    return (isNext || command != "isready") && hear(line);
  });
  if (closed || quits) current.stopped = true;
  return current.stopped || (!current.waits && current.limits && elapsed() >= current.limits->hard);
}

bool Protocol::isEnough(const Finding& finding) {
  tell(finding);
  if (current.waits || !current.limits) return false;
  // With one legal move, or a mate that no deeper search can shorten, there is nothing to think about.
  const bool mates = isMate(finding.score) && mateScore - std::abs(finding.score) <= finding.depth;
  return elapsed() >= current.limits->soft || mates || legalMoves(position).size() == 1;
}

Milliseconds Protocol::elapsed() const {
  return std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - current.begin);
}

void Protocol::tell(const Finding& finding) {
  current.last = finding;
  const std::int64_t time = elapsed().count();
  output << "info depth " << finding.depth << " seldepth " << finding.deepest << " score ";
  if (isMate(finding.score)) {
    output << "mate " << movesToMate(finding.score);
  } else {
    output << "cp " << finding.score;
  }
  if (showsScores) output << " wdl " << scoresText(finding.score);
  output << " nodes " << finding.nodes << " nps "
         << finding.nodes * 1000 / static_cast<std::uint64_t>(std::max<std::int64_t>(time, 1)) << " hashfull "
         << finding.permilleUsed << " time " << time;
  if (!finding.line.empty()) output << " pv";
  for (const Move move : finding.line) output << ' ' << coordinates(move);
  output << std::endl;
}

// Goes on whatever comes in meanwhile: what is piped in has its end behind it.
void Protocol::tellPerft(Words words) {
  words.next();
  constexpr std::int64_t deepest = 20;
  const auto depth = static_cast<std::int32_t>(numberOf(words.next(), 1, deepest).value_or(1));
  std::uint64_t leaves = 0;
  for (const Move move : legalMoves(position)) {
    Position next = position;
    next.make(move);
    const std::uint64_t behind = perft(next, depth - 1);
    leaves += behind;
    output << coordinates(move) << ": " << behind << '\n';
  }
  output << "\nNodes searched: " << leaves << '\n' << std::endl;
}

void Protocol::tellBoard() {
  output << '\n' << boardText(position);
  char key[17];
  std::snprintf(key, sizeof key, "%016llx", static_cast<unsigned long long>(position.key));
  output << "\nFen: " << position.fen() << "\nKey: " << key << '\n' << std::endl;
}

void Protocol::tellJudgement() {
  output << '\n' << judgementText(player->knowledge, position) << std::endl;
}

}  // namespace quorvane::play
