#ifndef QUORVANE_INSPECT_ARGUMENTS_H_
#define QUORVANE_INSPECT_ARGUMENTS_H_

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "board/types.h"
#include "network/network_file.h"

namespace quorvane::inspect {

// What the command line says; each command uses its share.
struct Arguments {
  std::string network = networkFileName;
  std::string otherNetwork;  // of compare
  bool json = false;
  std::vector<std::string> files;  // of games

  // show
  std::optional<PositionType> type;
  std::string kind;
  std::size_t top = 20;

  // explain
  std::string fen;
  std::string fens;  // a file with one FEN a line, "-" for standard input
  bool lenient = false;
  bool guessCastling = false;
  std::string gameFile;
  std::int32_t game = 1;
  std::int32_t ply = 0;
  std::optional<std::size_t> topOfPiece;
  bool all = false;

  std::string calibration;  // read, but by validate written
  std::string curves;       // read by validate

  std::uint64_t nodes = 0;  // of explain and annotate: to search behind each position; 0 for none

  // report, annotate
  std::string output;

  // annotate
  bool force = false;

  // report
  std::vector<std::string> learnedFrom;
};

}  // namespace quorvane::inspect

#endif  // QUORVANE_INSPECT_ARGUMENTS_H_
