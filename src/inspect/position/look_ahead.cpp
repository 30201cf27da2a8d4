#include "inspect/position/look_ahead.h"

#include "inspect/common/fault.h"
#include "play/position/move_text.h"

namespace quorvane::inspect {

namespace {

constexpr std::int32_t megabytes = 1;  // forgotten before each game

play::Knowledge knowledgeOf(const std::string& network, const std::string& calibration) {
  try {
    return play::Knowledge(network, calibration);
  } catch (const std::runtime_error& fault) {
    throw Fault(fault.what());
  }
}

}  // namespace

LookAhead::LookAhead(const std::string& network, const std::string& calibration, std::uint64_t nodes)
    : knowledge(knowledgeOf(network, calibration)), judge(knowledge), table(megabytes), search(judge, table) {
  goal.nodes = nodes;
}

Searched LookAhead::at(const play::Position& position, std::span<const std::uint64_t> earlier) {
  play::Onlooker nobody;
  const play::Finding finding = search.run(position, earlier, goal, nobody);
  Searched searched{finding.nodes, finding.depth, 0.0, 0, finding.line.empty(), {}};
  if (play::isMate(finding.score)) {
    searched.movesToMate = play::movesToMate(finding.score);
  } else {
    searched.pawns = finding.score / 100.0;
  }
  play::Position reached = position;
  for (const play::Move move : finding.line) {
    searched.moves.push_back(standardNotation(reached, move));
    reached.make(move);
  }
  return searched;
}

void LookAhead::forget() {
  table.clear();
  search.clear();
}

}  // namespace quorvane::inspect
