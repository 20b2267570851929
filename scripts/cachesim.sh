#!/usr/bin/env bash
# Counts, with callgrind's cache simulation, what one Action::setEnabled costs per clone
# (instructions, and cache lines missed in a 1 MB last-level cache: this machine's L2 size),
# next to Qt alone with the same objects and connections, at 1,000 and 10,000 clones.
# Deterministic: no clock, no neighbours on the machine. Writes bench/results/cachesim.md.
# CS_QT_MAJOR=5 selects Qt 5.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh
if ! command -v valgrind >/dev/null; then
    apt-get update -qq && apt-get install -y -qq valgrind >/dev/null
fi

qt_major=${CS_QT_MAJOR:-6}
build=${BUILD_DIR:-build/bench-qt${qt_major}}
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release -DCS_QT_MAJOR="$qt_major" \
      -DCS_BUILD_BENCHMARKS=ON -DCS_BUILD_TESTS=OFF -DCS_BUILD_EXAMPLES=OFF \
      -DCS_BUILD_TOOLS=OFF ${CMAKE_ARGS:-}
cmake --build "$build" --target fanout_cachesim

rounds=4
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# Prints "<instructions per clone> <lines missed per clone>" for one side and clone count.
per_clone() {
    local out="$scratch/$1-$2.out"
    QT_QPA_PLATFORM=offscreen valgrind --tool=callgrind --cache-sim=yes --LL=1048576,16,64 \
        --toggle-collect='CsBench::reach*' --callgrind-out-file="$out" \
        "$build/bench/fanout_cachesim" "$1" "$2" "$rounds" >/dev/null 2>&1
    # Totals: Ir Dr Dw I1mr D1mr D1mw ILmr DLmr DLmw
    callgrind_annotate "$out" | awk -v n=$(($2 * rounds)) '/PROGRAM TOTALS/ {
        gsub(/,/, ""); printf "%.0f %.1f\n", $1 / n, ($15 + $17) / n }'
}

results=bench/results/cachesim.md
{
    echo "# Cache simulation of setEnabled reaching clones"
    echo
    echo "Run $(date -u '+%Y-%m-%d %H:%M') UTC with callgrind (1 MB last-level cache, 64-byte lines),"
    echo "Qt $qt_major. Per clone, for one state change, averaged over $rounds changes."
    echo "\"Qt alone\" is plain QActions with a clone's properties, name, mapper child and ten"
    echo "connections made from signature strings, reached by one signal with empty slots."
    echo
    echo "| clones | library instructions | Qt alone instructions | library lines missed | Qt alone lines missed |"
    echo "|---:|---:|---:|---:|---:|"
    for clones in 1000 10000; do
        read -r library_ir library_lines < <(per_clone library "$clones")
        read -r qt_ir qt_lines < <(per_clone qt "$clones")
        echo "| $clones | $library_ir | $qt_ir | $library_lines | $qt_lines |"
    done
} > "$results"
cat "$results"
