#!/usr/bin/env bash
# Lists one folder of 100,000 files with a picture filter, side by side: the program's file
# list against ls piped to grep, the way a user would list the pictures of a folder by hand.
set -euo pipefail
top="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$top/build/bench"
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUORVANE_BUILD_TESTS=OFF \
    -DQUORVANE_BUILD_BENCH=ON >/dev/null
cmake --build "$build" --target bench_folder_listing >/dev/null

dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
(cd "$dir" && for i in $(seq -w 0 99999); do
    case $((10#$i % 8)) in 0) e=jpg ;; 1) e=txt ;; 2) e=wav ;; 3) e=dbf ;; 4) e=png ;; 5) e=doc ;; 6) e=zip ;; *) e=log ;; esac
    printf '%s\0' "file$i.$e"
done | xargs -0 touch)

start=$(date +%s%N)
for _ in 1 2 3 4 5; do ls -f "$dir" | grep -ciE '\.(jpg|png|bmp|tif|tiff|gif)$' >/dev/null; done
ls_ms=$(( ($(date +%s%N) - start) / 5000000 ))
echo "ls | grep: ${ls_ms} ms per listing"
"$build/bench/bench_folder_listing" "$dir" --benchmark_format=console
