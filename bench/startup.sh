#!/usr/bin/env bash
# Under Xvfb, Release build: the time from starting the program until its
# window and the user form over it show.
# Usage: bench/startup.sh [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-5}
./scripts/build.sh dovrin >/dev/null
source scripts/xvfb_session.sh
ms() { date +%s%3N; }
for run in $(seq "$RUNS"); do
  rm -rf "$WORK/program" && cp -r build/program "$WORK/program"
  start=$(ms)
  "$WORK/program/dovrin" >/dev/null 2>&1 &
  app=$!
  xdotool search --sync --name "^Lantern! Dovrin$" >/dev/null
  shown=$(ms)
  kill "$app" 2>/dev/null; wait "$app" 2>/dev/null || true
  echo "run $run: user form shown after $((shown - start)) ms"
done
