#!/usr/bin/env bash
# run_test.sh PROJECT PROGRAM: what ./run builds and says of it, and that the program gets its arguments. Runs a copy of
# the script with a CMake that only pretends to build PROGRAM. Prints what goes wrong.
set -eu

project=$(realpath "$1") program=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work"/{bin,here,project/{src,tools,build/release/src/inspect}}
cd "$work/here"
cp "$project"/{run,CMakeLists.txt,readme.txt} ../project
echo '#!/bin/sh' | tee ../project/tools/install-packages >../bin/cmake
cat >>../bin/cmake <<END
echo '[ 50%] Building'
[ ! -e broken ] || exit 1
[ "\$1" != --build ] || ln -sf '$program' build/release/src/quorvane-learn
END
chmod +x ../bin/cmake ../project/tools/install-packages
PATH=$work/bin:$PATH

# expect NAME STATUS ERRORS: what run answers if it is given a file that is missing, with a blank in its name.
missing="quorvane-learn: there is no file 'my games.pgn'"
expect() {
  local got=0
  ../project/run 'my games.pgn' >../output 2>../errors || got=$?
  [ $got -eq "$2" ] && [ "$(cat ../errors)" = "$3" ] && [ ! -s ../output ] && return
  echo "$1: status $got, said '$(cat ../errors ../output)'"
  exit 1
}
building="Building the utility in $work/project/build/release; the first time this may take a minute"
touch ../project/broken
expect 'a build that fails' 1 "$building"$'\n[ 50%] Building\nrun: the build failed'
rm ../project/broken
without="Without quorvane-inspect; for it: tools/install-packages libcli11-dev nlohmann-json3-dev && \
rm -r $work/project/build/release"
expect 'a first build' 2 "$building"$'\n'"$without"$'\n'"$missing"
ln -s "$program" ../project/build/release/src/inspect/quorvane-inspect
expect 'nothing to build' 2 "$missing"
touch ../project/src/console.cpp
expect 'sources that have changed' 2 $'Building the utility anew, as its sources have changed\n'"$missing"
