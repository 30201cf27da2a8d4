#!/usr/bin/env bash
# same_bytes.sh PROGRAM [OTHER ...]: shows that what the utility writes does not depend on how it was built or started.
#
# Runs PROGRAM and others on the example games, in another locale, another time zone and with the output in a file or a
# pipe, and compares network.dat and what is printed, the time aside. Without OTHER, the others are built here: with g++
# and clang++, each at -O0, -O2, -O3 and -O3 -march=native.
set -euo pipefail

program=$(realpath "$1")
project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# run NAME PROGRAM [VARIABLE=VALUE ...]: leaves NAME.dat and NAME.out.
run() {
  local name=$1 binary=$2
  shift 2
  mkdir "$work/$name"
  cp "$project/examples/games.pgn" "$work/$name"
  (cd "$work/$name" && printf 'games.pgn\nno\n' | env "$@" "$binary" | cat >printed)
  mv "$work/$name/network.dat" "$work/$name.dat"
  sed 's/^Time: .*/Time: #/' "$work/$name/printed" >"$work/$name.out"
}
compare() {
  cmp "$work/first.dat" "$work/$1.dat"
  cmp "$work/first.out" "$work/$1.out"
  echo "the same bytes: $2"
}

run first "$program"
run again "$program" LC_ALL=de_DE.UTF-8 TZ=Asia/Tokyo
compare again "another locale and time zone"

(cd "$work/first" && rm -f network.dat && printf 'games.pgn\nno\n' | "$program" >printed)
mv "$work/first/network.dat" "$work/file.dat"
sed 's/^Time: .*/Time: #/' "$work/first/printed" >"$work/file.out"
compare file "standard output in a file"

(cd "$work/first" && printf 'games.pgn\nno\n' | "$program" | head -c 1 >/dev/null) || true
cmp "$work/first.dat" "$work/first/network.dat"
echo "the same bytes: standard output closed by its reader"

shift
count=0
for other in "$@"; do
  run other$((++count)) "$(realpath "$other")"
  compare other$count "$other"
done
[ $count -eq 0 ] || exit 0

for build in {g++,clang++}" "{-O0,-O2,-O3,"-O3 -march=native"}; do
  compiler=${build%% *}
  if ! command -v "$compiler" >/dev/null; then
    echo "left out, there is no $compiler here: $build"
    continue
  fi
  name=build$((++count))
  cmake -S "$project" -B "$work/build-$name" -DCMAKE_BUILD_TYPE=None -DCMAKE_CXX_COMPILER="$compiler" \
    -DCMAKE_CXX_FLAGS="${build#* }" >/dev/null
  cmake --build "$work/build-$name" --target quorvane-learn -j 2 >/dev/null
  run "$name" "$work/build-$name/src/quorvane-learn"
  compare "$name" "$build"
done
