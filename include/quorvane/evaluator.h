/* What quorvane-learn has learned, for programs: reads a network.dat and evaluates positions by it.
 *
 * Plain C99, to be called from C, C++ and whatever calls C. Nothing is kept but what the caller holds: a
 * network does not change once it is open and may be used by any number of threads at once; a cache belongs
 * to one thread at a time. No function prints, exits, or lets an exception out.
 *
 * Functions that can fail give one of quorvane_status, which quorvane_status_text puts into words, and touch
 * what they should fill only if they succeed.
 *
 * A value is what the side to move may expect, in the unit in which the network was learned: mostly 40 to 100
 * at the end of a game that is won, more if the material was less even through the game, less the further off
 * the end is; 0 for a draw, and the same below zero for a loss. There is no greatest value. It is no number
 * of pawns: quorvane_pawns makes one of it, with the material added, which a chess program that searches
 * needs; a value alone is for judging quiet positions. */
#ifndef QUORVANE_EVALUATOR_H_
#define QUORVANE_EVALUATOR_H_

#include <stddef.h>
#include <stdint.h>

#if defined(QUORVANE_STATIC)
#define QUORVANE_API
#elif defined(_WIN32)
#if defined(QUORVANE_BUILDING)
#define QUORVANE_API __declspec(dllexport)
#else
#define QUORVANE_API __declspec(dllimport)
#endif
#elif defined(__GNUC__)
#define QUORVANE_API __attribute__((visibility("default")))
#else
#define QUORVANE_API
#endif

#if defined(__cplusplus)
#define QUORVANE_NOEXCEPT noexcept
extern "C" {
#else
#define QUORVANE_NOEXCEPT
#endif

/* The version of the library, "4" or "4.1"; those of one first number fit each other. Lives as long as the
 * program. */
QUORVANE_API const char* quorvane_version(void) QUORVANE_NOEXCEPT;

/* Why a call failed. New reasons may come, with higher numbers. */
enum quorvane_status {
  QUORVANE_OK = 0,
  QUORVANE_NULL_POINTER = 1,  /* an argument that may not be null is */
  QUORVANE_OUT_OF_MEMORY = 2, /* no call gives this one as yet; quorvane_network_open says its text */
  QUORVANE_FEN_BOARD = 3,     /* the first field of the FEN is not 8 ranks of 8 files */
  QUORVANE_FEN_SIDE = 4,      /* the second field of the FEN is not "w" or "b" */
  QUORVANE_FEN_CASTLING = 5, /* the third field is not "-", nor made of the letters that stand for castling */
  QUORVANE_FEN_EN_PASSANT = 6,     /* the fourth field is not "-", nor a square */
  QUORVANE_PIECE_COUNT = 7,        /* fewer than 0 or more than 32 pieces, or more than 16 of a side */
  QUORVANE_PIECE_UNKNOWN = 8,      /* a piece is none of quorvane_piece */
  QUORVANE_SQUARE_RANGE = 9,       /* a square is not 0 to 63 */
  QUORVANE_SQUARE_TAKEN = 10,      /* two pieces stand on one square */
  QUORVANE_KING_COUNT = 11,        /* a side has no king, or more than one */
  QUORVANE_PAWN_ON_LAST_RANK = 12, /* a white pawn on rank 8 or a black one on rank 1 */
  QUORVANE_SIDE_UNKNOWN = 13,      /* the side to move is neither QUORVANE_WHITE nor QUORVANE_BLACK */
  QUORVANE_NO_CURVE = 14           /* the calibration has no curve for positions of this type */
};

/* The status in words, "two pieces stand on one square"; "unknown status" for a number that is none. Lives as
 * long as the program. */
QUORVANE_API const char* quorvane_status_text(int status) QUORVANE_NOEXCEPT;

/* ---- Networks and caches ---- */

typedef struct quorvane_network quorvane_network;

/* Reads the network file `path`, UTF-8, whole and strictly: what quorvane-learn has learned is taken, a file
 * that is cut short or damaged, or has a weight that is no finite number, is not. Null on failure, with the
 * file and the reason in `error`, one line ("network.dat: cannot be opened: No such file or directory"), cut
 * to `error_size` bytes with the NUL behind it; `error` may be null if `error_size` is 0. The caller closes
 * the network. */
QUORVANE_API quorvane_network* quorvane_network_open(const char* path, char* error,
                                                     size_t error_size) QUORVANE_NOEXCEPT;

/* Frees the network; nothing happens with null. Its caches go first. */
QUORVANE_API void quorvane_network_close(quorvane_network* network) QUORVANE_NOEXCEPT;

/* 1 if the network has patterns for positions of `type`, else 0: all of them are worth 0 then, as draws are.
 * */
QUORVANE_API int quorvane_network_knows(const quorvane_network* network, int type) QUORVANE_NOEXCEPT;

typedef struct quorvane_cache quorvane_cache;

/* A memory of words that were evaluated, which makes a search that meets the same pieces again several times
 * as fast and changes no value. About 1 MB, filled as it is used. One thread uses it at a time. The network
 * must stay open as long as the cache. Null if the network is null or memory has run out. The caller frees
 * it. */
QUORVANE_API quorvane_cache* quorvane_cache_new(const quorvane_network* network) QUORVANE_NOEXCEPT;
QUORVANE_API void quorvane_cache_free(quorvane_cache* cache) QUORVANE_NOEXCEPT;

/* ---- Positions ---- */

enum quorvane_side { QUORVANE_BLACK = 0, QUORVANE_WHITE = 1 };

enum quorvane_piece {
  QUORVANE_WHITE_PAWN = 0,
  QUORVANE_WHITE_KNIGHT = 1,
  QUORVANE_WHITE_BISHOP = 2,
  QUORVANE_WHITE_ROOK = 3,
  QUORVANE_WHITE_QUEEN = 4,
  QUORVANE_WHITE_KING = 5,
  QUORVANE_BLACK_PAWN = 8, /* black pieces: 8 more than the white ones */
  QUORVANE_BLACK_KNIGHT = 9,
  QUORVANE_BLACK_BISHOP = 10,
  QUORVANE_BLACK_ROOK = 11,
  QUORVANE_BLACK_QUEEN = 12,
  QUORVANE_BLACK_KING = 13
};

enum { QUORVANE_MAX_PIECES = 32 };

/* A position. Legal or not, it has a value if each side has one king and at most 16 pieces, no two pieces
 * stand on one square, and no pawn on its last rank. */
typedef struct quorvane_position {
  int32_t count; /* of the pieces, 0 to 32 */
  struct {
    uint8_t piece;               /* quorvane_piece */
    uint8_t square;              /* a1 = 0, b1 = 1, ... h8 = 63 */
  } pieces[QUORVANE_MAX_PIECES]; /* in any order */
  uint8_t side_to_move;          /* quorvane_side */
  uint8_t white_castled; /* not 0 if the side has castled earlier in the game, which a king is valued by; */
  uint8_t black_castled; /* 0 if it has not, or if nobody knows */
} quorvane_position;

/* Reads a FEN: at least its first two fields, with any white space between and around them. The third and the
 * fourth must be well formed if they are there, and what comes behind them, clocks or operations of an EPD,
 * is not looked at; none of it makes a difference to a value. A FEN does not tell who has castled: nobody. */
QUORVANE_API int quorvane_read_fen(const char* fen, quorvane_position* position) QUORVANE_NOEXCEPT;

/* Takes a side for one that has castled where it looks like it, and for one that has not where it does not:
 * with the king on g1 or c1, a rook of its own beside it towards the centre, and none on the corner of that
 * wing; the same for Black on the eighth rank. Nearer to the game than "nobody", for a FEN in the middle of
 * one. */
QUORVANE_API int quorvane_guess_castled(quorvane_position* position) QUORVANE_NOEXCEPT;

/* The type of a position by its material, 0 to 13; each type was learned on its own. */
QUORVANE_API int quorvane_position_type(const quorvane_position* position, int* type) QUORVANE_NOEXCEPT;

/* ---- Values ---- */

/* 1 if the network has patterns for the type of the position, else 0, also for what is no position: a value
 * of 0 is none then. A table lookup beside the evaluation. */
QUORVANE_API int quorvane_network_knows_position(const quorvane_network* network,
                                                 const quorvane_position* position) QUORVANE_NOEXCEPT;

/* The value of a position, as the side to move sees it. It is 0, with the status QUORVANE_OK, also where the
 * network has no patterns for the type of the position, mostly in endings of few pieces: no draw, but nothing
 * known. quorvane_network_knows_position tells the one from the other. */
QUORVANE_API int quorvane_evaluate(const quorvane_network* network, const quorvane_position* position,
                                   double* value) QUORVANE_NOEXCEPT;
QUORVANE_API int quorvane_evaluate_fen(const quorvane_network* network, const char* fen,
                                       double* value) QUORVANE_NOEXCEPT;

/* The same value, by the cache's network and through the cache. */
QUORVANE_API int quorvane_evaluate_cached(quorvane_cache* cache, const quorvane_position* position,
                                          double* value) QUORVANE_NOEXCEPT;

/* The values of `count` FENs, through the cache; `values` has room for them. Ends at the first that is none:
 * the status is that of this FEN, the values before it are filled in, and `*done`, if `done` is not null, is
 * how many these are. */
QUORVANE_API int quorvane_evaluate_fens(quorvane_cache* cache, const char* const* fens, size_t count,
                                        double* values, size_t* done) QUORVANE_NOEXCEPT;

/* What a position is worth, piece by piece. */
typedef struct quorvane_explanation {
  double value;  /* as quorvane_evaluate gives it: own pieces less those of the other side */
  int32_t type;  /* of the position */
  int32_t count; /* of the pieces */
  struct {
    double value;                /* what the piece is worth to its own side */
    uint32_t word;               /* its features, one bit each; quorvane_feature_name tells what they mean */
    uint8_t piece;               /* quorvane_piece */
    uint8_t square;              /* a1 = 0, h8 = 63 */
  } pieces[QUORVANE_MAX_PIECES]; /* in the order of their squares */
} quorvane_explanation;

QUORVANE_API int quorvane_explain(const quorvane_network* network, const quorvane_position* position,
                                  quorvane_explanation* explanation) QUORVANE_NOEXCEPT;

/* ---- Pawns and points ---- */

/* What values of one network mean, as `quorvane-inspect validate --calibration` has found it on games; it
 * does not change. */
typedef struct quorvane_calibration quorvane_calibration;

/* Reads the calibration file `path`, UTF-8, of the network; where `path` is null, the one beside it, that is
 * NETWORK.calibration.json. Null on failure, also if it is that of another network, with the reason in
 * `error` as quorvane_network_open gives it. Needs the network no longer. The caller closes it. */
QUORVANE_API quorvane_calibration* quorvane_calibration_open(const quorvane_network* network,
                                                             const char* path, char* error,
                                                             size_t error_size) QUORVANE_NOEXCEPT;

/* Frees the calibration; nothing happens with null. */
QUORVANE_API void quorvane_calibration_close(quorvane_calibration* calibration) QUORVANE_NOEXCEPT;

/* What a position is worth in pawns to the side to move, through the cache:
 *
 *     pawns = k value / 0.368208 + material
 *
 * with material as 1 3 3 5 9 and the k of the position's type from the calibration of the cache's network, or
 * 0.03 for all types if `calibration` is null; for a type without patterns, material alone. This is what a
 * search should ask for: games that a network is learned from hardly ever have a piece too few early on, so
 * that its value alone does not see one that is lost. */
QUORVANE_API int quorvane_pawns(quorvane_cache* cache, const quorvane_calibration* calibration,
                                const quorvane_position* position, double* pawns) QUORVANE_NOEXCEPT;
QUORVANE_API int quorvane_pawns_fen(quorvane_cache* cache, const quorvane_calibration* calibration,
                                    const char* fen, double* pawns) QUORVANE_NOEXCEPT;

/* What a value in positions of `type` means in points, from 0, lost, to 1, won: 1 / (1 + exp(-k value)).
 * QUORVANE_NO_CURVE if values of this type mean nothing. */
QUORVANE_API int quorvane_expected_score(const quorvane_calibration* calibration, int type, double value,
                                         double* score) QUORVANE_NOEXCEPT;

/* ---- Words ---- */

/* What bit `bit`, 0 to 31, of the word of `piece`, white or black, means in positions of `type`: "attacked by
 * a knight". Null if no such piece ever has it, or if an argument is out of range. Lives as long as the
 * program. */
QUORVANE_API const char* quorvane_feature_name(int type, int piece, int bit) QUORVANE_NOEXCEPT;

/* What a type is, "material 70 and more"; null if it is not 0 to 13. Lives as long as the program. */
QUORVANE_API const char* quorvane_type_name(int type) QUORVANE_NOEXCEPT;

#if defined(__cplusplus)
}
#endif

#endif /* QUORVANE_EVALUATOR_H_ */
