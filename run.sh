#!/usr/bin/env bash
# Installs what is missing, builds in Release and starts the game.
set -euo pipefail
cd "$(dirname "$0")"
./scripts/install-deps.sh
./scripts/build.sh
exec build/program/dovrin "$@"
