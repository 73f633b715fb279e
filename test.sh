#!/usr/bin/env bash
# Installs what is missing, builds, and runs the whole test suite.
# SANITIZE=1 builds everything with AddressSanitizer and UBSan in build-asan/.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/install-deps.sh
if [ "${SANITIZE:-0}" = 1 ]; then
  export BUILD_DIR=build-asan BUILD_TYPE=Debug CMAKE_ARGS="-DDOVRIN_SANITIZE=ON"
fi
./scripts/build.sh
cd "${BUILD_DIR:-build}"
ctest --output-on-failure -j "$(nproc)"
