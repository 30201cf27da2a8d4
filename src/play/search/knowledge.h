#ifndef QUORVANE_PLAY_SEARCH_KNOWLEDGE_H_
#define QUORVANE_PLAY_SEARCH_KNOWLEDGE_H_

#include <cstdint>
#include <optional>
#include <string>

#include "evaluator/learned_network.h"
#include "evaluator/steepness.h"
#include "evaluator/word_cache.h"
#include "play/position/position.h"

namespace quorvane::play {

// What positions are judged by: a network, with what its values mean, or material alone. Does not change.
class Knowledge {
 public:
  // Material alone.
  Knowledge() = default;
  // Of the network file `name` and the calibration file, else the one beside the network if that is there and
  // fits. Throws a std::runtime_error that says in a sentence, beginning with the file, what is wrong.
  explicit Knowledge(const std::string& name, const std::string& calibration = {});

  bool isMaterial() const { return !network; }
  bool isCalibrated() const { return calibrated; }
  // Why the calibration beside the network is not used, in a sentence; empty if there is nothing to say.
  const std::string& remark() const { return unused; }
  // The name of the network file as it was given, or "material".
  const std::string& name() const { return file; }
  // Tells its network from others; "none" for material alone.
  const std::string& fingerprint() const { return print; }
  const std::optional<evaluator::LearnedNetwork>& learned() const { return network; }
  // Of values of a type; nothing if they mean nothing.
  std::optional<double> steepnessOf(PositionType type) const { return steepness[type]; }

  // To measure what they bring: the same without a calibration, and with the network alone, as if all pieces
  // were worth the same.
  void leaveCalibration();
  void leaveMaterial() { countsMaterial = false; }
  bool countsPieces() const { return countsMaterial; }

 private:
  std::string file = "material";
  std::optional<evaluator::LearnedNetwork> network;
  evaluator::Steepness steepness{};
  std::string print = "none";
  bool calibrated = false;
  bool countsMaterial = true;
  std::string unused;
};

// Judges positions, and remembers what words are worth. One thread at a time; the knowledge outlives it.
class Judge {
 public:
  explicit Judge(const Knowledge& by);

  // What the position is worth to the side to move, in hundredths of a pawn; never as much as a mate.
  std::int32_t operator()(const Position& position);

 private:
  const Knowledge& knowledge;
  std::optional<evaluator::WordCache> cache;
};

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_SEARCH_KNOWLEDGE_H_
