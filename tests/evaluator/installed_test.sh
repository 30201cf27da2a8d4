#!/usr/bin/env bash
# installed_test.sh SOURCES BUILD: installs a build into a new prefix, moves that to one with a blank in its name, and
# uses it from there as others would: a C program by way of CMake and of pkg-config, shared and static, as C99 and as
# C++, and the Python module. Skipped, with status 77, where there is no pkg-config.
set -euo pipefail

sources=$1 build=$2
command -v pkg-config >/dev/null || exit 77
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
fail() {
  echo "failed: $*" >&2
  cat "$work/log" >&2
  exit 1
}

cmake --install "$build" --prefix "$work/first" >"$work/log" || fail "cmake --install"
prefix="$work/moved prefix"
mv "$work/first" "$prefix"
libraries=$(dirname "$(find "$prefix" -name libquorvane-evaluator.a)")
export LD_LIBRARY_PATH=$libraries PKG_CONFIG_PATH=$libraries/pkgconfig
cd "$work"

others=$(nm -D --defined-only "$libraries/libquorvane-evaluator.so" | grep -v ' quorvane_' || true)
[ -z "$others" ] || fail "the shared library shows more than its interface: $others"

program=$sources/examples/evaluate.c
quietly() { "$@" >log 2>&1 || fail "$*"; }
quietly cmake -S "$sources/tests/evaluator/consumer" -B cmake -D EVALUATE_C="$program" -D CMAKE_PREFIX_PATH="$prefix" \
  -D CMAKE_C_FLAGS='-std=c99 -Wall -Wextra -Wpedantic -Werror'
quietly cmake --build cmake
flags() { pkg-config "$@" quorvane-evaluator | xargs -n 1 printf '%s\0'; }
mapfile -d '' -t shared < <(flags --cflags --libs)
mapfile -d '' -t static < <(flags --cflags --static --libs)
quietly cc -std=c99 -pedantic-errors "$program" "${shared[@]}" -o by-pkg-config
quietly cc -DQUORVANE_STATIC "$program" -Wl,-Bstatic "${static[@]/-lstdc++/-Wl,-Bdynamic}" -lstdc++ -lm \
  -o by-pkg-config-static
quietly c++ -std=c++11 -Wall -Wextra -Werror -x c++ "$program" -x none "${shared[@]}" -o as-cpp

"$prefix/bin/quorvane-learn" "$sources/examples/games.pgn" >log
fen='8/2k5/2p5/2P5/2K5/3N4/8/8 w - - 0 1'
expected=$(./as-cpp network.dat "$fen" 2>log) || fail "evaluating"
if [ -x "$prefix/bin/quorvane-inspect" ]; then
  "$prefix/bin/quorvane-inspect" explain --fen "$fen" >log 2>&1 || fail "quorvane-inspect"
  grep -qF "White to move: $expected" log || fail "the inspector says something else than $expected"
fi
if python3 -c 'import sys; assert sys.version_info >= (3, 11)' 2>/dev/null; then
  module=$(dirname "$(find "$prefix" -name quorvane -path '*/dist-packages/*')")
  code='import quorvane, sys; print(f"{quorvane.open_network(sys.argv[1]).evaluate(sys.argv[2]):+.2f}")'
  python=(env -u LD_LIBRARY_PATH PYTHONPATH="$module" python3)
fi
# says STATUS EXPECTED PROGRAM ARGUMENT...: what a program prints, and whether it succeeds (0) or fails (1).
says() {
  local expected="$1 $2" got status=0
  shift 2
  got=$("$@" 2>&1) || status=1
  [ "$status $got" = "$expected" ] || fail "$* gives '$status $got' instead of '$expected'"
}
for built in cmake/shared cmake/static ./by-pkg-config ./by-pkg-config-static; do
  says 0 "$expected" "$built" network.dat "$fen"
  says 1 "8/8 w: the board of the FEN is not made of 8 ranks of 8 files" "$built" network.dat "8/8 w"
  says 1 "$program: is no network file of version 1" "$built" "$program" "$fen"
done
[ -z "${module-}" ] || says 0 "$expected" "${python[@]}" -c "$code" network.dat "$fen"

# The blocks of the document, counted from 1, and what comes of them.
block() {
  awk -v wanted="$1" '/^```/ { inside = !inside; number += inside; next } inside && number == wanted' \
    "$sources/docs/using-a-network.md"
}
block 1 >own_board.c
cmp own_board.c "$sources/examples/own_board.c" >log || fail "the document shows another own_board.c"
quietly cc -std=c99 -Wall -Wextra -Werror own_board.c "${shared[@]}" -o own_board
says 0 "$(block 2)" ./own_board network.dat
block 3 | grep -qF 'find_package(quorvane 4 REQUIRED)' || fail "the blocks of the document stand in another order"
if [ -n "${module-}" ]; then
  block 4 >script.py
  says 0 "$(block 5)" "${python[@]}" script.py
fi
if [ -x "$prefix/bin/quorvane-inspect" ]; then
  cp "$sources/examples/games.pgn" .
  block 6 >commands.sh
  PATH=$prefix/bin:$PATH bash -e commands.sh >log 2>&1 || fail "the commands of the document"
  [[ $(sed -n '/^1\./{p;q;}' annotated.pgn) == "$(block 7)"* ]] || fail "other values than the document has"
fi
