#!/usr/bin/env bash
# Makes a folder of 200 JPEG photos of 12 megapixels (each under the browser's size limit of
# 4,096,000 bytes) and makes their thumbnails: ours with an empty cache, ours again with the cache
# warm, and vipsthumbnail's of the same files in the same run. Prints the times, the ratio to
# vips, the time to our first thumbnail and our peak memory. Builds nothing: pass the build folder
# that holds bench/bench_thumbnails (a Release build with -DQUORVANE_BUILD_BENCH=ON).
#
# Needs the Debian packages libvips-tools and imagemagick.
#
# Run: bench/compare_thumbnails.sh BUILD_FOLDER [PHOTOS]
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
top="$(cd "$here/.." && pwd)"
build="${1:-$top/build/bench}"
count="${2:-200}"
bench="$build/bench/bench_thumbnails"
[[ -x "$bench" ]] || { echo "no $bench: build the target bench_thumbnails first" >&2; exit 2; }
command -v vipsthumbnail >/dev/null || { echo "vipsthumbnail missing: apt-get install libvips-tools" >&2; exit 2; }

dir=$(mktemp -d)
trap 'rm -rf "$dir"' EXIT
mkdir -p "$dir/photos" "$dir/vips"
# One 4000 x 3000 photo-like picture (noise under a gradient), copied with a pixel changed so
# that no two files are the same.
convert -size 4000x3000 gradient:navy-orange \( -size 4000x3000 xc: +noise Random -blur 0x2 \) \
    -compose overlay -composite -quality 80 "$dir/base.jpg"
for ((i = 0; i < count; i++)); do
    convert "$dir/base.jpg" -fill "rgb($i,$i,$i)" -draw "point $i,0" -quality 80 \
        "$dir/photos/p$(printf %03d "$i").jpg"
done
size=$(stat -c %s "$dir/photos/p000.jpg")

export QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
export XDG_CACHE_HOME="$dir/cache"
cold=$("$bench" "$dir/photos")
warm=$("$bench" "$dir/photos")
start=$(date +%s%N)
vipsthumbnail -s 115x115 -o "$dir/vips/%s.png" "$dir"/photos/*.jpg
vips_ms=$(( ($(date +%s%N) - start) / 1000000 ))

field() { echo "$1" | sed -n "s/.*$2=\([^ ]*\).*/\1/p"; }
printf '%s photos of 12 Mpx (%s bytes each)\n' "$count" "$size"
printf 'cold: %s thumbnails in %.0f ms (first after %.0f ms), vipsthumbnail %s ms, ratio %.2f, peak %.1f MB\n' \
    "$(field "$cold" count)" "$(field "$cold" all_ms)" "$(field "$cold" first_ms)" "$vips_ms" \
    "$(awk -v a="$(field "$cold" all_ms)" -v b="$vips_ms" 'BEGIN { print a / b }')" \
    "$(awk -v k="$(field "$cold" peak_kb)" 'BEGIN { print k / 1024 }')"
printf 'warm: %s thumbnails in %.0f ms, peak %.1f MB\n' "$(field "$warm" count)" \
    "$(field "$warm" all_ms)" "$(awk -v k="$(field "$warm" peak_kb)" 'BEGIN { print k / 1024 }')"

# 10,000 small pictures of four kinds: the run stays responsive and memory grows only with what
# is kept.
mkdir -p "$dir/mixed"
/usr/bin/python3 - "$dir/mixed" <<'PY'
import sys
from PIL import Image
for i in range(10000):
    kind = ("png", "bmp", "tif", "pcx")[i % 4]
    Image.new("RGB", (64, 48), ((i * 7) % 256, (i * 13) % 256, (i * 29) % 256)).save(
        "%s/m%05d.%s" % (sys.argv[1], i, kind))
PY
rm -rf "$dir/cache"
mixed=$("$bench" "$dir/mixed" TIF BMP PCX PNG)
printf 'mixed: %s thumbnails of 10,000 small pictures in %.0f ms, longest wait of the event loop %s ms, peak %.1f MB\n' \
    "$(field "$mixed" count)" "$(field "$mixed" all_ms)" "$(field "$mixed" max_gap_ms)" \
    "$(awk -v k="$(field "$mixed" peak_kb)" 'BEGIN { print k / 1024 }')"
