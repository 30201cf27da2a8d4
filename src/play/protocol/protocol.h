#ifndef QUORVANE_PLAY_PROTOCOL_PROTOCOL_H_
#define QUORVANE_PLAY_PROTOCOL_PROTOCOL_H_

#include <chrono>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "play/protocol/line_queue.h"
#include "play/protocol/time_control.h"
#include "play/protocol/words.h"
#include "play/search/search.h"

namespace quorvane::play {

// Speaks UCI, the universal chess interface of Stefan Meyer-Kahlen (2006), with chess windows. No line ends
// it but "quit", and no answer is an illegal move: what it does not know it passes over, as the protocol
// demands, and what it cannot take it says in an `info string`.
class Protocol : private Onlooker {
 public:
  static constexpr std::int32_t usualHash = 16;  // megabytes

  // With the network file `network` to begin with, material alone if that is empty.
  Protocol(LineQueue& read, std::ostream& written, const std::string& network,
           std::int32_t megabytes = usualHash);

  // Answers until "quit" or the end of the input.
  void run();

 private:
  struct Player {
    explicit Player(Knowledge known, TranspositionTable& table)
        : knowledge(std::move(known)), judge(knowledge), search(judge, table) {}
    Knowledge knowledge;
    Judge judge;
    Search search;
  };
  // How the search that runs may end.
  struct Run {
    std::chrono::steady_clock::time_point begin;
    std::optional<TimeLimits> limits;
    bool waits = false;  // for "stop" or "ponderhit" before it answers
    bool stopped = false;
    Finding last;  // that was told
  };

  void answer(const std::string& line);
  void introduce();
  void setOption(Words words);
  void setUpPlayer();
  void setHash(std::int64_t megabytes);
  void setPosition(Words words);
  void makeMoves(Words words);
  void startSearch(Words words);
  void waitForStop();
  void tellPerft(Words words);
  void tellBoard();
  void tellJudgement();
  void tell(const Finding& finding);
  void tellText(const std::string& text) { output << "info string " << text << std::endl; }

  bool endsNow(std::uint64_t nodes) override;
  bool isEnough(const Finding& finding) override;
  // What must not wait until the search has ended.
  bool hear(const std::string& line);
  Milliseconds elapsed() const;

  LineQueue& input;
  std::ostream& output;
  std::optional<std::string> postponed;  // a line that comes next

  std::string network;
  std::string calibration;
  Milliseconds overhead{30};
  bool showsScores = false;  // as won, drawn and lost

  TranspositionTable table;
  std::unique_ptr<Player> player;
  Position position;
  std::vector<std::uint64_t> keys;  // of the positions before it, since one that cannot come again
  Run current;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_PROTOCOL_PROTOCOL_H_
