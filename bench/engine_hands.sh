#!/usr/bin/env bash
# Whole simulated hands per second on one core, Release build, for the easy
# and the hard routines at every seat. Usage: bench/engine_hands.sh [games]
set -euo pipefail
cd "$(dirname "$0")/.."
GAMES=${1:-20000}
export BUILD_DIR=${BUILD_DIR:-build}
./scripts/build.sh dovrin-sim >/dev/null
for routines in E,E,E,E H,H,H,H; do
  best=0
  for run in 1 2 3; do
    rate=$(taskset -c 0 "$BUILD_DIR"/bin/dovrin-sim --games "$GAMES" --seed 4711 --routines "$routines" --json |
           sed -E 's/.*"hands_per_second":([0-9.]+).*/\1/')
    best=$(awk -v a="$best" -v b="$rate" 'BEGIN { print (b > a) ? b : a }')
  done
  printf '%s: %.0f hands per second (best of 3 runs of %s games)\n' "$routines" "$best" "$GAMES"
done
