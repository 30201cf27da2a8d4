#!/usr/bin/env bash
# phases.sh FILE.pgn ...: learns from the games in a folder that is thrown away, and prints what each phase costs in CPU
# time and memory, and the samples and steps of each type.
set -euo pipefail

files=()
for name in "$@"; do
  files+=("$(realpath -e "$name")")
done
program=$("$(dirname "${BASH_SOURCE[0]}")/build.sh" phases)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
uptime # the load of the machine
{ "$program" "${files[@]}" >/dev/null; } 2>&1
