#!/usr/bin/env bash
# Makes the guide page's two screenshots from the real program under Xvfb: the
# table after the first moves of a new user (guide-table.png) and the rule book
# over it (guide-rules.png), each the main window alone, into resources/guide/.
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=$PWD/resources/guide
./scripts/build.sh dovrin dovrin_tunes dovrin_pcluck dovrin_delivered_files >/dev/null
source scripts/xvfb_session.sh
fresh_program build/program build/delivered "$WORK"
sed -i 's/^soundon=.*/soundon=FALSE/; s/^musicon=.*/musicon=FALSE/' "$WORK/dovrin.ini"
"$WORK/dovrin" >"$WORK/out.log" 2>&1 &
APP=$!
main=$(xdotool search --sync --onlyvisible --name "LANTERN! DOVRIN")
sleep 1
xdotool key ctrl+a type "Player"
xdotool key Return
sleep 3  # the computers' first moves
import -window "$main" "$OUT/guide-table.png"
# Help, then its first entry: the rule book.
read -r left top < <(xdotool getwindowgeometry "$main" | awk -F'[ ,]+' '/Position/ { print $3, $4 }')
xdotool mousemove $((left + 178)) $((top + 8)) click 1
sleep 0.5
xdotool mousemove $((left + 200)) $((top + 32)) click 1
sleep 1
import -window "$main" "$OUT/guide-rules.png"
echo "saved $OUT/guide-table.png and $OUT/guide-rules.png"
