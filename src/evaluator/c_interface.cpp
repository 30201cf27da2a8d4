#include <algorithm>
#include <cstring>
#include <exception>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "board/castled_guess.h"
#include "configurations/bit_names.h"
#include "configurations/position_type.h"
#include "evaluator/given_position.h"
#include "evaluator/learned_network.h"
#include "evaluator/steepness.h"
#include "evaluator/word_cache.h"
#include "network/fingerprint.h"
#include "network/strict_network.h"
#include "quorvane/evaluator.h"

using namespace quorvane;
using namespace quorvane::evaluator;

struct quorvane_network {
  LearnedNetwork learned;
  std::string name;
  std::string fingerprint;
};

struct quorvane_cache {
  WordCache words;
  const LearnedNetwork& learned;
};

struct quorvane_calibration {
  Steepness steepness;
};

namespace {

void putText(std::string_view text, char* place, std::size_t size) {
  if (place == nullptr || size == 0) return;
  const std::size_t length = std::min(text.size(), size - 1);
  std::memcpy(place, text.data(), length);
  place[length] = '\0';
}

// Without an allocation, which might fail.
void putFault(std::string_view file, std::string_view reason, char* place, std::size_t size) {
  if (place == nullptr) return;
  for (const std::string_view part : {file, std::string_view(": "), reason}) {
    putText(part, place, size);
    const std::size_t length = std::min(part.size(), size == 0 ? 0 : size - 1);
    place += length;
    size -= length;
  }
}

// By a network's own patterns or by a cache.
template <typename Source>
int evaluateFrom(Source& source, const quorvane_position& position, double& value) {
  PositionSets sets;
  const quorvane_status status = readPosition(position, sets);
  if (status == QUORVANE_OK) value = evaluate(sets, describe(sets), source);
  return status;
}

template <typename Source>
int evaluateFrom(Source& source, const char* fen, double& value) {
  quorvane_position position;
  const quorvane_status status = readFen(fen, position);
  return status == QUORVANE_OK ? evaluateFrom(source, position, value) : status;
}

bool isType(int type) {
  return type >= 0 && type < positionTypeCount;
}

// What open(file) gives, which puts the name of the file that it opens into `file`; null where it throws,
// with the file and the reason as text.
template <typename Open>
auto openedBy(Open open, char* error, std::size_t error_size) noexcept
    -> decltype(open(std::declval<std::string&>())) {
  std::string file;
  try {
    return open(file);
  } catch (const std::bad_alloc&) {
    putText(quorvane_status_text(QUORVANE_OUT_OF_MEMORY), error, error_size);
  } catch (const std::exception& fault) {
    putFault(file, fault.what(), error, error_size);
  } catch (...) {
    putFault(file, "cannot be read", error, error_size);
  }
  return nullptr;
}

constexpr std::pair<quorvane_status, const char*> statusTexts[] = {
    {QUORVANE_OK, "nothing is wrong"},
    {QUORVANE_NULL_POINTER, "a pointer is null that may not be"},
    {QUORVANE_OUT_OF_MEMORY, "memory has run out"},
    {QUORVANE_FEN_BOARD, "the board of the FEN is not made of 8 ranks of 8 files"},
    {QUORVANE_FEN_SIDE, "the side to move of the FEN is neither w nor b"},
    {QUORVANE_FEN_CASTLING, "the castling field of the FEN is neither - nor made of letters such as KQkq"},
    {QUORVANE_FEN_EN_PASSANT, "the en passant field of the FEN is neither - nor a square"},
    {QUORVANE_PIECE_COUNT,
     "there are more than 16 pieces on a side, or their count is no number from 0 to 32"},
    {QUORVANE_PIECE_UNKNOWN, "a piece is none of the twelve"},
    {QUORVANE_SQUARE_RANGE, "a square is not on the board"},
    {QUORVANE_SQUARE_TAKEN, "two pieces stand on one square"},
    {QUORVANE_KING_COUNT, "a side does not have exactly one king"},
    {QUORVANE_PAWN_ON_LAST_RANK, "a pawn stands on its last rank"},
    {QUORVANE_SIDE_UNKNOWN, "the side to move is neither White nor Black"},
    {QUORVANE_NO_CURVE, "the calibration has no curve for positions of this type"},
};

}  // namespace

const char* quorvane_version() noexcept {
  return QUORVANE_VERSION;
}

const char* quorvane_status_text(int status) noexcept {
  for (const auto& [known, text] : statusTexts) {
    if (known == status) return text;
  }
  return "unknown status";
}

quorvane_network* quorvane_network_open(const char* path, char* error, size_t error_size) noexcept {
  if (path == nullptr) {
    putText(quorvane_status_text(QUORVANE_NULL_POINTER), error, error_size);
    return nullptr;
  }
  return openedBy(
      [path](std::string& file) {
        file = path;
        const NetworkTable table = readStrictly(file);
        // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): openedBy catches it
        return new quorvane_network{LearnedNetwork(table), file, fingerprintOf(table)};
      },
      error, error_size);
}

void quorvane_network_close(quorvane_network* network) noexcept {
  delete network;
}

int quorvane_network_knows(const quorvane_network* network, int type) noexcept {
  return network != nullptr && isType(type) && network->learned.knows(type) ? 1 : 0;
}

int quorvane_network_knows_position(const quorvane_network* network,
                                    const quorvane_position* position) noexcept {
  int type = 0;
  return quorvane_position_type(position, &type) == QUORVANE_OK ? quorvane_network_knows(network, type) : 0;
}

quorvane_cache* quorvane_cache_new(const quorvane_network* network) noexcept {
  if (network == nullptr) return nullptr;
  try {
    return new quorvane_cache{WordCache(network->learned), network->learned};
  } catch (...) {
    return nullptr;
  }
}

void quorvane_cache_free(quorvane_cache* cache) noexcept {
  delete cache;
}

int quorvane_read_fen(const char* fen, quorvane_position* position) noexcept {
  if (fen == nullptr || position == nullptr) return QUORVANE_NULL_POINTER;
  return readFen(fen, *position);
}

int quorvane_guess_castled(quorvane_position* position) noexcept {
  if (position == nullptr) return QUORVANE_NULL_POINTER;
  PositionSets sets;
  const quorvane_status status = readPosition(*position, sets);
  if (status != QUORVANE_OK) return status;
  position->white_castled = looksCastled(sets.pieces, white) ? 1 : 0;
  position->black_castled = looksCastled(sets.pieces, black) ? 1 : 0;
  return QUORVANE_OK;
}

int quorvane_position_type(const quorvane_position* position, int* type) noexcept {
  if (position == nullptr || type == nullptr) return QUORVANE_NULL_POINTER;
  PositionSets sets;
  const quorvane_status status = readPosition(*position, sets);
  if (status == QUORVANE_OK)
    *type = positionTypeOf(countsOf(sets.pieces[white]), countsOf(sets.pieces[black]));
  return status;
}

int quorvane_evaluate(const quorvane_network* network, const quorvane_position* position,
                      double* value) noexcept {
  if (network == nullptr || position == nullptr || value == nullptr) return QUORVANE_NULL_POINTER;
  return evaluateFrom(network->learned, *position, *value);
}

int quorvane_evaluate_fen(const quorvane_network* network, const char* fen, double* value) noexcept {
  if (network == nullptr || fen == nullptr || value == nullptr) return QUORVANE_NULL_POINTER;
  return evaluateFrom(network->learned, fen, *value);
}

int quorvane_evaluate_cached(quorvane_cache* cache, const quorvane_position* position,
                             double* value) noexcept {
  if (cache == nullptr || position == nullptr || value == nullptr) return QUORVANE_NULL_POINTER;
  return evaluateFrom(cache->words, *position, *value);
}

int quorvane_evaluate_fens(quorvane_cache* cache, const char* const* fens, size_t count, double* values,
                           size_t* done) noexcept {
  if (done != nullptr) *done = 0;
  if (cache == nullptr || ((fens == nullptr || values == nullptr) && count != 0))
    return QUORVANE_NULL_POINTER;
  size_t at = 0;
  int status = QUORVANE_OK;
  for (; at < count; ++at) {
    status =
        fens[at] == nullptr ? int{QUORVANE_NULL_POINTER} : evaluateFrom(cache->words, fens[at], values[at]);
    if (status != QUORVANE_OK) break;
  }
  if (done != nullptr) *done = at;
  return status;
}

int quorvane_explain(const quorvane_network* network, const quorvane_position* position,
                     quorvane_explanation* explanation) noexcept {
  if (network == nullptr || position == nullptr || explanation == nullptr) return QUORVANE_NULL_POINTER;
  PositionSets sets;
  const quorvane_status status = readPosition(*position, sets);
  if (status != QUORVANE_OK) return status;
  const PositionWords described = describe(sets);
  *explanation = {};
  explanation->value = evaluate(sets, described, network->learned);
  explanation->type = described.type;
  for (const Square square : Squares(described.occupied)) {
    const Side side = (sets.pieces.ofSide(white) & setOf(square)) != 0 ? white : black;
    std::int32_t kind = 0;
    while ((sets.pieces[side][kind] & setOf(square)) == 0) ++kind;
    auto& piece = explanation->pieces[explanation->count++];
    piece.word = described.words[square];
    piece.value = network->learned.valueOf(described.type, kind, piece.word);
    piece.piece = static_cast<std::uint8_t>(side == white ? kind : kind + QUORVANE_BLACK_PAWN);
    piece.square = static_cast<std::uint8_t>(square);
  }
  return QUORVANE_OK;
}

quorvane_calibration* quorvane_calibration_open(const quorvane_network* network, const char* path,
                                                char* error, size_t error_size) noexcept {
  if (network == nullptr) {
    putText(quorvane_status_text(QUORVANE_NULL_POINTER), error, error_size);
    return nullptr;
  }
  return openedBy(
      [=](std::string& file) {
        file = path != nullptr ? path : calibrationBeside(network->name);
        // NOLINTNEXTLINE(bugprone-unhandled-exception-at-new): openedBy catches it
        return new quorvane_calibration{readSteepness(file, network->fingerprint)};
      },
      error, error_size);
}

void quorvane_calibration_close(quorvane_calibration* calibration) noexcept {
  delete calibration;
}

int quorvane_pawns(quorvane_cache* cache, const quorvane_calibration* calibration,
                   const quorvane_position* position, double* pawns) noexcept {
  if (cache == nullptr || position == nullptr || pawns == nullptr) return QUORVANE_NULL_POINTER;
  PositionSets sets;
  const quorvane_status status = readPosition(*position, sets);
  if (status != QUORVANE_OK) return status;
  const PositionWords described = describe(sets);
  std::optional<double> steepness;
  if (cache->learned.knows(described.type))
    steepness = calibration != nullptr ? calibration->steepness[described.type] : usualSteepness;
  *pawns = pawnsOf(sets, steepness, evaluate(sets, described, cache->words));
  return QUORVANE_OK;
}

int quorvane_pawns_fen(quorvane_cache* cache, const quorvane_calibration* calibration, const char* fen,
                       double* pawns) noexcept {
  if (cache == nullptr || fen == nullptr || pawns == nullptr) return QUORVANE_NULL_POINTER;
  quorvane_position position;
  const quorvane_status status = readFen(fen, position);
  return status == QUORVANE_OK ? quorvane_pawns(cache, calibration, &position, pawns) : status;
}

int quorvane_expected_score(const quorvane_calibration* calibration, int type, double value,
                            double* score) noexcept {
  if (calibration == nullptr || score == nullptr) return QUORVANE_NULL_POINTER;
  if (!isType(type) || !calibration->steepness[type]) return QUORVANE_NO_CURVE;
  *score = expectedScore(*calibration->steepness[type], value);
  return QUORVANE_OK;
}

const char* quorvane_feature_name(int type, int piece, int bit) noexcept {
  const int kind = piece & 7;
  const bool exists =
      isType(type) && piece >= 0 && piece < 16 && kind < pieceKindCount && bit >= 0 && bit < 32;
  return exists ? featureName(type, kind, ConfigurationWord{1} << bit) : nullptr;
}

const char* quorvane_type_name(int type) noexcept {
  return isType(type) ? typeName(type) : nullptr;
}
