#!/usr/bin/env bash
# Builds the library and the benchmarks in Release and runs them: medians of repeated runs,
# written as JSON and as a Markdown table to bench/results/.
# CS_QT_MAJOR=5 selects Qt 5; BENCH_REPETITIONS sets the number of repetitions (default 5).
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

qt_major=${CS_QT_MAJOR:-6}
build=${BUILD_DIR:-build/bench-qt${qt_major}}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCS_QT_MAJOR="$qt_major" \
      -DCS_BUILD_BENCHMARKS=ON -DCS_BUILD_TESTS=OFF -DCS_BUILD_EXAMPLES=OFF \
      -DCS_BUILD_TOOLS=OFF -DCS_BENCH_REPETITIONS="${BENCH_REPETITIONS:-5}" ${CMAKE_ARGS:-}
cmake --build "$build" --parallel "$(nproc)" --target bench
