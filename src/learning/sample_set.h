#ifndef QUORVANE_LEARNING_SAMPLE_SET_H_
#define QUORVANE_LEARNING_SAMPLE_SET_H_

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "learning/configuration_table.h"
#include "learning/sample.h"

namespace quorvane {

// The samples of one position type, in the order of storing.
//
// Configurations repeat: a set holds far fewer different ones than its samples have pieces. So each different
// one is kept once, in `configurations`, and a sample is a row of 32-bit numbers of them. The rows stand in
// blocks that never move, so that growing copies nothing but the short headers.
class SampleSet {
 public:
  // A sample without its storage: the numbers of its configurations. Valid as long as the set holds it.
  struct View {
    std::span<const std::uint32_t> ownList;
    std::span<const std::uint32_t> opposingList;
    std::int32_t target;
  };

  // Destroys the samples and makes sure that there is room for 1000.
  void clear();

  // Copies a sample into the set: the pieces of the side to move, those of the other side, and the target.
  // Neither list may be longer than 255.
  void append(std::span<const PieceConfiguration> ownList, std::span<const PieceConfiguration> opposingList,
              std::int32_t target);

  std::size_t size() const { return headers.size(); }
  bool empty() const { return headers.empty(); }
  std::size_t capacity() const { return headers.capacity(); }

  View view(std::size_t index) const;
  // A copy in full.
  Sample sample(std::size_t index) const;

  // The different configurations of the set, numbered in the order in which they came.
  const ConfigurationTable& configurations() const { return table; }

 private:
  static constexpr std::size_t smallestCapacity = 1000;
  static constexpr std::size_t blockSize = std::size_t{1} << 16;

  struct Header {
    const std::uint32_t* row;  // own configurations, then the opposing ones; in a block
    std::int32_t target;
    std::uint8_t ownCount;
    std::uint8_t opposingCount;
  };

  std::vector<Header> headers;
  std::vector<std::unique_ptr<std::uint32_t[]>> blocks;
  std::size_t usedOfLastBlock = blockSize;
  ConfigurationTable table;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_SAMPLE_SET_H_
