#include "play/match/match.h"

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace quorvane::play {

namespace {

// Pairs that threads have played, to be taken in order.
class PairQueue {
 public:
  PairQueue(const Contender& one, const Contender& other, const MatchPlan& planned,
            const std::atomic<bool>& interruption)
      : first(one), second(other), plan(planned), interrupted(interruption), played(plan.openings.size()) {
    const auto jobs = std::min(static_cast<std::size_t>(std::max(plan.jobs, 1)), plan.openings.size());
    for (std::size_t i = 0; i < jobs; ++i) threads.emplace_back(&PairQueue::work, this);
  }
  ~PairQueue() {
    stop = true;
    for (std::thread& thread : threads) thread.join();
  }
  PairQueue(const PairQueue&) = delete;
  PairQueue& operator=(const PairQueue&) = delete;

  // Waits for the pair; nothing if it is interrupted before.
  std::optional<PlayedPair> take(std::size_t index) {
    using namespace std::chrono_literals;
    std::unique_lock lock(mutex);
    // Signals wake nobody.
    while (!played[index] && !interrupted) changed.wait_for(lock, 20ms);
    if (interrupted) stop = true;
    return std::move(played[index]);
  }

 private:
  void work() {
    Players players(first, second, plan.nodes, stop);
    for (std::size_t index; !stop && (index = next++) < plan.openings.size();) {
      PlayedPair pair{players.play(plan.openings[index], true), players.play(plan.openings[index], false)};
      if (stop) return;
      const std::lock_guard lock(mutex);
      played[index] = std::move(pair);
      changed.notify_one();
    }
  }

  const Contender& first;
  const Contender& second;
  const MatchPlan& plan;
  const std::atomic<bool>& interrupted;
  std::vector<std::optional<PlayedPair>> played;
  std::atomic<std::size_t> next{0};
  std::atomic<bool> stop{false};
  std::mutex mutex;
  std::condition_variable changed;
  std::vector<std::thread> threads;
};

}  // namespace

MatchScore playMatch(const Contender& first, const Contender& second, const MatchPlan& plan,
                     const std::atomic<bool>& interrupted,
                     const std::function<void(std::size_t, const PlayedPair&, const MatchScore&)>& take) {
  MatchScore score;
  PairQueue queue(first, second, plan, interrupted);
  for (std::size_t index = 0; index < plan.openings.size(); ++index) {
    const std::optional<PlayedPair> pair = queue.take(index);
    if (!pair) break;
    score.addPair(pair->first.points, 2 - pair->second.points);
    take(index, *pair, score);
    if (plan.test && std::abs(logLikelihoodRatio(score, plan.test->elo0, plan.test->elo1)) >= likelihoodLimit)
      break;
  }
  return score;
}

}  // namespace quorvane::play
