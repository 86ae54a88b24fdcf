#!/usr/bin/env bash
# Installs what is missing, builds with AddressSanitizer and UndefinedBehaviorSanitizer, and
# runs the whole test suite headless.
set -euo pipefail
top="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="$top/build/sanitize"

"$top/scripts/install-deps.sh"
cmake -S "$top" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DQUORVANE_SANITIZE=ON \
    -DQUORVANE_BUILD_TESTS=ON
cmake --build "$build" --parallel
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 600
