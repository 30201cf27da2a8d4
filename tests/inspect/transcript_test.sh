#!/usr/bin/env bash
# transcript_test.sh TRANSCRIPT LEARN INSPECT: runs the commands of a transcript, its lines that begin with "$ " and go
# on behind "> ", one after the other in an empty folder. They have to print what stands below them: standard output,
# then standard error behind "! ", then the status behind "= " if it is not 0. With QUORVANE_APPROVE set, the
# transcript is written anew.
set -uo pipefail

transcript=$(realpath "$1")
tests=$(realpath "$(dirname "${BASH_SOURCE[0]}")/..")
export tests
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin" "$work/folder"
ln -s "$(realpath "$2")" "$work/bin/quorvane-learn"
ln -s "$(realpath "$3")" "$work/bin/quorvane-inspect"
export PATH=$work/bin:$PATH LC_ALL=C.UTF-8 TZ=UTC
cd "$work/folder" || exit 1

# What the transcripts use besides the programs.
examples() {
  awk -v from="$1" -v to="$2" '/^\[Event /{ ++game } game >= from && game <= to' "$tests/../examples/games.pgn"
}
learn() { printf '%s\nno\n' "$1" | quorvane-learn; }
# A network file of the elements that it is given, weights with a period.
network() { perl -e 'print pack("V*", map { /\./ ? unpack("V", pack("f<", $_)) : $_ } @ARGV)' "$@"; }
# That of small_network.txt, its weights times a factor.
small_network() {
  local elements
  elements=$(perl -pe "s/#.*//; s/\\S+\\.\\S+/sprintf '%.6f', \$& * ${1-1}/e" "$tests/inspect/small_network.txt")
  # shellcheck disable=SC2086  # one word an element
  network $elements
}
# JSON in fewer lines, its numbers in five digits.
short() {
  perl -0777 -pe 's/-?\d+\.\d+(e[-+]?\d+)?/sprintf("%.5g", abs $& < 1e-9 ? 0 : $&)/ge;
    s/([\[{])\s+([^][{}]*?)\s+([]}])/$a=$1;$b=$2;$c=$3;$b=~s|\s+| |g;"$a$b$c"/ge'
}
# The data that stand in a page.
data() { perl -0777 -ne 'print $1 if m|id="data">(.*?)</script>|s' "$1"; }
# What the script $2, which knows clicks.mjs, tells of the page $1 in a window of the size $3, with options behind it.
browse() {
  {
    echo '<script>onerror = (fault) => { document.title = fault; };</script>'
    cat "$1"
    printf '<script type="module">\n%s\n%s\nfinish();</script>\n' "$(cat "$tests/inspect/clicks.mjs")" "$2"
  } >"$work/browsed.html"
  "$browser" --headless --no-sandbox --disable-gpu --disable-dev-shm-usage --no-first-run \
    --user-data-dir="$work/profile" --window-size="${3-1400,1000}" "${@:4}" --virtual-time-budget=2000 --dump-dom \
    "file://$work/browsed.html" 2>/dev/null |
    perl -0777 -ne 's/&lt;/</g; s/&gt;/>/g; s/&nbsp;/ /g; s/&amp;/&/g; print m|<pre id="said">(.*)</pre>|s ? "$1\n" : $_'
}
if grep -q '^\$ browse' "$transcript"; then browser=$(command -v chromium || command -v google-chrome) || exit 77; fi

run() {
  [ -n "$command" ] || return 0
  (eval "$command") >"$work/output" 2>"$work/errors" </dev/null 3<&-
  status=$?
  cat "$work/output"
  sed 's/^/! /; s/, [0-9]* KB$/, # KB/' "$work/errors"
  [ $status = 0 ] || echo "= $status"
  echo
  command=
}
command=
while IFS= read -r line <&3; do
  case $line in
    '# '* | '$ '*) run ;;
    '> '*) ;;
    *) continue ;;
  esac
  printf '%s\n' "$line"
  case $line in
    '$ '*) command=${line:2} ;;
    '> '*) command+=$'\n'${line:2} ;;
  esac
done 3<"$transcript" >"$work/now"
run >>"$work/now"
[ -z "${QUORVANE_APPROVE-}" ] || cp "$work/now" "$transcript"
diff -u "$transcript" "$work/now"
