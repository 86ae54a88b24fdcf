#!/usr/bin/env bash
# Installs what is missing, makes a release build, stages the run folder (the program with the
# delivered files beside it) and starts the program from that folder.
set -euo pipefail
top="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$top/build/release"
run="$build/run"

"$top/scripts/install-deps.sh"
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUORVANE_BUILD_TESTS=OFF
cmake --build "$build" --parallel

mkdir -p "$run"
cp "$build/src/app/quorvane" "$run/"
cp -R "$top/resources/." "$run/"

if [[ -z "${DISPLAY:-}" && -z "${WAYLAND_DISPLAY:-}" && -z "${QT_QPA_PLATFORM:-}" ]]; then
    echo "No display to show Quorvane on: start it under xvfb-run (xvfb-run -a bash scripts/run.sh) or from a desktop session."
    exit 1
fi
cd "$run"
exec ./quorvane
