#!/usr/bin/env bash
# Under Xvfb, Release build, each run from a fresh copy of the delivered files:
#  - the whole program, from its start until the user form's window is mapped
#    (polled with xdotool, a few milliseconds a look);
#  - in the program's own process (build/bin/bench_start): from main() until
#    the user form is painted, and from its OK until the dealt hand is painted.
# Usage: bench/startup.sh [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-5}
./scripts/build.sh dovrin bench_start >/dev/null
source scripts/xvfb_session.sh
ms() { date +%s%3N; }
for run in $(seq "$RUNS"); do
  rm -rf "$WORK/program" && fresh_program build/program build/delivered "$WORK/program"
  start=$(ms)
  "$WORK/program/dovrin" >/dev/null 2>&1 &
  app=$!
  wait_for_user_form "$app" || exit 1
  shown=$(ms)
  kill "$app" 2>/dev/null; wait "$app" 2>/dev/null || true
  echo "run $run: program start to user form mapped: $((shown - start)) ms"
  rm -rf "$WORK/program" && fresh_program build/program build/delivered "$WORK/program"
  build/bin/bench_start "$WORK/program" 2>/dev/null | sed "s/^/run $run: /"
done
