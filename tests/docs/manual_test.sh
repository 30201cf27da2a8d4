#!/usr/bin/env bash
# manual_test.sh PROJECT BUILD INSPECT: the manual pages, quorvane-evaluator(3) against the header, and what completion
# offers. INSPECT is empty where it was not built. Prints what goes wrong.
set -u

project=$(realpath "$1") build=$(realpath "$2")
inspect=${3:+$(realpath "$3")}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
command -v mandoc >/dev/null || { echo 'mandoc is not here'; exit 77; }

fail() { echo "$1" | tee -a failures; }
same() { [ "$2" = "$3" ] || fail "$1: '$(paste -sd' ' <<<"$2")' instead of '$(paste -sd' ' <<<"$3")'"; }

# Whether the pages are installed is not asked, and sentences made from other texts go on where they are.
pages=("$build/quorvane-learn.1" "$project/man/quorvane-evaluator.3" "$build/src/play/quorvane-play.1" ${inspect:+"${inspect%/*}/quorvane-inspect.1"})
mandoc -Tlint "${pages[@]}" | grep -vE 'not found: Xr quorvane-|new sentence, new line|longer than 80' >lint && fail "$(cat lint)"
[ -z "$inspect" ] || same 'options on the page' "$(grep -c '^\.It Li "-' "${pages[3]}")" \
  "$(for command in show explain validate compare games annotate report; do "$inspect" $command --help; done | grep -c '^ *-')"

# What the header declares, quorvane-evaluator(3) has, and its example compiles.
header=$project/include/quorvane/evaluator.h
page() { MANWIDTH=80 mandoc -Tascii "${pages[1]}" | sed "s/.\x08//g"; }
declared() { tr -s ' \n' ' ' | grep -oE '[a-z][a-z_ ]*[ *]+quorvane_[a-z_]+\([^)]*\)' | sed -E 's/ *\* */*/g' | sort; }
same declarations "$(page | sed -n '/^SYNOPSIS/,/^DESCRIPTION/p' | sed '/#include/d' | declared)" \
  "$(sed '/^#/d; s/QUORVANE_[A-Z]* *//g' "$header" | declared)"
same statuses "$(sed -n 's/^\.It Dv \(QUORVANE_[A-Z_]*\)$/\1/p' "${pages[1]}")" \
  "$(sed -n '/^enum quorvane_status/,/^}/s/^  \(QUORVANE_[A-Z_]*\) =.*/\1/p' "$header")"
page | sed -n '/^EXAMPLES/,/^SEE ALSO/p' | sed '1,/:$/d; /^SEE/d' >example.c
cc -std=c99 -Wall -Wextra -Werror -fsyntax-only -I "$project/include" example.c 2>errors || fail "$(cat errors)"

# completes FUNCTION PROGRAM EXPECTED WORD...: what completion offers for the last of the words, in order.
# shellcheck source=/dev/null
source "$project/completions/quorvane-inspect"
# shellcheck source=/dev/null
source "$project/completions/quorvane-play"
completes() {
  local complete=$1 program=$2 expected=$3
  shift 3
  COMP_WORDS=("${program##*/}" "$@")
  COMP_CWORD=$#
  "$complete" "$program"
  same "$*" "$(printf '%s\n' "${COMPREPLY[@]}" | sort)" "$expected"
  COMPREPLY=()
}
offered() { completes _quorvane_inspect "$inspect" "$@"; }
played() { completes _quorvane_play "$build/src/play/quorvane-play" "$@"; }
mkdir 'more games'
touch network.dat 'my games.pgn' b.PGN notes.txt c.json
if [ -n "$inspect" ]; then
  offered $'explain' e
  offered $'--help\n--version' --
  offered $'--calibration\n--force\n--help\n--network\n--nodes\n--output\n-h\n-o' annotate -
  offered $'king\nknight' show --kind = k
  offered '' explain --ply ''
fi
offered $'b.PGN\nmore games\nmy games.pgn' games ''
offered $'more games\nmy games.pgn' report -o r.html --validate b.PGN m
offered $'c.json\nmore games' validate b.PGN --curves ''
offered notes.txt games notes
offered 'network.dat' compare n

played $'--help\n--version\nbench\nmatch' ''
played $'--calibration\n--network\n--nodes' bench -
played $'--pairs\n--pgn\n--plies' match a.dat b.dat --p
played $'material\nmore games' match m
played '' match a.dat b.dat --nodes ''
played $'b.PGN\nmore games\nmy games.pgn' match a.dat b.dat --pgn ''

[ ! -e failures ]
