#!/usr/bin/env bash
# Configures and builds the project in build/ (Release unless BUILD_TYPE says
# otherwise). Extra arguments are passed to ninja as targets.
set -euo pipefail
cd "$(dirname "$0")/.."
BUILD_DIR=${BUILD_DIR:-build}
BUILD_TYPE=${BUILD_TYPE:-Release}
cmake -S . -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE="$BUILD_TYPE" ${CMAKE_ARGS:-} >/dev/null
ninja -C "$BUILD_DIR" -j "$(nproc)" "$@"
