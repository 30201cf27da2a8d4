#!/usr/bin/env bash
# hostile_test.sh PROGRAM: whatever the program is given to read, and wherever it writes, it ends with status 0, says
# nothing on standard error, and keeps the special rows of network.dat. Prints what does not.
set -u

program=$(realpath "$1")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1

repeat() { yes "$1" | head -n "$2" | tr -d '\n'; }
fail() { echo "$name: $1" | tee -a failures; }

# A run without games drops the learned rows, and leaves the special ones in their written order.
forget() { printf 'none no' | "$program" >forgotten; }
{
  printf '\1\0\0\0'
  for row in 0 1 2 3 4 5; do printf %b "\0\0\0\0\1\0\0\0\\$row\0\0\0\\$row\1\0\0\0\0\0\0\0\0\300\177\1\0\0\0"; done
} >network.dat
forget
cp network.dat special

# run NAME GAMES [COMMAND...]: the program, or the command that runs it, with the file answers as its input. GAMES is how
# many games it has to process, - where the output does not tell.
run() {
  name=$1
  local games=$2 dots
  shift 2
  cp special network.dat
  "${@:-$program}" <answers >output 2>errors || fail "status $?"
  [ ! -s errors ] || fail "$(head -c 300 errors)"
  # The line ends with a dot of its own.
  dots=$(grep -a '^Processing' output | cut -d: -f2 | tr -cd . | wc -c)
  [ "$games" = - ] || [ "$dots" -eq $((games + 1)) ] || fail "$((dots - 1)) games instead of $games"
  cp network.dat saved
  forget
  cmp -s network.dat special || fail "the special rows are lost"
}
# read_games NAME GAMES: standard input as a file of games.
read_games() {
  cat >games.pgn
  printf 'games.pgn\nno\n' >answers
  run "$@"
}

game='[x] 1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. O-O Be7 6. Re1 b5 1-0 '
for opening in '{' '(' '<' '['; do
  { printf '%s' "$game"; printf %s "$opening"; repeat "a $opening 1-0 " 300000; } | read_games "unclosed $opening" 1
done
{ printf '%s 12 ' "$game"; repeat '1 e4 1-0 ' 300000; } | read_games 'digits without a period' 1
{ printf '%s' "$game"; repeat 1 3000000; } | read_games 'a number of megabytes' 1
{ printf '%s' "$game"; repeat 'e4+' 1000000; } | read_games 'a token of megabytes' 1
{ printf '%s' "$game"; repeat '[Event "x"]' 300000; printf '%s' "$game"; } | read_games 'hundreds of thousands of tags' 2
repeat '[x] e4 1-0 ' 100000 | read_games 'a hundred thousand games' 100000
repeat '[FEN "4k3/8/8/8/8/8/8/4K3 w"] ' 50000 | read_games 'nothing but starts' 0
# NUL bytes are no white space: the fourth game's tag is a token of the third.
{ repeat "$game" 3; head -c 1000000 /dev/zero; repeat "$game" 3; } | read_games 'NUL bytes' 5
head -c 2000000 /dev/urandom | tr '[{(<' '____' | read_games 'random bytes' -
mkdir folder
: >empty
printf '%s\n' folder / empty missing "$work/missing/too" no >answers
run 'folders and missing files' 0
printf %s "$game" >games.pgn
{ repeat x 3000000; printf '\n'; head -c 300000 /dev/urandom | tr '\n' x; printf '\ngames.pgn\nno'; } >answers
run 'answers of megabytes' 1

# Whoever reads the output, the same is learned.
printf '%s\n' games.pgn games.pgn no >answers
run learning 2
cp saved learned
! cmp -s learned special || fail "no pattern was found"
closed_output() { "$program" >&-; }
full_output() { "$program" >/dev/full; }
closed_pipe() { ("$program"; echo $? >status) | true; return "$(cat status)"; }
for way in closed_output full_output closed_pipe; do
  run "$way" - "$way"
  cmp -s saved learned || fail 'nothing was learned'
done

# A limit on the size of files is a full disk.
limited() { (ulimit -f 1 && "$program"); }
run 'files that may not grow' - limited
cmp -s saved special || fail 'the network has changed'
! grep Error output || fail 'a message'

[ ! -e failures ]
