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

# run NAME PROGRAM [VARIABLE=VALUE ...]: leaves NAME.dat and NAME.out, whatever the output is.
run() {
  env "${@:3}" "$2" --network "$work/$1.dat" "$project/examples/games.pgn" | cat >"$work/printed"
  sed "s/^Time: .*/Time: #/; s|$work/$1.dat|network.dat|" "$work/printed" >"$work/$1.out"
}
compare() {
  cmp "$work/first.dat" "$work/$1.dat"
  cmp "$work/first.out" "$work/$1.out"
  echo "the same bytes: $2"
}

run first "$program"
run again "$program" LC_ALL=de_DE.UTF-8 TZ=Asia/Tokyo
compare again "another locale and time zone"

(cd "$work" && printf '%s\n' "$project/examples/games.pgn" no | "$program" >asked)
cmp "$work/first.dat" "$work/network.dat"
sed '1,12d; s/^Time: .*/Time: #/' "$work/asked" | cmp - <(sed 1,12d "$work/first.out")
echo "the same bytes: asked, with standard output in a file"
"$program" --network "$work/closed.dat" "$project/examples/games.pgn" | head -c 1 >/dev/null || true
cmp "$work/first.dat" "$work/closed.dat"
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
  cmake --build "$work/build-$name" --target quorvane-learn -j "$(nproc)" >/dev/null
  run "$name" "$work/build-$name/src/quorvane-learn"
  compare "$name" "$build"
done
