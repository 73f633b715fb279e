#!/usr/bin/env bash
# Starts the game under Xvfb beside fresh copies of the delivered files,
# waits for its window, names a new user and saves a screenshot of the table.
# Usage: scripts/screenshot.sh [out.png] [seconds to wait after the window shows]
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=${1:-table.png}
WAIT=${2:-2}
source "$(dirname "$0")"/xvfb_session.sh
fresh_program build/program build/delivered "$WORK"
"$WORK/dovrin" >"$WORK/out.log" 2>&1 &
APP=$!
for _ in $(seq 100); do
  xdotool search --name "LANTERN! DOVRIN" >/dev/null 2>&1 && break
  sleep 0.1
done
# Who plays: a new user, confirmed with Enter; then the computers move.
sleep 1
xdotool key ctrl+a type "Player"
xdotool key Return
sleep "$WAIT"
import -window root "$OUT"
echo "saved $OUT"
