#include "learning/squared_counts.h"

#include "learning/firing_matrix.h"

namespace quorvane {

namespace {

// Different words with an amount each.
class WordAmounts {
 public:
  void add(ConfigurationWord word, double amount) {
    if (word == 0) return;  // fires nothing
    const std::uint32_t number = table.numberOf({word, 0});
    if (number == amounts.size()) {
      words.push_back(word);
      amounts.push_back(0.0);
    }
    amounts[number] += amount;
  }

  void addTo(const NodeList& list, std::span<double> byNode) const {
    FiringMatrix(list, words).addWords(amounts, byNode);
  }

 private:
  ConfigurationTable table;
  std::vector<ConfigurationWord> words;
  std::vector<double> amounts;
};

}  // namespace

// A node fires on both of two words exactly if it fires on their common bits. So the square of a net count,
// which is the sum over all ordered pairs of pieces of the product of their signs where both fire, is linear
// in the common words.
std::vector<double> squaredNetCounts(const SampleSet& set, const NetworkRow& row) {
  struct Piece {
    ConfigurationWord word;
    double sign;
  };
  Table<WordAmounts, pieceKindCount> common;
  Table<std::vector<Piece>, pieceKindCount> pieces;
  for (std::size_t index = 0; index < set.size(); ++index) {
    const SampleSet::View sample = set.view(index);
    for (std::vector<Piece>& ofKind : pieces) ofKind.clear();
    const auto sort = [&](std::span<const std::uint32_t> list, double sign) {
      for (const std::uint32_t number : list) {
        const PieceConfiguration& piece = set.configurations()[number];
        pieces[piece.kind].push_back({piece.word, sign});
      }
    };
    sort(sample.ownList, 1.0);
    sort(sample.opposingList, -1.0);
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
      const std::vector<Piece>& ofKind = pieces[kind];
      for (std::size_t first = 0; first < ofKind.size(); ++first) {
        common[kind].add(ofKind[first].word, 1.0);
        for (std::size_t second = 0; second < first; ++second) {
          common[kind].add(ofKind[first].word & ofKind[second].word,
                           2.0 * ofKind[first].sign * ofKind[second].sign);
        }
      }
    }
  }

  std::vector<double> squares;
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    const std::size_t first = squares.size();
    squares.resize(first + row[kind].size());
    common[kind].addTo(row[kind], std::span(squares).subspan(first));
  }
  return squares;
}

}  // namespace quorvane
