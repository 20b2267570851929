#!/usr/bin/env bash
# Builds the whole test suite with AddressSanitizer (LeakSanitizer included) and
# UndefinedBehaviorSanitizer under clang-14 and runs it. Any report fails the run.
# Honours CS_QT_MAJOR (default 6) and BUILD_DIR.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

qt_major=${CS_QT_MAJOR:-6}
build=${BUILD_DIR:-build/asan-qt${qt_major}}
jobs=$(nproc)

# Examples and benchmarks add build time and no test coverage.
CXX=clang++-14 cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" -DCS_QT_MAJOR="$qt_major" \
    -DCS_SANITIZE=address,undefined -DCS_BUILD_EXAMPLES=OFF -DCS_BUILD_BENCHMARKS=OFF
cmake --build "$build" --parallel "$jobs"

export ASAN_OPTIONS=detect_leaks=1:strict_string_checks=1:check_initialization_order=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export LSAN_OPTIONS=suppressions=$PWD/tests/sanitizers/lsan.supp:print_suppressions=0
# The package tests install the library and build an uninstrumented consumer against it;
# an instrumented library cannot be consumed that way, and the tests exercise no library code.
ctest --test-dir "$build" --output-on-failure --parallel "$jobs" --exclude-regex '^package_'
