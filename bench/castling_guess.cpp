// How far the value of a FEN, which does not tell who has castled, is from that of the position in its game:
// with nobody taken for castled, and with those who look like it. In pawns, by the calibration beside the
// network:
//
//   castling_guess NETWORK FILE.pgn ...

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <exception>
#include <numeric>
#include <vector>

#include "board/castled_guess.h"
#include "inspect/annotate/eval_comment.h"
#include "inspect/common/network_reader.h"
#include "inspect/measure/calibration_file.h"
#include "inspect/position/position_value.h"
#include "inspect/position/san_game.h"

namespace quorvane::inspect {
namespace {

class Distances {
 public:
  Distances(const NetworkTable& table, const Calibration& curves) : calibration(curves), value(table) {}

  void addFile(const char* name) {
    const std::unique_ptr<const GameText> text = loadGameText(name);
    for (const GameParts& game : text->games) {
      MoveText moves(game.moves);
      SanGame replay(game);
      while (const std::optional<MoveElement> element = moves.next()) {
        if (replay.play(*element) != SanFault::none) break;
        if (element->kind == MoveElement::move) addPosition(replay.position());
      }
    }
  }

  void print() {
    for (const Guess guess : {nobody, whoLooksLikeIt}) {
      std::vector<double>& all = distances[guess];
      std::ranges::sort(all);
      const auto differing = std::ranges::count_if(all, [](double distance) { return distance > 0.0; });
      const auto quantile = [&](std::size_t percent) { return all[(all.size() - 1) * percent / 100]; };
      std::printf(
          "%s: of %zu positions %.1f %% differ; pawns: mean %.3f, median %.2f, 95th percentile %.2f\n",
          guess == nobody ? "nobody has castled" : "who looks like it has", all.size(),
          100.0 * static_cast<double>(differing) / static_cast<double>(all.size()),
          std::accumulate(all.begin(), all.end(), 0.0) / static_cast<double>(all.size()), quantile(50),
          quantile(95));
    }
  }

 private:
  enum Guess { nobody, whoLooksLikeIt };

  double pawnsOf(const PositionSets& sets) {
    const DescribedPosition position{sets, quorvane::describe(sets)};
    return pawnsOfScore(calibration.expectedScore(position.words.type, value.of(position)).value());
  }

  void addPosition(PositionSets sets) {
    const PositionType type = quorvane::describe(sets).type;
    if (!calibration.types[type].hasPatterns) return;
    const double inGame = pawnsOf(sets);
    for (const Guess guess : {nobody, whoLooksLikeIt}) {
      for (const Side side : {black, white})
        sets.castled[side] = guess == whoLooksLikeIt && looksCastled(sets.pieces, side);
      distances[guess].push_back(std::abs(pawnsOf(sets) - inGame));
    }
  }

  const Calibration& calibration;
  PositionValue value;
  std::vector<double> distances[2];
};

int run(int argc, char** argv) {
  const NetworkTable table = readNetwork(argv[1]);
  const Calibration calibration = readCalibration(defaultCalibrationFile(argv[1]), fingerprintOf(table));
  Distances distances(table, calibration);
  for (int file = 2; file < argc; ++file) distances.addFile(argv[file]);
  distances.print();
  return 0;
}

}  // namespace
}  // namespace quorvane::inspect

int main(int argc, char** argv) {
  try {
    if (argc > 2) return quorvane::inspect::run(argc, argv);
    std::fputs("castling_guess NETWORK FILE.pgn ...\n", stderr);
  } catch (const std::exception& fault) {
    std::fprintf(stderr, "%s\n", fault.what());
  }
  return 1;
}
