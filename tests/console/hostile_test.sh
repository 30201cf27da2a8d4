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
  dots=$(grep -a '^Processing' output | cut -d: -f2 | tr -cd . | wc -c)
  # The line ends with a dot of its own.
  [ "$games" = - ] || [ "$dots" -eq $((games + 1)) ] || fail "$((dots - 1)) games instead of $games"
  [ "$(tail -c 8 network.dat | od -An -tx1 | tr -d ' ')" = 0000000002000000 ] || fail "network.dat is not whole"
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
shuffle='Kd1 Kd8 Ke1 Ke8 Kd1 Kd8 Ke1 Ke8 Kd1 Kd8 Ke1 Ke8 1-0 '
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
printf '\357\273\277%s[\377\200] \300\301 \376 %s' "$game" "$game" | read_games 'bytes above 127, behind a byte order mark' 2
repeat "$game" 20 | tr ' ' '\r' | read_games 'carriage returns only' 20
head -c 2000000 /dev/urandom | tr '[{(<' '____' | read_games 'random bytes' -
# A letter alone takes the next word along, the result.
printf '1. %s 1-0\n[x]\n' {a,e,h,O,P,N,B,R,Q,K}{,x,1,e,O}{,4,9,x,e4,-O}{,+,=Q,=K,#?!} |
  read_games 'what starts like a move' 1490
for move in a8 axb8 Nc3 Bd3 Qd4 Ke2 Rg1 O-O; do
  printf "[FEN \"1n2k3/P7/8/8/8/8/8/RNBQKB1R w\"] $move%s Kf8 Kf2 Kg8 Kg3 Kf8 Kg2 Kg8 Kg3 Kf8 Kg2 Kg8 1-0 " '' ={N,B,R,Q,K,P,} Q
done | read_games 'promotions of every piece' 72
cat <<'END' | while read -r fen; do printf '[FEN %s] %s\n' "$fen" "$shuffle"; done | read_games 'start positions' 18
"8/8/8/8/8/8/8/8 w - - 0 1"
"4k3/8/8/8/8/8/8/8 w"
"4k3/8/8/4K3/8/8/8/4K3 w"
"4k3/qqqqqqqq/qqqqqqqq/8/8/QQQQQQQQ/QQQQ4/4K3 w"
"4k3/1qqqqqqq/q6q/8/8/QQQQQQQQ/QQQQ4/4K3 b"
"P3k2P/8/8/8/8/8/8/p3K2p w"
"p3k2p/8/8/8/8/8/8/P3K2P w"
"4k3/8/8/8/8/8/4R3/4K3 w"
"4k3/4r3/8/8/8/8/4R3/4K3 b"
"r3k2r/8/8/8/8/8/8/r3K2r w KQkq e3 0 1"
"8/8/4k2R/8/8/r3K2r/8/8 w KQkq"
"4k3/8/8/8/8/8/8/4K3 w KQkq a9 99999999999999999999 -99999999999999999999"
"4k/4K w
rnbqkbnr/pppppppp/8/8/8/8/PPPPPPPP/RNBQKBNR w
""
"4k3/8/8/8/8/8/8/4K3 w" [FEN "8/pppp4/8/8/8/8/PPPP4/8 w"
"4k3/8/8/8/8/8/8/4K3 w" [FEN "4q3/8/8/8/8/8/8/8 w"
"nnnnknnn/pppppppp/8/8/8/8/PPPPPPPP/BBBBKBBB w"
END

mkdir folder
: >empty
printf '%s\n' folder / empty missing "$work/missing/too" no >answers
run 'folders and missing files' 0
printf %s "$game" >games.pgn
{ repeat x 3000000; printf '\n'; head -c 300000 /dev/urandom | tr '\n' x; printf '\ngames.pgn\nno'; } >answers
run 'answers of megabytes' 1
printf 'games.pgn' >answers
run 'input that ends at the second prompt' 1
: >answers
run 'input that ends at the first prompt' -
cmp -s network.dat special || fail 'network.dat was written'

# The learned rows show that a run went on to its end.
printf '%s\n' games.pgn games.pgn no >answers
"$program" <answers >output && cp network.dat learned
name=learning
! cmp -s learned special || fail "no pattern was found"
closed_output() { "$program" >&-; }
full_output() { "$program" >/dev/full; }
closed_pipe() { ("$program"; echo $? >status) | true; return "$(cat status)"; }
for way in closed_output full_output closed_pipe; do
  run "$way" - "$way"
  cp special network.dat
  "$way" <answers 2>/dev/null
  cmp -s network.dat learned || fail 'nothing was learned'
done

# A limit on the size of files is a full disk.
limited() { (ulimit -f 1 && "$program"); }
run 'files that may not grow' - limited
! grep Error output || fail 'a message'

[ ! -e failures ]
