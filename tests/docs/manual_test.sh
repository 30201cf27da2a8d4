#!/usr/bin/env bash
# manual_test.sh PROJECT INSPECT: quorvane-inspect(1) and the completion against what the inspector's --help tells,
# quorvane-learn(1) against readme.txt, quorvane-evaluator(3) against the header. INSPECT is empty where it was not built.
# Prints what goes wrong.
set -u

project=$(realpath "$1")
inspect=${2:+$(realpath "$2")}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
command -v mandoc >/dev/null || { echo 'mandoc is not here'; exit 77; }

fail() { echo "$1" | tee -a failures; }
page() { MANWIDTH=80 mandoc -Tascii "$project/man/$1" | sed "s/.\x08//g"; }

# Whether the pages of this folder are installed as well is not asked.
mandoc -Tlint "$project"/man/*.[13] | grep -v 'referenced manual not found: Xr quorvane-' >lint && fail "$(cat lint)"

# What readme.txt says, sentence by sentence, quorvane-learn(1) says too, but for headings, tables and ./run.
flat() { tr -s ' \t\n' ' ' | tr '[:upper:]' '[:lower:]'; }
page quorvane-learn.1 | sed -E 's/^ *[+o]  +//' | flat >learn
sed -E 'N; /\n(===|---)/d; P; D' "$project/readme.txt" | sed -E '/^   type/d; s/^   - //' | flat |
  sed 's/\([.:;!]\) /\1\n/g' | grep -v '\./run' |
  while read -r sentence; do
    grep -qF -- "$sentence" learn || echo "$sentence"
  done >missing
[ ! -s missing ] || fail "quorvane-learn(1) lacks: $(cat missing)"

# What the header declares, quorvane-evaluator(3) has, and its example compiles.
header=$project/include/quorvane/evaluator.h
declared() { tr -s ' \n' ' ' | grep -oE '[a-z][a-z_ ]*[ *]+quorvane_[a-z_]+\([^)]*\)' | sed -E 's/ *\* */*/g' | sort; }
sed '/^#/d; s/QUORVANE_[A-Z]* *//g' "$header" | declared >in_header
page quorvane-evaluator.3 | sed -n '/^SYNOPSIS/,/^DESCRIPTION/p' | sed '/#include/d' | declared >on_page
[ "$(wc -l <in_header)" -ge 16 ] || fail 'the header has no declarations'
diff in_header on_page >differences || fail "quorvane-evaluator(3) and the header part: $(cat differences)"
sed -n '/^enum quorvane_status/,/^}/s/^  \(QUORVANE_[A-Z_]*\) =.*/\1/p' "$header" >statuses
sed -n 's/^\.It Dv \(QUORVANE_[A-Z_]*\)$/\1/p' "$project/man/quorvane-evaluator.3" | diff statuses - ||
  fail 'quorvane-evaluator(3) lacks a status'
page quorvane-evaluator.3 | sed -n '/^EXAMPLES/,/^SEE ALSO/p' | sed '1,/:$/d; /^SEE/d' >example.c
cc -std=c99 -Wall -Wextra -Werror -fsyntax-only -I "$project/include" example.c 2>errors || fail "$(cat errors)"

# What the inspector knows, its page and its completion know, and nothing else.
# shellcheck source=/dev/null
source "$project/completions/quorvane-inspect"
# complete WORD...: what is offered for the last of the words, one a line, in order.
complete_words() {
  COMP_WORDS=(quorvane-inspect "$@")
  COMP_CWORD=$#
  _quorvane_inspect
  printf '%s\n' "${COMPREPLY[@]}" | sort
}
same() { [ "$2" = "$3" ] || fail "$1: '$(paste -sd' ' <<<"$2")' instead of '$(paste -sd' ' <<<"$3")'"; }
help_options() { "$inspect" "$@" --help | grep -oE '^ *-[-a-z,]+' | tr -d ' ' | tr , '\n' | sort; }
# The options below a heading of the page.
page_options() {
  awk -v heading=".Ss $1" '/^\.S[hs] / { here = $0 == heading } here && sub(/^\.It Fl /, "")' \
    "$project/man/quorvane-inspect.1" |
    grep -oE '(^|, Fl )(Fl )?[-a-z]+' | sed -E 's/^, Fl //; s/^Fl /--/; s/^([a-z])/-\1/'
}
if [ -n "$inspect" ]; then
  commands=$("$inspect" --help | sed -n '/^Subcommands:/,$s/^  \([a-z]*\) .*/\1/p')
  [ "$(wc -l <<<"$commands")" -ge 6 ] || fail 'the help has no commands'
  same 'completed commands' "$(complete_words '' | grep -v '^-')" "$(sort <<<"$commands")"
  same 'completed options' "$(complete_words -)" "$(help_options)"
  for command in $commands; do
    same "completed options of $command" "$(complete_words "$command" -)" "$(help_options "$command")"
    on_page=$({ page_options "$command"; page_options Everywhere | grep -v version; } | sort)
    same "options of $command on the page" "$on_page" "$(help_options "$command")"
  done
  kinds=$("$inspect" show --help | grep -oE '\{[a-z,]+\}' | tr -d '{}' | tr , '\n' | sort)
  same 'completed kinds' "$(complete_words show --kind '')" "$kinds"
  same 'completed kinds behind =' "$(complete_words show --kind = k)" $'king\nknight'
fi

mkdir 'more games'
touch network.dat 'my games.pgn' b.PGN notes.txt
same 'games' "$(complete_words games '')" $'b.PGN\nmore games\nmy games.pgn'
same 'a network' "$(complete_words show '')" $'more games\nnetwork.dat'
same 'games of a report' "$(complete_words report -o r.html --validate b.PGN m)" $'more games\nmy games.pgn'
same 'any file' "$(complete_words games notes)" notes.txt
same 'the network, then games, of compare' "$(complete_words compare network.dat network.dat my)" 'my games.pgn'
same 'a number' "$(complete_words explain --ply '')" ''

[ ! -e failures ]
