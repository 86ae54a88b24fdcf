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
export ASAN_OPTIONS=detect_leaks=1:abort_on_error=0
export LSAN_OPTIONS="suppressions=$top/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
QT_QPA_PLATFORM=offscreen ctest --output-on-failure --timeout 600
