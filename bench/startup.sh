#!/usr/bin/env bash
# Under Xvfb, Release build: the time from starting the program until its
# window and the user form over it show.
# Usage: bench/startup.sh [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-5}
./scripts/build.sh dovrin >/dev/null
WORK=$(mktemp -d)
trap 'kill "${XVFB:-}" 2>/dev/null || true; rm -rf "$WORK"' EXIT
for n in $(seq 90 140); do [ -e "/tmp/.X$n-lock" ] || { DISPLAY_NO=":$n"; break; }; done
Xvfb "$DISPLAY_NO" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
XVFB=$!
export DISPLAY=$DISPLAY_NO XDG_RUNTIME_DIR="$WORK/xdg" SDL_AUDIODRIVER=dummy
mkdir -m 700 "$XDG_RUNTIME_DIR"
for _ in $(seq 100); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done
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
