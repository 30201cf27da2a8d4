#include "play/bench/bench.h"

#include <chrono>
#include <cstdio>

#include "files/file_name.h"
#include "play/search/search.h"

namespace quorvane::play {

namespace {

// Of games between masters, from the 12th ply to the 121st.
constexpr const char* positions[] = {
    "r1bq1rk1/pppnppbp/3p1np1/8/2PPP3/2N2N2/PP2BPPP/R1BQK2R w KQ - 3 7",
    "3r2k1/pB3pp1/P6p/4p3/2R5/4PPPb/1P1r3P/R5K1 b - - 0 25",
    "8/1p4k1/P4bp1/1P1p3p/3p3P/2rB2P1/4qPK1/3R4 w - - 0 44",
    "rnbq1rk1/ppp2pbp/3p1np1/4p3/2PPP3/2N2N2/PP2BPPP/R1BQ1RK1 b - - 1 7",
    "3r1nk1/ppr3p1/q2Np1pp/4P3/3R4/P3Q2P/1P3PP1/5RK1 w - - 0 26",
    "8/8/1Rk4p/P7/8/1b4P1/5P2/1r3BK1 b - - 4 44",
    "r3kbnr/pp1b1ppp/1qn1p3/3pP3/3P4/3B1N2/PP3PPP/RNBQK2R w KQkq - 1 8",
    "r3rk2/1pqb1p1Q/4pbB1/p7/2P2P2/7R/P5PP/3R3K b - - 0 26",
    "4r3/5kPp/4bp1B/1p6/7P/P1R5/5KP1/8 w - - 1 45",
    "r1bqkb1r/pp3ppp/2n1p3/3pPB2/3P4/5N2/PP3PPP/RNBQK2R b KQkq - 0 8",
    "r4rk1/1bp2pp1/3pPq1p/p1pP4/2n2P1N/P5P1/1P1Q2BP/R3R1K1 w - - 3 27",
    "8/5r2/4R1pk/p2P4/1p2P3/4KP2/P7/8 b - - 1 45",
    "r2qkb1r/1p2pppp/1np2n2/p3Nb2/P2P4/2N5/1P2PPPP/R1BQKB1R w KQkq - 0 9",
    "3rr1k1/p2qbpp1/1p5p/2pb4/6n1/1P3NPP/P1Q1RPB1/B3R1K1 b - - 0 27",
    "8/R4p2/4p1k1/3rb3/1B2p1p1/4P1P1/5PK1/8 w - - 6 46",
    "rnbq1rk1/ppp3bp/3p1pp1/4p3/2PPP1nB/2N2N2/PP2BPPP/R2QK2R b KQ - 1 9",
    "2r1r2k/p1q3pp/1pNp1p2/2nP4/2p1PP2/P5P1/1P1Q2KP/4RR2 w - - 6 28",
    "8/5pk1/4p1p1/2rpP3/R4P1p/3B3P/6P1/6K1 b - - 1 46",
    "rnb1k2r/pp2qpbp/5np1/4N3/2Pp4/6P1/PP1PNPBP/R1BQK2R w KQkq - 2 10",
    "r6k/p2n3p/1p1p2p1/2pP4/Q1P1Pp1q/2PN1P2/PR3R2/4K2n b - - 3 28",
    "r4k2/1pp4R/2p1bB2/P2nP3/8/4NPP1/2P4P/7K w - - 1 47",
    "r2qk2r/pp1bnppp/2nb4/1B1p3Q/3N4/5N2/PPP2PPP/R1B2RK1 b kq - 3 10",
    "2br2k1/2q2p1p/6p1/p1p1P3/Pb1p4/6PP/2Q1RPB1/3R2K1 w - - 0 29",
    "5k2/pp2R2p/4P3/4K3/8/8/PP1R3P/5r2 b - - 2 47",
    "r1bqkb1r/3n1pp1/p1p1p2p/1p1n4/3PN3/3B1N2/PPP2PPP/R1BQ1RK1 w kq - 0 11",
    "r3r1k1/1R3ppp/2p5/p1N1n3/8/7P/P1P3P1/1R4K1 b - - 1 29",
    "8/p7/2k1p3/r3Ppp1/2PK4/8/1R4PP/8 w - - 0 48",
    "rn1q1rk1/pb2bppp/1p2pn2/2p3B1/3PP3/2N2NP1/PP3PBP/R2QR1K1 b - - 1 11",
    "8/2k2N1p/r1p3p1/3ppp2/8/p2KP3/PR4PP/8 w - - 0 30",
    "8/8/p6r/8/8/P3k3/1PR5/1K6 b - - 16 48",
    "r2qkb1r/5p1p/p1np4/1p1Npb2/8/N7/PPP2PPP/R2QKB1R w KQkq - 0 12",
    "2Nr4/4k1pp/p1p3b1/2np2P1/7P/1P3R1B/P1P5/2K5 b - - 6 30",
    "8/5pk1/6p1/1PbN4/4P3/P2b2P1/1R5K/2r5 w - - 7 49",
    "r1bq1rk1/pp2pp1p/3p2pb/8/2PBP1n1/2N5/PP2BPPP/R2QK2R b KQ - 9 12",
    "4r2k/1p3pp1/8/Q2B4/6qP/P1N5/1P1r3P/5R1K w - - 3 31",
    "8/6kn/5p2/3R2p1/1b2PP1p/7P/6K1/8 b - - 0 49",
    "r1bq1rk1/pppn2bp/3p2n1/3Ppp2/2P2P2/2NN4/PP2B1PP/R1BQ1RK1 w - - 1 13",
    "7r/1k1n2b1/4p1p1/2P2pp1/N2p4/8/3K2PP/1R5R b - - 3 31",
    "8/8/7p/3Bk1K1/4P3/1P6/7r/8 w - - 0 50",
    "r2qk2r/2pb1pp1/p1p3np/4p1b1/4P3/2P1BN2/PP3PPP/R2QRNK1 b kq - 1 13",
};

}  // namespace

std::string benchText(const Knowledge& knowledge, std::uint64_t nodes) {
  constexpr std::int32_t megabytes = 16;
  TranspositionTable table(megabytes);
  Judge judge(knowledge);
  Search search(judge, table);
  Onlooker onlooker;
  Goal goal;
  goal.nodes = nodes;
  std::uint64_t total = 0;
  std::uint64_t signature = 0xcbf29ce484222325;  // FNV-1a, by words
  const auto begin = std::chrono::steady_clock::now();
  for (const char* const fen : positions) {
    table.clear();
    search.clear();
    const Finding found = search.run(Position(fen), {}, goal, onlooker);
    total += found.nodes;
    for (const std::uint64_t word :
         {found.nodes, static_cast<std::uint64_t>(found.score + mateScore),
          static_cast<std::uint64_t>(found.depth), std::uint64_t{packed(found.line[0])}}) {
      signature = (signature ^ word) * 0x100000001b3;
    }
  }
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
  char text[200];
  std::snprintf(text, sizeof text, "nodes      %llu\nper second %.0f\nsignature  %016llx\n",
                static_cast<unsigned long long>(total),
                static_cast<double>(total) / std::max(taken.count(), 1e-9),
                static_cast<unsigned long long>(signature));
  return "by         " + inOneLine(knowledge.name()) + (knowledge.isCalibrated() ? ", calibrated\n" : "\n") +
         text;
}

}  // namespace quorvane::play
