#!/usr/bin/env bash
# Sets up the machine, builds everything, and runs the reference host Sketchpad headless on its
# demonstration script: it prints the session and saves a screenshot.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

build=build/qt6
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" --parallel "$(nproc)"

screenshot="$PWD/$build/sketchpad-demo.png"
QT_QPA_PLATFORM=${QT_QPA_PLATFORM:-offscreen} "$build/examples/sketchpad/sketchpad" \
    --script examples/sketchpad/demo.script --screenshot "$screenshot"
echo "Screenshot: $screenshot"
