#ifndef QUORVANE_PLAY_PROTOCOL_LINE_QUEUE_H_
#define QUORVANE_PLAY_PROTOCOL_LINE_QUEUE_H_

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <istream>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace quorvane::play {

// Lines of an input, read by a thread of its own while others are worked on: no system tells in the same way
// whether something waits to be read, and a thread that reads works on all of them. Ends with the input, or
// behind the line "quit".
class LineQueue {
 public:
  // Reads from `read`, which outlives it and which nobody else uses any more.
  explicit LineQueue(std::istream& read);
  // Waits for the end of the input.
  ~LineQueue() { reader.join(); }
  LineQueue(const LineQueue&) = delete;
  LineQueue& operator=(const LineQueue&) = delete;

  // Waits for the next line; nothing at the end.
  std::optional<std::string> next();

  // Takes out the lines that wait and for which `take` says so, in their order; it is told as well whether a
  // line is the next one. Says whether no more can come. Those that were left once are not asked about again,
  // until lookAgain.
  bool takeOut(const std::function<bool(const std::string&, bool isNext)>& take);
  void lookAgain();

 private:
  void read();

  std::istream& input;
  std::mutex mutex;
  std::condition_variable changed;
  std::deque<std::string> lines;
  std::ptrdiff_t left = 0;  // of the first of them takeOut has been asked
  bool ended = false;
  std::thread reader;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_PROTOCOL_LINE_QUEUE_H_
