#!/usr/bin/env bash
# Builds the thread-bridge stress test and the invoker's tests with ThreadSanitizer under
# clang-14 and runs them. Any report fails the run. Honours BUILD_DIR.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

build=${BUILD_DIR:-build/tsan-qt6}
tests=(tst_threadbridges tst_commandinvoker)

# Qt 6 only: its QMutex tells ThreadSanitizer about locking in inline code, Qt 5's does not.
CXX=clang++-14 cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" -DCS_QT_MAJOR=6 -DCS_SANITIZE=thread \
    -DCS_BUILD_EXAMPLES=OFF -DCS_BUILD_TOOLS=OFF -DCS_BUILD_BENCHMARKS=OFF
cmake --build "$build" --parallel "$(nproc)" --target "${tests[@]}"

export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:ignore_noninstrumented_modules=1:suppressions=$PWD/tests/sanitizers/tsan.supp"
regex="^($(IFS='|'; echo "${tests[*]}"))\$"
ctest --test-dir "$build" --output-on-failure --tests-regex "$regex"
