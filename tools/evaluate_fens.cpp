// evaluate_fens NETWORK: prints for each line of standard input, a FEN, all that the evaluator says of it:
// the value to its last digit, type, words and worths of the pieces, or what is wrong. Shows that machines
// agree.

#include <cstdio>
#include <iostream>
#include <string>

#include "quorvane/evaluator.h"

namespace {

void print(const quorvane_explanation& explanation) {
  std::printf("%.17g, type %d:", explanation.value, static_cast<int>(explanation.type));
  for (std::int32_t i = 0; i < explanation.count; ++i) {
    const auto& piece = explanation.pieces[i];
    std::printf(" %d:%d:%08lx:%.17g", piece.piece, piece.square, static_cast<unsigned long>(piece.word),
                piece.value);
  }
  std::printf("\n");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  char error[200];
  quorvane_network* const network = quorvane_network_open(arguments[1], error, sizeof error);
  if (network == nullptr) {
    std::fprintf(stderr, "%s\n", error);
    return 1;
  }
  for (std::string fen; std::getline(std::cin, fen);) {
    quorvane_position position;
    quorvane_explanation explanation;
    int status = quorvane_read_fen(fen.c_str(), &position);
    if (status == QUORVANE_OK) status = quorvane_explain(network, &position, &explanation);
    if (status == QUORVANE_OK) {
      print(explanation);
    } else {
      std::printf("%s\n", quorvane_status_text(status));
    }
  }
  quorvane_network_close(network);
  return 0;
}
