#!/usr/bin/env bash
# Sets up the machine, builds everything and runs the demonstration host.
set -euo pipefail
cd "$(dirname "$0")/.."
bash scripts/setup.sh

build=build/qt6
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build "$build" --parallel "$(nproc)"
"$build/examples/commandline/commandline"
