/* How a chess program with a board of its own asks what positions are worth: own_board network.dat */
#include <quorvane/evaluator.h>
#include <stdio.h>
#include <string.h>

/* The program's own board: a1 first, h8 last, a dot where nothing stands. */
typedef struct {
  char squares[65];
  int white_to_move;
} board;

static double worth(quorvane_cache* cache, const board* b) {
  static const char letters[] = "PNBRQK..pnbrqk"; /* by quorvane_piece */
  quorvane_position position = {0};
  double value = 0.0;
  int status;
  for (int square = 0; square < 64; ++square) {
    if (b->squares[square] == '.') continue;
    position.pieces[position.count].piece = (uint8_t)(strchr(letters, b->squares[square]) - letters);
    position.pieces[position.count].square = (uint8_t)square;
    ++position.count;
  }
  position.side_to_move = b->white_to_move ? QUORVANE_WHITE : QUORVANE_BLACK;
  position.white_castled = position.black_castled = 1; /* what the program remembers of the game */
  status = quorvane_evaluate_cached(cache, &position, &value);
  if (status != QUORVANE_OK) fprintf(stderr, "%s\n", quorvane_status_text(status));
  return value;
}

int main(int count, char** arguments) {
  char error[200];
  quorvane_network* network; /* one for the program */
  quorvane_cache* cache;     /* one for each thread */
  board b = {"R.BQ.RK.PPP..PPP..NP.N....B.P.b...b.p.....np.n..ppp..pppr..q.rk.", 1};

  network = quorvane_network_open(count > 1 ? arguments[1] : "network.dat", error, sizeof error);
  if (network == NULL) {
    fprintf(stderr, "%s\n", error);
    return 1;
  }
  cache = quorvane_cache_new(network);
  printf("White to move: %+.2f\n", worth(cache, &b));
  b.squares[2] = '.'; /* Bg5 */
  b.squares[38] = 'B';
  b.white_to_move = 0;
  printf("after Bg5, Black to move: %+.2f\n", worth(cache, &b));

  quorvane_cache_free(cache);
  quorvane_network_close(network);
  return 0;
}
