#!/usr/bin/env bash
# The zoom in the real window under Xvfb and openbox: at start the main window
# takes the step that fits the screen, drawn whole at that size; a key
# changes the step at once, the window keeping its centre, and the choice is
# kept in the user's config file; Ctrl+0 goes back to fit; the window
# manager's maximise button shows the largest step that fits the screen.
# Usage: zoom_screen_test.sh PROGRAM_DIR DELIVERED_DIR WIDTHxHEIGHT FIT_PERCENT KEY KEY_PERCENT MAXIMISED_PERCENT
set -euo pipefail
PROGRAM_DIR=$1
DELIVERED_DIR=$2
XVFB_SCREEN="$3x24"
FIT=$4
KEY=$5
AFTER_KEY=$6
MAXIMISED=$7
HERE=$(cd "$(dirname "$0")" && pwd)
source "$HERE"/../../scripts/xvfb_session.sh
start_window_manager
fresh_program "$PROGRAM_DIR" "$DELIVERED_DIR" "$WORK"
sed -i -e 's/^soundon=.*\r$/soundon=FALSE\r/' "$WORK/dovrin.ini"
"$WORK/dovrin" >"$WORK/program.log" 2>&1 &
APP=$!
wait_for_user_form "$APP"
MAIN=$(xdotool search --onlyvisible --name "LANTERN! DOVRIN" | head -1)
xdotool key --clearmodifiers ctrl+a type "Zoom"
xdotool key Return
until ! xdotool search --onlyvisible --name "^Lantern! Dovrin$" >/dev/null 2>&1; do sleep 0.05; done

failures=0
check() { # what, expected, actual
    if [ "$2" != "$3" ]; then echo "FAILED: $1: expected $2, got $3"; failures=$((failures + 1)); fi
}
# The client's width and height and its centre on the screen, once the
# window has settled at the size of a zoom: the design's 642 x 465 at the
# zoom, each rounded to the nearest pixel. SIZE_AT says whether it did.
geometry() { # percent
    local expected="$(((642 * $1 + 50) / 100))x$(((465 * $1 + 50) / 100))"
    for _ in $(seq 100); do
        eval "$(xdotool getwindowgeometry --shell "$MAIN")"
        [ "${WIDTH}x$HEIGHT" = "$expected" ] && break
        sleep 0.05
    done
    SIZE_AT=$([ "${WIDTH}x$HEIGHT" = "$expected" ] && echo "$1 %" || echo "${WIDTH}x$HEIGHT px")
    CENTRE_X=$((X + WIDTH / 2))
    CENTRE_Y=$((Y + HEIGHT / 2))
}
# The table's wooden rail in the client's bottom right corner: the picture
# fills the whole zoomed window, once the window has painted it.
rail_in_corner() {
    local seen
    for _ in $(seq 40); do
        import -window "$MAIN" "$WORK/shot.png"
        seen=$(convert "$WORK/shot.png" -crop "1x1+$((WIDTH - 4))+$((HEIGHT - 4))" \
            -format '%[fx:int(255*r)] %[fx:int(255*b)]' info: |
            { read -r red blue; [ "$red" -gt $((blue + 20)) ] && echo wood || echo "not wood ($red,$blue)"; })
        [ "$seen" = wood ] && break
        sleep 0.05
    done
    echo "$seen"
}
config() { sed -n 's/^zoom=//p' "$XDG_CONFIG_HOME/lantern-dovrin/lantern-dovrin.conf" 2>/dev/null; }

geometry "$FIT"
check "the size at start" "$FIT %" "$SIZE_AT"
check "the table at the fit step" wood "$(rail_in_corner)"
FIT_CENTRE="$CENTRE_X,$CENTRE_Y"

xdotool key --clearmodifiers "$KEY"
geometry "$AFTER_KEY"
check "the size after $KEY" "$AFTER_KEY %" "$SIZE_AT"
check "the table after $KEY" wood "$(rail_in_corner)"
near=$(python3 -c "a,b='$FIT_CENTRE'.split(','); print(abs(int(a)-$CENTRE_X)<=2 and abs(int(b)-$CENTRE_Y)<=2)")
check "the centre kept ($FIT_CENTRE)" True "$near"
check "the choice kept" "$AFTER_KEY" "$(config)"

xdotool key --clearmodifiers ctrl+0
geometry "$FIT"
check "the size back at fit" "$FIT %" "$SIZE_AT"
check "fit kept" fit "$(config)"
# openbox's maximise button: the second from the right in the title bar.
read -r left _ top _ < <(xprop -id "$MAIN" _NET_FRAME_EXTENTS | sed 's/.*= //; s/,//g')
eval "$(xwininfo -id "$MAIN" | sed -n 's/^ *Absolute upper-left \([XY\]\): *\(-*[0-9]*\)$/ABS_\1=\2/p')"
xdotool mousemove $((ABS_X + WIDTH + left - 26)) $((ABS_Y - top / 2)) click 1
geometry "$MAXIMISED"
check "the size after maximise" "$MAXIMISED %" "$SIZE_AT"
check "the table maximised" wood "$(rail_in_corner)"
kill -0 "$APP" || { echo "FAILED: the program ended"; failures=$((failures + 1)); }

[ "$failures" -eq 0 ] && echo "1 passed, 0 failed" || { cat "$WORK/program.log"; exit 1; }
