#!/usr/bin/env bash
# pgn_comparison.sh FILE.pgn: loads and replays the games of a file with the utility's own classes and with pgn-extract,
# three times by turns, and prints the least CPU time of each, of a plain read of the file, and the ratio.
set -euo pipefail

file=${1:?usage: pgn_comparison.sh FILE.pgn}
bench=$(dirname "${BASH_SOURCE[0]}")
program=$("$bench/build.sh" replay_games)
"$bench/../tools/install-packages" pgn-extract
PATH=$PATH:/usr/games # where Debian has it

"$program" "$file"
uptime # the load of the machine
TIMEFORMAT='%U %S'
for _ in 1 2 3; do
  echo "replay_games $({ time "$program" "$file" >/dev/null; } 2>&1)"
  echo "pgn-extract $({ time pgn-extract -s -r "$file" >/dev/null 2>&1; } 2>&1)"
  echo "plain-read $({ time cat "$file" >/dev/null; } 2>&1)"
done | awk '
  { seconds = $2 + $3; if (!($1 in least) || seconds < least[$1]) least[$1] = seconds }
  END {
    for (name in least) printf "%-12s %7.3f s\n", name, least[name]
    printf "%-12s %7.2f\n", "ratio", least["pgn-extract"] / least["replay_games"]
  }'
