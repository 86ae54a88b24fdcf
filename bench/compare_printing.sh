#!/usr/bin/env bash
# Prints to PDF what a user prints most at length, side by side with enscript and ps2pdf in one
# run: a listing of every record of dBASE tables of 10,000 and 100,000 records (the same
# records written out as text for enscript), and a text file of 10 MB. Shows the time of each,
# the ratio, and the peak memory of our jobs, which must not grow with the number of records.
# Builds nothing: pass the build folder that holds bench/bench_printing (a Release build with
# -DQUORVANE_BUILD_BENCH=ON).
#
# Needs the Debian packages enscript, ghostscript and python3-dbf.
#
# Run: bench/compare_printing.sh BUILD_FOLDER
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
top="$(cd "$here/.." && pwd)"
build="${1:-$top/build/bench}"
bench="$build/bench/bench_printing"
[[ -x "$bench" ]] || { echo "no $bench: build the target bench_printing first" >&2; exit 2; }
for tool in enscript ps2pdf; do
    command -v "$tool" >/dev/null || { echo "$tool missing: apt-get install enscript ghostscript" >&2; exit 2; }
done

export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
now() { date +%s%N; }
ms_of() { awk -v ns="$1" 'BEGIN { printf "%.0f", ns / 1e6 }'; }
field() { sed -n "s/.*$1=\([^ ]*\).*/\1/p"; }

# enscript and ps2pdf on a text file; prints the milliseconds.
enscript_ms() {
    local start=$(now)
    enscript -q -B -f Courier8 -p "$dir/e.ps" "$1"
    ps2pdf "$dir/e.ps" "$dir/e.pdf"
    ms_of $(($(now) - start))
}

# One line of the table: the job's name, our RESULT line and enscript's milliseconds.
row() {
    local ms
    ms=$(echo "$2" | field ms)
    printf '%-26s %10.0f %10s %8.2f %10.1f %6s\n' "$1" "$ms" "$3" \
        "$(awk -v a="$ms" -v b="$3" 'BEGIN { print a / b }')" \
        "$(awk -v k="$(echo "$2" | field peak_kb)" 'BEGIN { print k / 1024 }')" \
        "$(echo "$2" | field pages)"
}

printf '%-26s %10s %10s %8s %10s %6s\n' job ours_ms enscript_ms ratio peak_MB pages
for n in 10000 100000; do
    /usr/bin/python3 "$here/make_dbf.py" "$dir/T$n.DBF" "$n" >/dev/null
    "$bench" records "$dir/T$n.DBF" "$dir/T$n.txt" >/dev/null
    ours=$("$bench" listing "$dir/T$n.DBF" "$dir/T$n.pdf")
    row "listing of $n records" "$ours" "$(enscript_ms "$dir/T$n.txt")"
done

/usr/bin/python3 - "$dir/big.txt" <<'PY'
import random, sys
random.seed(7)
words = ["folder", "picture", "table", "record", "print", "page", "file", "text", "listing"]
with open(sys.argv[1], "w") as out:
    size = 0
    while size < 10 * 1024 * 1024:
        line = " ".join(random.choice(words) for _ in range(random.randint(3, 14))) + "\n"
        out.write(line)
        size += len(line)
PY
ours=$("$bench" text "$dir/big.txt" "$dir/big.pdf")
row "text file of 10 MB" "$ours" "$(enscript_ms "$dir/big.txt")"
