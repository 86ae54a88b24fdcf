#!/usr/bin/env bash
# The folder search in report mode over a tree of 20,000 folders and 200,000 files, beside
# `find ROOT -iname '*.bmp'` on the same tree, in one run: times, their ratio and the memory of
# the fully expanded tree. The tree is made in a temporary folder and removed afterwards.
# Arguments go to bench_search (--runs=N, --folders=N, --files-per-folder=N, or a ROOT folder).
set -euo pipefail
top="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${QUORVANE_BENCH_BUILD:-$top/build/bench}"
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUORVANE_BUILD_TESTS=OFF \
    -DQUORVANE_BUILD_BENCH=ON >/dev/null
cmake --build "$build" --target bench_search >/dev/null
command -v find >/dev/null
"$build/bench/bench_search" "$@"
