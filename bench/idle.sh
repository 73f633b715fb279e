#!/usr/bin/env bash
# Under Xvfb, Release build: the resident size after the first hand is dealt
# and the processor use while the human thinks, over ten seconds. With a
# zoom (bench/idle.sh 200) on a 3840 x 2160 screen, at that zoom.
# Usage: bench/idle.sh [zoom]
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/build.sh dovrin >/dev/null
ZOOM=${1:-}
[ -n "$ZOOM" ] && XVFB_SCREEN=3840x2160x24
source scripts/xvfb_session.sh
fresh_program build/program build/delivered "$WORK"
"$WORK/dovrin" ${ZOOM:+--zoom "$ZOOM"} >/dev/null 2>&1 &
APP=$!
xdotool search --sync --name "^Lantern! Dovrin$" >/dev/null
sleep 0.5
xdotool key ctrl+a type "Idle"
xdotool key Return
sleep 4  # the computers' first moves
ticks() { awk '{ print $14 + $15 }' "/proc/$APP/stat"; }
before=$(ticks)
sleep 10
after=$(ticks)
rss=$(awk '/VmRSS/ { print $2 }' "/proc/$APP/status")
hz=$(getconf CLK_TCK)
echo "resident size after the first hand: $((rss / 1024)) MB"
awk -v t=$((after - before)) -v hz="$hz" 'BEGIN { printf "processor use while the human thinks: %.2f %% of one core\n", 100 * t / hz / 10 }'
