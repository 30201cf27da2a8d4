#include "learning/fit/pair_counts.h"

#include <cassert>
#include <cstdlib>
#include <limits>
#include <utility>

#include "board/table.h"
#include "learning/fit/firing_matrix.h"
#include "learning/fit/word_table.h"

namespace quorvane {

namespace {

// Different words with an amount each.
//
// A thousand of them take nine tenths of all that is added. So amounts gather in a small table at first, one
// place a word, and go on to the whole one when another word takes the place.
class WordAmounts {
 public:
  void add(ConfigurationWord word, std::int32_t amount) {
    Gathered& entry = gathered[indexOf(word)];
    if (entry.word != word) {
      pass(entry);
      entry = {word, 0};
    }
    entry.amount += amount;
    if (std::abs(entry.amount) > mostGathered) pass(entry);
  }

  void addTo(const NodeList& list, std::span<double> byNode) {
    for (Gathered& entry : gathered) pass(entry);
    std::vector<PlacedWord> words;
    std::vector<double> byPlace;
    for (const Amounts::Slot& slot : amounts.all()) {
      if (slot.isFree()) continue;
      words.push_back({slot.word, static_cast<std::uint32_t>(byPlace.size())});
      byPlace.push_back(static_cast<double>(slot.value));
    }
    FiringMatrix::sort(words);
    byPlace.push_back(0.0);  // of no word
    FiringMatrix(list, words, static_cast<std::uint32_t>(words.size())).addWords(byPlace, byNode);
  }

 private:
  using Amounts = WordTable<std::int64_t, std::numeric_limits<std::int64_t>::min()>;

  struct Gathered {
    ConfigurationWord word;
    std::int32_t amount;
  };
  static constexpr std::int32_t gatheredBits = 12;
  static constexpr std::int32_t mostGathered = 1 << 30;

  static std::int32_t indexOf(ConfigurationWord word) {
    return static_cast<std::int32_t>((word * 0x9e3779b1U) >> (32 - gatheredBits));
  }

  void pass(Gathered& entry) {
    const std::int64_t amount = std::exchange(entry.amount, 0);
    if (entry.word == 0) return;  // fires nothing
    Amounts::Slot& slot = amounts.slotOf(entry.word);
    if (slot.isFree()) {
      slot = {entry.word, amount};
      amounts.filled();
    } else {
      slot.value += amount;
    }
  }

  Table<Gathered, 1 << gatheredBits> gathered{};
  Amounts amounts;
};

// The words of one kind in a row, own ones first.
struct WordsOfKind {
  Table<ConfigurationWord, 2 * piecesPerSide> words;
  std::int32_t ownCount = 0;
  std::int32_t count = 0;

  // Adds the amount to what every two of them have in common, or takes it away if one is own and one is not.
  void addPairs(std::int32_t amount, WordAmounts& common) const {
    for (std::int32_t first = 1; first < count; ++first) {
      const bool own = first < ownCount;
      for (std::int32_t second = 0; second < first; ++second) {
        common.add(words[first] & words[second], own == (second < ownCount) ? amount : -amount);
      }
    }
  }
};

}  // namespace

// A node fires on both of two words exactly if it fires on their common bits. So what it counts of pairs of
// pieces is linear in the common words.
std::vector<double> pairCounts(const SampleRows& rows, std::span<const std::uint32_t> repetitions,
                               const std::vector<PieceConfiguration>& configurations,
                               const NetworkRow& lists) {
  assert(repetitions.size() == rows.size());
  Table<WordAmounts, pieceKindCount> common;
  for (std::size_t row = 0; row < rows.size(); ++row) {
    Table<WordsOfKind, pieceKindCount> kinds;
    const auto add = [&](std::uint32_t place) -> WordsOfKind& {
      WordsOfKind& kind = kinds[configurations[place].kind];
      kind.words[kind.count++] = configurations[place].word;
      return kind;
    };
    rows[row].ownList.forEachAhead(configurations, [&](std::uint32_t place) { ++add(place).ownCount; });
    rows[row].opposingList.forEachAhead(configurations, add);
    const auto twice = static_cast<std::int32_t>(2 * repetitions[row]);
    for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) kinds[kind].addPairs(twice, common[kind]);
  }

  std::vector<double> counts;
  for (std::int32_t kind = 0; kind < pieceKindCount; ++kind) {
    const std::size_t first = counts.size();
    counts.resize(first + lists[kind].size());
    common[kind].addTo(lists[kind], std::span(counts).subspan(first));
  }
  return counts;
}

}  // namespace quorvane
