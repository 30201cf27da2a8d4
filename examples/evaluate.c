/* Prints what a position is worth: evaluate network.dat "FEN" */
#include <quorvane/evaluator.h>
#include <stdio.h>

int main(int count, char** arguments) {
  char error[200];
  double value;
  quorvane_network* network;
  int status;
  if (count != 3) return 2;
  network = quorvane_network_open(arguments[1], error, sizeof error);
  if (!network) return fprintf(stderr, "%s\n", error), 1;
  status = quorvane_evaluate_fen(network, arguments[2], &value);
  quorvane_network_close(network);
  if (status) return fprintf(stderr, "%s: %s\n", arguments[2], quorvane_status_text(status)), 1;
  printf("%+.2f\n", value);
  return 0;
}
