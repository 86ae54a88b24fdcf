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

# The same extensions as the picture filter of the file list (row 27).
start=$(date +%s%N)
for _ in 1 2 3 4 5 6 7 8 9 10; do
    ls -f "$dir" | grep -ciE '\.(jpg|cmp|tiff|tif|mpt|bmp|ico|cur|pcx|dcx|pcd|fpx|dic|wmf|emf|dxf|xpm|iff|pbm|cut|psd|png|tga|eps|jbg|ras|wpg|pct|mac|img|msp)$' >/dev/null
done
ls_us=$(( ($(date +%s%N) - start) / 10000 ))
report=$("$build/bench/bench_folder_listing" "$dir" --benchmark_format=csv 2>/dev/null)
echo "$report"
read_us=$(echo "$report" | awk -F, '/^"ReadAndFilter"/ { printf "%d", $3 * 1000 }')
printf 'ls -f | grep -ciE: %d.%03d ms; read and filter: %d.%03d ms; ratio %s\n' \
    $((ls_us / 1000)) $((ls_us % 1000)) $((read_us / 1000)) $((read_us % 1000)) \
    "$(awk -v a="$read_us" -v b="$ls_us" 'BEGIN { printf "%.2f", a / b }')"
