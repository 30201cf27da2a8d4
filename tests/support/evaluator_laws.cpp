#include "support/evaluator_laws.h"

#include <cmath>
#include <cstdlib>
#include <random>

#include "board/piece.h"
#include "board/ring.h"
#include "network/network_file.h"
#include "support/files.h"
#include "support/network_tables.h"

namespace quorvane {

namespace {

// Trees that add bits from `bit` up to patterns of at most four; in network order.
void addRandomTrees(NodeList& list, std::mt19937& random, ConfigurationWord parent, std::int32_t bit) {
  const int depth = std::popcount(parent);
  for (; bit < 32 && depth < 4; ++bit) {
    if (random() % 8 < static_cast<unsigned>(2 * depth)) continue;
    const ConfigurationWord added = ConfigurationWord{1} << bit;
    const std::size_t at = list.size();
    const auto weight = static_cast<float>(static_cast<std::int32_t>(random() % 2001) - 1000) / 64.0F;
    list.push_back({parent | added, 0, weight, 0, 0, 0, 0, 0});
    if (random() % 4 == 0) addRandomTrees(list, random, parent | added, bit + 1);
    list[at].skip = static_cast<std::int32_t>(list.size() - at);
    for (std::size_t child = at + 1; child < list.size(); ++child) {
      const ConfigurationWord below = list[child].mask & ~list[at].mask;
      if (std::has_single_bit(below)) list[at].childBits |= below;
    }
  }
}

bool near(double a, double b) {
  return std::abs(a - b) < 1e-9;
}

}  // namespace

EvaluatorLaws::EvaluatorLaws() : Network(TableAsItStands{}) {
  constexpr char fileName[] = "evaluator-laws.dat";
  std::mt19937 random(4);
  for (NetworkRow& lists : networkTable) {
    for (NodeList& list : lists) {
      list.clear();
      addRandomTrees(list, random, 0, 0);
    }
  }
  writeFile(fileName, encodeNetwork(networkTable));
  network = quorvane_network_open(fileName, nullptr, 0);
  cache = quorvane_cache_new(network);
  if (cache == nullptr) std::abort();
}

EvaluatorLaws::~EvaluatorLaws() {
  quorvane_cache_free(cache);
  quorvane_network_close(network);
  clearNetworkTable();
}

quorvane_position EvaluatorLaws::positionOnBoard() {
  quorvane_position position{};
  for (Piece* const king : kings) {
    for (const Piece& piece : Ring(king)) {
      auto& given = position.pieces[position.count++];
      given.piece = static_cast<std::uint8_t>(piece.kind + (piece.side == white ? 0 : QUORVANE_BLACK_PAWN));
      given.square = static_cast<std::uint8_t>(piece.square);
    }
  }
  position.side_to_move = currentMove.sideToMove;
  position.white_castled = static_cast<const King*>(kings[white])->castled ? 1 : 0;
  position.black_castled = static_cast<const King*>(kings[black])->castled ? 1 : 0;
  return position;
}

const char* EvaluatorLaws::broken() {
  const quorvane_position position = positionOnBoard();
  quorvane_explanation explained;
  double value = 0.0;
  double cached = 0.0;
  if (quorvane_explain(network, &position, &explained) != QUORVANE_OK ||
      quorvane_evaluate(network, &position, &value) != QUORVANE_OK ||
      quorvane_evaluate_cached(cache, &position, &cached) != QUORVANE_OK)
    return "what stands on the board can be evaluated";
  if (value != cached || value != explained.value)
    return "a value is the same to the last bit however it is asked for";
  if (explained.type != classifyPosition(classifyBoard, false)) return "the types are the same";
  if (explained.count != position.count) return "each piece is explained";

  computeConfigurations();
  const auto plain = plainWords(position);
  double expected = 0.0;
  for (std::int32_t i = 0; i < explained.count; ++i) {
    const auto& given = explained.pieces[i];
    const Piece& piece = *board[given.square];
    if (given.word != plain[given.square]) return "the words are those of the plain walk";
    if (given.word != piece.configuration) return "the words are the same on the board";
    double worth = 0.0;
    forEachFiringNode(row()[piece.kind], piece.configuration,
                      [&](const PatternNode& node) { worth += static_cast<double>(node.weight); });
    if (!near(given.value, worth)) return "a piece is worth its patterns";
    expected += piece.side == currentMove.sideToMove ? worth : -worth;
  }
  return near(value, expected) ? nullptr : "a position is worth its pieces";
}

}  // namespace quorvane
