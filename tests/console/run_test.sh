#!/usr/bin/env bash
# run_test.sh PROJECT PROGRAM: what ./run says of files and of runs that bring nothing, and that it keeps the network.dat
# that was there. Runs a copy of the script that finds PROGRAM where it would have built it. Prints what goes wrong.
set -u

project=$(realpath "$1")
program=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/project/build/release/src" "$work/project/src" "$work/project/tools" "$work/here" "$work/temporary"
cp "$project/run" "$work/project"
ln -s "$program" "$work/project/build/release/src/quorvane-learn"
touch "$work/project/CMakeLists.txt" "$work/project/build/release/sources-seen"
cd "$work/here" || exit 1

fail() { echo "$name: $1" | tee -a ../failures; }
# expect NAME STATUS ERRORS [ARGUMENT...]: what run answers; standard input is that of the caller.
expect() {
  name=$1
  local status=$2 errors=$3 got=0
  shift 3
  TMPDIR=$work/temporary ../project/run "$@" >../output 2>../errors || got=$?
  [ $got -eq "$status" ] || fail "status $got instead of $status"
  [ "$(cat ../errors)" = "$errors" ] || fail "said '$(cat ../errors)' instead of '$errors'"
  [ -z "$(find . ../temporary -name 'network.dat.*' -o -type l -name '[0-9]*')" ] || fail 'something was left'
}
expect_network() { cmp -s network.dat "$1" || fail "network.dat is another"; }

for _ in $(seq 40); do
  echo '[White "A"] 1. e4 e5 2. Nf3 Nc6 3. Bb5 a6 4. Ba4 Nf6 5. O-O Be7 6. Re1 b5 7. Bb3 d6 8. c3 O-O 1-0'
done >games.pgn
echo '[White "A"] 1. e4 e5 2. Ke4 1-0 [White "B"] 1. d4 d5 2. c4 e6 *' >nothing.pgn

expect 'a first run without a game that counts' 1 'run: nothing was learned, no game counted' nothing.pgn
rm -f network.dat
expect 'games' 0 '' games.pgn </dev/null
cp network.dat ../learned
expect 'no game counts' 1 'run: nothing was learned, no game counted; network.dat is left as it was' nothing.pgn
expect_network ../learned
mv network.dat real.dat
ln -s real.dat network.dat
expect 'no game counts, through a link' 1 'run: nothing was learned, no game counted; network.dat is left as it was' nothing.pgn
expect_network ../learned
[ -L network.dat ] || fail 'the link is gone'
rm network.dat
mv real.dat network.dat
expect 'quit' 0 '' < <(echo quit)
expect_network ../learned
expect 'asked, no game counts' 1 'run: nothing was learned, no game counted; network.dat is left as it was' \
  < <(printf 'nothing.pgn\nno\n')
expect_network ../learned
expect 'games again' 0 '' games.pgn nothing.pgn
cp "$project/examples/games.pgn" many.pgn
expect 'a network of many patterns' 0 '' many.pgn

# Files that the utility's prompt could not be told, or that can be read only once, give what a plain name gives.
rm network.dat
expect 'a plain name' 0 '' games.pgn
cp network.dat ../plain
for odd in $'my games\t\n.pgn' $'-\n' quit; do
  cp -- games.pgn "$odd"
  rm network.dat
  expect "a file named '$odd'" 0 '' "$odd"
  expect_network ../plain
done
mkdir '../a folder'
mv 'quit' '../a folder/my games.pgn'
gzip -k games.pgn
rm network.dat
expect 'a whole path with blanks' 0 '' "$work/a folder/my games.pgn"
expect_network ../plain
rm network.dat
expect 'what is unpacked on the way' 0 '' <(zcat games.pgn.gz)
expect_network ../plain
expect 'several at once' 0 '' '../a folder/my games.pgn' <(zcat games.pgn.gz) $'my games\t\n.pgn'
[ "$(grep -A1 '^Processing pgn games' ../output | tr -cd . | wc -c)" -eq $((3 * 40 + 1)) ] || fail 'not all games were seen'
expect 'help' 0 '' games.pgn --help
grep -q '^Usage: ' ../output || fail 'no usage'
expect 'an option' 2 "run: there is no option and no file '--quick'; ./run --help tells what there is" --quick
expect 'a folder with a blank' 2 "run: '../a folder' is a folder" '../a folder'
expect 'a missing file with a blank' 2 "run: there is no file 'my gmaes.pgn'" 'my gmaes.pgn'
expect 'a folder' 2 "run: '.' is a folder" .
expect 'a missing file' 2 "run: there is no file 'missing.pgn'" missing.pgn
grep -q '^Processing pgn games: ' ../output && fail 'it was started'

# A build says what it does, on standard error alone.
mkdir ../bin
echo '#!/bin/sh' | tee ../project/tools/install-packages >../bin/cmake
cat >>../bin/cmake <<END
echo '[ 50%] Building'
[ ! -e broken ] || exit 1
[ "\$1" != --build ] || ln -sf '$program' build/release/src/quorvane-learn
END
chmod +x ../bin/cmake ../project/tools/install-packages
PATH=$work/bin:$PATH
rm ../project/build/release/src/quorvane-learn
touch ../project/broken
building="Building the utility in $work/project/build/release; the first time this may take a minute"
expect 'a build that fails' 1 "$building
[ 50%] Building
run: the build failed" games.pgn
rm ../project/broken
expect 'a first build' 0 "$building" games.pgn
grep 'Building$' ../output && fail 'the build prints to standard output'
touch ../project/src/console.cpp
expect 'a build of changed sources' 0 'Building the utility anew, as its sources have changed' games.pgn

# A limit on the size of files is a full disk.
cp ../learned network.dat
for kind in games nothing; do
  name="no room, $kind"
  got=0
  (ulimit -f 0; exec ../project/run $kind.pgn) 2>&1 | cat >../errors
  grep -q 'network.dat was not written' ../errors || fail "said '$(cat ../errors)'"
  expect_network ../learned
done

# Killed in any moment, the old network or a new one is there.
cp ../learned network.dat
name='broken off'
for delay in 0 0.01 0.02 0.05; do
  ../project/run games.pgn games.pgn games.pgn >/dev/null 2>&1 &
  running=$!
  sleep $delay
  kill -TERM $running
  wait $running
  [ "$(tail -c 8 network.dat | od -An -tx1 | tr -d ' ')" = 0000000002000000 ] || fail 'network.dat is not whole'
  [ -z "$(find . -name 'network.dat.before*')" ] || fail 'the copy was left'
done

[ ! -e ../failures ]
