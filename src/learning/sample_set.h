#ifndef QUORVANE_LEARNING_SAMPLE_SET_H_
#define QUORVANE_LEARNING_SAMPLE_SET_H_

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "board/table.h"
#include "network/sample.h"

namespace quorvane {

// The samples of one position type, in the order of storing; SampleWalk reads them.
//
// Half of a sample's pieces have the words that they had in the sample before the last one, which most often
// comes from two plies later in the same game. So a sample is stored as what changes from that one, or from
// the last one if that is nearer: a set of seats, and the word that comes to each of them. A seat is that of
// a piece in the lists: own pieces from 0, opposing ones from piecesPerSide on.
class SampleSet {
 public:
  static constexpr std::int32_t seatCount = 2 * piecesPerSide;

  SampleSet() { clear(); }

  // Destroys the samples, keeps the storage, and makes sure that there is room for 1000.
  void clear();
  // Destroys the samples and gives back the storage, but for that of an empty set.
  void release();

  // Copies a sample into the set: the pieces of the side to move, those of the other side, at most
  // piecesPerSide each, and the target.
  void append(std::span<const PieceConfiguration> ownList, std::span<const PieceConfiguration> opposingList,
              std::int32_t target);

  std::size_t size() const { return forms.size(); }
  bool empty() const { return forms.empty(); }
  // Of all samples together.
  std::size_t pieceCount() const { return pieces; }
  // How many samples fit into the storage whatever they are.
  std::size_t capacity() const { return room / longestRecord; }

  // A copy in full. Reads all samples up to that one.
  Sample sample(std::size_t index) const;

 private:
  friend class SampleWalk;

  static constexpr std::size_t smallestCapacity = 1000;
  static constexpr std::size_t kindsPerNumber = 8;  // of four bits each
  static constexpr std::size_t longestRecord = 2 + seatCount / kindsPerNumber + seatCount;

  static constexpr auto noPieces = [] {
    Table<std::uint8_t, seatCount> kinds{};
    for (std::uint8_t& kind : kinds) kind = emptyKind;
    return kinds;
  }();
  // The pieces of a sample by seat; emptyKind and the word 0 where there is none.
  struct Row {
    Table<ConfigurationWord, seatCount> words{};
    Table<std::uint8_t, seatCount> kinds = noPieces;

    // Enters pieces from `seat` on.
    void put(std::int32_t seat, std::span<const PieceConfiguration> list);
    // The seats at which another row has another piece, as a set.
    std::uint32_t differences(const Row& other) const;
  };

  // How a sample is stored.
  struct Form {
    bool followsLast : 1;   // as what changes from the last one
    bool changesKinds : 1;  // with the kinds of all seats
  };

  struct Block {
    std::unique_ptr<std::uint32_t[]> numbers;
    std::size_t size;
    std::size_t used;
  };

  void addBlock();
  // Where the next record goes.
  std::uint32_t* recordStart();

  // Records of 32-bit numbers: the target, the set of seats that change, kinds if the form says so, and the
  // words of the pieces that stand on changed seats, in ascending order. None is cut by the end of a block.
  // Blocks never move, and each is as large as all before it.
  std::vector<Block> blocks;
  std::size_t room = 0;  // of all blocks
  std::size_t blocksInUse = 0;
  std::vector<Form> forms;  // by sample
  std::size_t pieces = 0;
  Table<Row, 2> recent;  // the last two samples, each in turn
  std::int32_t newest = 0;
};

}  // namespace quorvane

#endif  // QUORVANE_LEARNING_SAMPLE_SET_H_
