#!/usr/bin/env bash
# Plays a game that ends in a high score, in the real window under Xvfb, and
# photographs the fanfare, the top ten list over it and the table after it,
# with the program under openbox as on a desktop.
# It uses a test build (build-deal/) that deals one stacked deck every hand:
# the human holds every Six, Seven and Eight and the Five of Hearts, so the
# computers pay the pot again and again, and the human wins well over $500.
# Usage: scripts/high_score.sh OUT_DIR [ZOOM]
# ZOOM (a step such as 150, or fit) is passed to the program as --zoom; the
# program fits the screen without it. XVFB_SCREEN=WxHxD picks the screen:
# 1024x768x24 without a zoom, 3840x2160x24 (room for every step) with one.
# Extra environment, e.g. QT_SCALE_FACTOR=2, passes through to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=$(realpath -m "${1:?usage: scripts/high_score.sh OUT_DIR [ZOOM]}")
ZOOM=${2:-}
[ -n "$ZOOM" ] && export XVFB_SCREEN=${XVFB_SCREEN:-3840x2160x24}
mkdir -p "$OUT"
BUILD_DIR=build-deal CMAKE_ARGS="-DDOVRIN_STACKED_DEAL=ON -DDOVRIN_BUILD_TESTS=OFF" \
  ./scripts/build.sh dovrin dovrin_tunes dovrin_pcluck dovrin_delivered_files >/dev/null
DEAL=$(python3 -c '
human = [24, 25, 26, 27, 20, 21, 22, 23, 28, 29, 30, 31, 18]
rest = [c for c in range(52) if c not in human]
print(",".join(str(c) for i in range(13) for c in rest[3 * i:3 * i + 3] + [human[i]]))')
source scripts/xvfb_session.sh
start_window_manager
fresh_program build-deal/program build-deal/delivered "$WORK"
sed -i 's/^soundon=.*/soundon=FALSE/' "$WORK/dovrin.ini"  # effects would slow the computers' turns
DOVRIN_DEAL=$DEAL "$WORK/dovrin" ${ZOOM:+--zoom "$ZOOM"} >"$WORK/out.log" 2>&1 &
APP=$!
python3 scripts/autoplay.py --user Winner --shots "$OUT" --again --timeout 1500
