#ifndef QUORVANE_PLAY_HELP_TEXT_H_
#define QUORVANE_PLAY_HELP_TEXT_H_

namespace quorvane::play {

inline constexpr const char* helpText = R"(Plays chess by what quorvane-learn has learned.

   quorvane-play
   quorvane-play bench [--network FILE] [--calibration FILE] [--nodes N]
   quorvane-play match A B [options]

Without arguments it speaks UCI with a chess window, and plays by network.dat in
the current folder or beside the program, else by material alone.

bench searches 40 positions and prints the nodes, their speed and a signature,
which is the same on every machine.

   --network FILE      the network; "material" for none
   --calibration FILE  what its values mean; else FILE.calibration.json beside it
   --nodes N           nodes for each position (50000)

match plays A against B and says which is stronger. Both are files of networks
or "material"; "uncalibrated:FILE" leaves the calibration aside, "alone:FILE"
material too. Each opening is played twice, with colours swapped, and no clock
is looked at: the same words give the same games everywhere.

   --openings FILE   games, of which the beginnings are taken, or positions as
                     FEN or EPD, one a line; without it 40 that masters play
   --plies N         how many plies of each game (16)
   --pairs N         how many openings (100, or as many as there are)
   --nodes N         nodes for each move (1000)
   --sprt ELO0 ELO1  ends when it is clear whether A is rather ELO0 or ELO1
                     stronger
   --pgn FILE        writes the games, with the score behind each move
   --json            prints a line of JSON
   --jobs N          so many pairs at once (1); the result is the same
   --without-a LIST  A searches without these devices, for measuring them; names
   --without-b LIST  with commas between: quiescence, transposition-table,
                     zero-windows, aspiration-windows, null-move,
                     late-move-reductions, late-move-pruning, reverse-futility,
                     futility, killer-moves, history, check-extension,
                     static-exchanges

   -h, --help        prints this
   --version         prints the version

The exit status is 0 if it is done, 1 if a file cannot be used, and 2 for wrong
usage; then standard error has the reason. Ctrl-C ends a match with what has
been played.
)";

}  // namespace quorvane::play

#endif  // QUORVANE_PLAY_HELP_TEXT_H_
