#!/usr/bin/env bash
# Builds the libFuzzer targets (clang-14, with ASan and UBSan) and runs each for a bounded time,
# starting from its corpus in tests/fuzz/corpus/<target>/. Any crash, leak, sanitizer report or
# per-input timeout fails the run; the input that caused it is left in $build/artifacts/.
# FUZZ_SECONDS (default 60) sets the time per target, FUZZ_TARGETS a subset, BUILD_DIR the build.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

build=${BUILD_DIR:-build/fuzz}
seconds=${FUZZ_SECONDS:-60}
targets=(${FUZZ_TARGETS:-loadtemplate validatetemplate loadmap buildmap actionpoolload loadaliases loadtranscript inputsession
          keymapload})

CXX=clang++-14 cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug \
    -DCMAKE_CXX_FLAGS_DEBUG="-g -O1" -DCS_QT_MAJOR=6 -DCS_BUILD_FUZZERS=ON \
    -DCS_SANITIZE=address,undefined -DCS_BUILD_EXAMPLES=OFF -DCS_BUILD_TOOLS=OFF \
    -DCS_BUILD_BENCHMARKS=OFF
cmake --build "$build" --parallel "$(nproc)" --target "${targets[@]/#/fuzz_}"

export ASAN_OPTIONS=detect_leaks=1
export UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1
export LSAN_OPTIONS=suppressions=$PWD/tests/sanitizers/lsan.supp:print_suppressions=0
mkdir -p "$build/artifacts"
summary=()
for target in "${targets[@]}"; do
    echo "== fuzz_$target for ${seconds} s"
    # New inputs go to a scratch corpus; the kept corpus is only read.
    work="$build/corpus/$target"
    mkdir -p "$work"
    log="$build/fuzz_$target.log"
    if ! "$build/tests/fuzz/fuzz_$target" "$work" "tests/fuzz/corpus/$target" \
            -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 -max_len=65536 \
            -print_final_stats=1 -artifact_prefix="$build/artifacts/$target-" \
            > "$log" 2>&1; then
        tail -n 60 "$log"
        echo "fuzz_$target FAILED; the input is in $build/artifacts/"
        exit 1
    fi
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    summary+=("fuzz_$target: $runs executions in ${seconds} s")
done
printf '%s\n' "${summary[@]}"
