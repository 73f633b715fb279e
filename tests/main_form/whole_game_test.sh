#!/usr/bin/env bash
# A whole game in the real window under Xvfb and openbox, from a program
# directory that holds only the delivered files: a new user, every hand to the
# end of the game, "No" at its end. Then the settings file must have been
# written again and the user's row must hold one game.
# Usage: whole_game_test.sh PROGRAM_DIR DELIVERED_DIR
set -euo pipefail
PROGRAM_DIR=$1
DELIVERED_DIR=$2
HERE=$(cd "$(dirname "$0")" && pwd)
source "$HERE"/../../scripts/xvfb_session.sh
start_window_manager
fresh_program "$PROGRAM_DIR" "$DELIVERED_DIR" "$WORK"
# The fastest card flights and no sound, whose effects hold the table while
# they play.
sed -i -e 's/^animspd=.*\r$/animspd=0\r/' -e 's/^soundon=.*\r$/soundon=FALSE\r/' "$WORK/dovrin.ini"
"$WORK/dovrin" >"$WORK/program.log" 2>&1 &
APP=$!
python3 "$HERE/../../scripts/autoplay.py" --user "Whole Game" --timeout 240
# autoplay has seen the window go; the program ends as soon as it has
# cleaned up.
if ! timeout 60 tail --pid="$APP" -s 0.05 -f /dev/null; then
    echo "the program did not end after No"; xdotool search --onlyvisible --name . getwindowname %@ || true; exit 1
fi
grep -q $'^user_id=1\r$' "$WORK/dovrin.ini" || { echo "settings not written:"; cat "$WORK/dovrin.ini"; exit 1; }
ROW=$(sqlcipher "$WORK/Lantern.mdb" "PRAGMA key='qmvtrla'; SELECT name, numgames FROM user;" | tail -1)
[ "$ROW" = "Whole Game|1" ] || { echo "user row: '$ROW'"; exit 1; }
echo "1 passed, 0 failed"
