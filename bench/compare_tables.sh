#!/usr/bin/env bash
# Shows a table of 1,000,000 records and one of 100,000, in dBASE and in Access, in the
# database window's grid (bench_tables), side by side with python3-dbf reading the same dBASE
# files and mdb-export exporting the same Access tables. Builds nothing: pass the build folder
# that holds bench/bench_tables (a Release build with -DQUORVANE_BUILD_BENCH=ON).
#
# Needs the Debian packages mdbtools and python3-dbf. The test files are written into a
# temporary folder and removed at the end: the dBASE files by python3-dbf, the Access files by
# make_mdb.py from the Jet 4 sample in shared/fixtures/mdb (or the file MDB_SAMPLE names).
#
# Run: bench/compare_tables.sh BUILD_FOLDER
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
top="$(cd "$here/.." && pwd)"
build="${1:-$top/build/bench}"
bench="$build/bench/bench_tables"
sample="${MDB_SAMPLE:-$top/../shared/fixtures/mdb/V2003_with-password.mdb}"
password="${MDB_PASSWORD:-password}"
py=/usr/bin/python3
runs=5

[[ -x "$bench" ]] || { echo "no $bench: build the target bench_tables first" >&2; exit 2; }
[[ -f "$sample" ]] || { echo "no Jet 4 sample at $sample (set MDB_SAMPLE)" >&2; exit 2; }
command -v mdb-export >/dev/null || { echo "mdb-export missing: apt-get install mdbtools" >&2; exit 2; }
"$py" -c 'import dbf' 2>/dev/null || { echo "python3-dbf missing: apt-get install python3-dbf" >&2; exit 2; }

dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT

now() { date +%s%N; }
# The median in milliseconds of $runs runs of a command, its output thrown away.
median_ms() {
    local times=() start
    for ((i = 0; i < runs; i++)); do
        start=$(now)
        "$@" >/dev/null 2>&1 || true
        times+=($((($(now) - start) / 1000)))
    done
    printf '%s\n' "${times[@]}" | sort -n | sed -n "$((runs / 2 + 1))p" |
        awk '{ printf "%.2f", $1 / 1000 }'
}
# One value of a "RESULT key=value ..." or "key=value ..." line.
field() { tr ' ' '\n' <<<"$1" | sed -n "s/^$2=//p"; }
ratio() { awk -v a="$1" -v b="$2" 'BEGIN { if (b > 0) printf "%.2f", a / b; else print "-" }'; }
export_head() { mdb-export "$1" "$2" | head -40; }

echo "Writing the test files in $dir"
for n in 1000000 100000; do
    secs=$("$py" "$here/make_dbf.py" "$dir/t$n.dbf" "$n")
    echo "  python3-dbf wrote $n records to t$n.dbf in $secs s"
    secs=$("$py" "$here/make_mdb.py" "$sample" "$dir/t$n.mdb" "$n")
    echo "  make_mdb.py wrote $n rows to t$n.mdb in $secs s"
done
echo

declare -A ours peak base
for n in 1000000 100000; do
    r=$("$bench" --runs=$runs dbase "$dir/t$n.dbf" 2>/dev/null | grep '^RESULT')
    ours[dbf$n]=$r
    r=$("$bench" --runs=$runs --password="$password" access "$dir/t$n.mdb" Table1 2>/dev/null |
        grep '^RESULT')
    ours[mdb$n]=$r
done

line() { printf '%-44s %16s %16s %8s\n' "$@"; }
for n in 1000000 100000; do
    d=${ours[dbf$n]}
    m=${ours[mdb$n]}
    [[ $(field "$d" records) == "$n" && $(field "$m" records) == "$n" ]] ||
        { echo "bench_tables did not read $n records" >&2; exit 1; }
    dfirst=$(field "$d" first_screen_ms)
    dlast=$(awk -v a="$dfirst" -v b="$(field "$d" last_record_ms)" 'BEGIN { printf "%.2f", a + b }')
    mfirst=$(field "$m" first_screen_ms)
    mlast=$(awk -v a="$mfirst" -v b="$(field "$m" last_record_ms)" 'BEGIN { printf "%.2f", a + b }')

    p=$("$py" "$here/table_read_dbf.py" "$dir/t$n.dbf")
    head_ms=$(median_ms export_head "$dir/t$n.mdb" Table1)
    all_ms=$(median_ms mdb-export "$dir/t$n.mdb" Table1)

    echo "== $n records (median of $runs runs; ms)"
    line "" "Quorvane" "other" "ratio"
    line "dBASE open to first screen / python3-dbf 40" "$dfirst" "$(field "$p" first40)" \
        "$(ratio "$dfirst" "$(field "$p" first40)")"
    line "dBASE open + last record / python3-dbf last" "$dlast" "$(field "$p" last)" \
        "$(ratio "$dlast" "$(field "$p" last)")"
    line "dBASE python3-dbf reading all records" "" "$(field "$p" all)" ""
    line "Access open to first screen / export | head" "$mfirst" "$head_ms" \
        "$(ratio "$mfirst" "$head_ms")"
    line "Access open + last record / mdb-export all" "$mlast" "$all_ms" \
        "$(ratio "$mlast" "$all_ms")"
    echo "  Quorvane alone: dBASE to last record $(field "$d" last_record_ms) ms," \
        "Access to last record $(field "$m" last_record_ms) ms; first runs of open to first" \
        "screen: dBASE $(field "$d" first_screen_first_ms) ms, Access" \
        "$(field "$m" first_screen_first_ms) ms"
    peak[dbf$n]=$(field "$d" peak_kb)
    peak[mdb$n]=$(field "$m" peak_kb)
    base[dbf$n]=$(field "$d" base_kb)
    base[mdb$n]=$(field "$m" base_kb)
    echo
done

echo "== peak memory of bench_tables (KB; the empty window alone in brackets)"
line "" "1,000,000" "100,000" "ratio"
for k in dbf mdb; do
    line "$k" "${peak[${k}1000000]} (${base[${k}1000000]})" "${peak[${k}100000]} (${base[${k}100000]})" \
        "$(ratio "${peak[${k}1000000]}" "${peak[${k}100000]}")"
done
