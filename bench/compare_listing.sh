#!/usr/bin/env bash
# Lists one folder of 100,000 files with the picture filter of the file list, side by side: the
# program reading and filtering it against ls piped to grep with the same mask as a regular
# expression, the way a user would list the pictures of a folder by hand. Then the file list
# showing the folder, a change of filter on it, and the peak memory of the benchmark.
set -euo pipefail
top="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$top/build/bench"
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUORVANE_BUILD_TESTS=OFF \
    -DQUORVANE_BUILD_BENCH=ON >/dev/null
cmake --build "$build" --target bench_folder_listing >/dev/null
bench="$build/bench/bench_folder_listing"

dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
(cd "$dir" && for i in $(seq -w 0 99999); do
    case $((10#$i % 8)) in 0) e=jpg ;; 1) e=txt ;; 2) e=wav ;; 3) e=dbf ;; 4) e=png ;; 5) e=doc ;; 6) e=zip ;; *) e=log ;; esac
    printf '%s\0' "file$i.$e"
done | xargs -0 touch)

# "*.JPG;*.CMP;A?C.*" becomes (\.JPG$|\.CMP$|^A.C\..*$) for grep -i: a pattern starting with
# "*" is left unanchored at the front, which is the quicker expression for grep.
mask=$("$bench" --mask)
alternatives=()
IFS=';' read -ra patterns <<<"$mask"
for pattern in "${patterns[@]}"; do
    pattern=$(sed -e 's/^ *//; s/ *$//' <<<"$pattern")
    [[ -n $pattern ]] || continue
    anchor='^'
    if [[ $pattern == \** ]]; then
        anchor=''
        pattern=${pattern#\*}
    fi
    alternatives+=("$anchor$(sed -e 's/[].[^$()+{}|\\]/\\&/g' -e 's/\*/.*/g; s/?/./g' <<<"$pattern")\$")
done
regex="($(IFS='|' && echo "${alternatives[*]}"))"

runs=10
start=$(date +%s%N)
for _ in $(seq $runs); do ls -f "$dir" | grep -ciE "$regex" >/dev/null; done
ls_us=$((($(date +%s%N) - start) / 1000 / runs))

out=$("$bench" "$dir" --benchmark_format=console 2>/dev/null)
echo "$out"
figure() { awk -v name="$1" 'index($1, name) == 1 { print $2; exit }' <<<"$out"; }
read_ms=$(figure ReadAndFilter/)
echo
echo "mask: $mask"
echo "grep: $regex"
awk -v ls="$ls_us" -v read="$read_ms" -v show="$(figure ShowInFileList/0/)" \
    -v details="$(figure ShowInFileList/3/)" -v change="$(figure ChangeFilterInFileList/)" \
    'BEGIN {
        printf "read and filter:        %7.1f ms\n", read
        printf "ls -f | grep -ciE:      %7.1f ms\n", ls / 1000
        printf "ratio:                  %7.2f\n", read / (ls / 1000)
        printf "file list showing it:   %7.1f ms (large icons), %.1f ms (details)\n", show, details
        printf "change of filter:       %7.1f ms\n", change
    }'
grep '^peak memory' <<<"$out"
