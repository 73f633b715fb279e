#!/usr/bin/env bash
# Starts the real program under Xvfb beside fresh copies of the delivered
# files, waits for the window, names a new user, takes a screenshot and checks
# that cards were painted in the hand row.
# Usage: smoke_test.sh PROGRAM_DIR DELIVERED_DIR
set -euo pipefail
PROGRAM_DIR=$1
DELIVERED_DIR=$2
source "$(dirname "$0")"/../../scripts/xvfb_session.sh
fresh_program "$PROGRAM_DIR" "$DELIVERED_DIR" "$WORK"
"$WORK/dovrin" >"$WORK/program.log" 2>&1 &
APP=$!
WINDOW=
for _ in $(seq 100); do
  WINDOW=$(xdotool search --name "LANTERN! DOVRIN" 2>/dev/null | head -1) && [ -n "$WINDOW" ] && break
  sleep 0.1
done
[ -n "$WINDOW" ] || { echo "no window"; cat "$WORK/program.log"; exit 1; }
# Who plays: a new user in the user form, confirmed with Enter.
for _ in $(seq 100); do
  xdotool search --onlyvisible --name "^Lantern! Dovrin$" >/dev/null 2>&1 && break
  sleep 0.1
done
xdotool key ctrl+a
xdotool type --delay 20 "Smoke"
xdotool key Return
# The computers move first, each with a pause of about a third of a second;
# then the hand row lies bright on the baize.
hand_row_shown() {
  import -window "$WINDOW" "$WORK/table.png"
  HEIGHT=$(identify -format '%h' "$WORK/table.png")
  # The hand row: 96 pixels high, its top 340 pixels below the client area's
  # top, which lies under the menu bar at the bottom of the window.
  ROW_TOP=$((HEIGHT - 446 + 340))
  ROW=$(convert "$WORK/table.png" -crop "300x90+170+$((ROW_TOP + 3))" -colorspace Gray -format '%[fx:mean]' info:)
  # The strip between the lowest row of the columns and the hand row, where
  # no card is ever painted.
  TABLE=$(convert "$WORK/table.png" -crop "300x24+170+$((ROW_TOP - 30))" -colorspace Gray -format '%[fx:mean]' info:)
  awk -v row="$ROW" -v table="$TABLE" 'BEGIN { exit !(row > 0.6 && row > table + 0.25) }'
}
SHOWN=0
for _ in $(seq 40); do hand_row_shown && { SHOWN=1; break; }; sleep 0.25; done
echo "brightness of the hand row: $ROW, of the empty baize: $TABLE"
[ "$SHOWN" = 1 ] || {
  cp "$WORK/table.png" /tmp/dovrin-smoke-failed.png
  echo "no cards in the hand row (screenshot kept in /tmp/dovrin-smoke-failed.png)"
  exit 1
}
echo "1 passed, 0 failed"
