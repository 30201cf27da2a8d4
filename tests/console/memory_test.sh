#!/usr/bin/env bash
# memory_test.sh PROGRAM GAMES.pgn: wherever memory runs out, while games are loaded, while samples are collected or in the
# fit, the run ends and network.dat is whole, old or new. Prints what is not.
set -u

program=$(realpath "$1")
games=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work" || exit 1
ulimit -c 0

# With so many kilobytes of addresses.
limited() { (ulimit -v "$1" && exec "$program" <answers >output 2>errors) 2>errors; }

# A build under the sanitizers takes terabytes of addresses from the start.
printf 'none no' >answers
"$program" <answers >output
if ! limited 4000000; then
  echo "left out: this build cannot run within a limit on addresses"
  exit 0
fi

for _ in {1..8}; do cat "$games"; done >games.pgn
cp network.dat old
printf 'games.pgn\nno\n' >answers
places=
# try KILOBYTES: false where memory ran out, and the place told in `places`.
try() {
  cp old network.dat
  limited "$1" 2>/dev/null && return
  local place=start end
  case $(<output) in
    *Fitting*) place=fit ;;
    *Processing*) place=collection ;;
    *Enter*) place=load ;;
  esac
  end=$(tail -c 8 network.dat | od -An -tx1 | tr -d ' ')
  [ "$end" = 0000000002000000 ] || fail "not whole after the end in: $place"
  # What the fit prints is not flushed; it is what it saves that tells of it.
  [ "$place" != collection ] || cmp -s network.dat old || place=fit
  [ "$place" = fit ] || cmp network.dat old || fail "changed by an end in: $place"
  places+=" $place"
  return 1
}
fail() {
  echo "$1"
  exit 1
}

limit=6000
until try "$limit"; do
  [ "$limit" -lt 4000000 ] || fail "does not end"
  last=$limit
  limit=$((limit * 11 / 10))
done
# The fit needs little more than the collection.
for step in {1..9}; do try $((last + (limit - last) * step / 10)) && break; done
for place in load collection fit; do
  [[ $places == *" $place"* ]] || fail "memory never ran out in: $place; only in:$places"
done
echo "ended in:$places; done within $limit KB"
