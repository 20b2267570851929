#!/usr/bin/env bash
# Sets up the machine, builds everything against Qt 6 (or the Qt major given as CS_QT_MAJOR)
# and runs the whole test suite.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

qt_major=${CS_QT_MAJOR:-6}
build=${BUILD_DIR:-build/qt${qt_major}}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} \
      -DCS_QT_MAJOR="$qt_major" ${CMAKE_ARGS:-}
cmake --build "$build" --parallel "$(nproc)"
ctest --test-dir "$build" --output-on-failure --parallel "$(nproc)"
