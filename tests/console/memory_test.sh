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
printf 'none no' | "$program" >output
cp network.dat old

# With so many kilobytes of addresses.
limited() { (ulimit -v "$1" && exec "$program" < <(printf '%s\nno\n' "$games") >output) 2>/dev/null; }
fail() {
  echo "$1"
  exit 1
}

# A build under the sanitizers takes terabytes of addresses from the start.
if ! limited 4000000; then
  echo "left out: this build cannot run within a limit on addresses"
  exit 0
fi
places=
for ((limit = 7000; limit < 4000000; limit += limit / 20)); do
  cp old network.dat
  ! limited "$limit" 2>/dev/null || break
  case $(<output) in
    *Processing*) place=collection ;;
    *Enter*) place=load ;;
    *) place=start ;;
  esac
  # What the fit prints is not flushed; it is what it saves that tells of it.
  cmp -s network.dat old || place=${place/collection/fit}
  places+=" $place"
  [ "$(tail -c 8 network.dat | od -An -tx1 | tr -d ' ')" = 0000000002000000 ] || fail "not whole after the end in: $place"
  [ "$place" = fit ] || cmp network.dat old || fail "changed by an end in: $place"
done
for place in load collection fit; do
  [[ $places == *" $place"* ]] || fail "memory never ran out in: $place; only in:$places"
done
echo "ended in:$places; done within $limit KB"
