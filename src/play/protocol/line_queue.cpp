#include "play/protocol/line_queue.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "play/protocol/words.h"

namespace quorvane::play {

LineQueue::LineQueue(std::istream& read) : input(read) {
  input.tie(nullptr);  // whoever writes does so from another thread
  reader = std::thread(&LineQueue::read, this);
}

void LineQueue::read() {
  bool quits = false;
  std::string line;
  while (!quits && std::getline(input, line)) {
    quits = Words(line).next() == "quit";
    const std::lock_guard lock(mutex);
    lines.push_back(std::move(line));
    changed.notify_one();
  }
  const std::lock_guard lock(mutex);
  ended = true;
  changed.notify_one();
}

std::optional<std::string> LineQueue::next() {
  std::unique_lock lock(mutex);
  changed.wait(lock, [this] { return ended || !lines.empty(); });
  if (lines.empty()) return {};
  std::string line = std::move(lines.front());
  lines.pop_front();
  left = std::max<std::ptrdiff_t>(left - 1, 0);
  return line;
}

bool LineQueue::takeOut(const std::function<bool(const std::string&, bool)>& take) {
  const std::lock_guard lock(mutex);
  for (auto line = lines.begin() + left; line != lines.end();) {
    if (take(*line, left == 0)) {
      line = lines.erase(line);
    } else {
      ++line;
      ++left;
    }
  }
  return ended;
}

void LineQueue::lookAgain() {
  const std::lock_guard lock(mutex);
  left = 0;
}

}  // namespace quorvane::play
