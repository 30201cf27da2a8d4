#!/usr/bin/env bash
# build.sh PROGRAM: builds a program of this folder if need be and prints its path. Installs what that takes.
set -euo pipefail

project=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
"$project/tools/install-packages" g++ cmake make libbenchmark-dev
cd "$project"
export CMAKE_BUILD_PARALLEL_LEVEL=${CMAKE_BUILD_PARALLEL_LEVEL:-$(nproc)}
if ! log=$( (cmake --preset bench && cmake --build --preset bench --target "$1") 2>&1); then
  echo "$log" >&2
  exit 1
fi
echo "$project/build/bench/bench/$1"
