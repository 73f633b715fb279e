# Sourced by the scripts that run the program under Xvfb. Makes a scratch
# directory $WORK, starts Xvfb on a display it picks itself and exports what
# the program needs there. When the script ends, Xvfb and the program whose
# pid is in $APP (and the window manager, if started) are stopped and $WORK
# is removed.
WORK=$(mktemp -d)
end_session() { kill "${APP:-}" "${WM:-}" "${XVFB:-}" "${BUS:-}" 2>/dev/null || true; rm -rf "$WORK"; }
trap end_session EXIT
# -noreset: a server that resets when its last client leaves drops the
# clients that connect meanwhile (the window manager, while xprop polls).
Xvfb -displayfd 3 -screen 0 "${XVFB_SCREEN:-1024x768x24}" -nolisten tcp -noreset 3>"$WORK/display" >"$WORK/xvfb.log" 2>&1 &
XVFB=$!
for _ in $(seq 100); do [ -s "$WORK/display" ] && break; sleep 0.1; done
[ -s "$WORK/display" ] || { echo "Xvfb did not start:"; cat "$WORK/xvfb.log"; exit 1; }
export DISPLAY=":$(cat "$WORK/display")" XDG_RUNTIME_DIR="$WORK/xdg" XDG_CONFIG_HOME="$WORK/config" SDL_AUDIODRIVER=dummy
unset QT_QPA_PLATFORM
mkdir -m 700 "$XDG_RUNTIME_DIR"
# A session bus, as a desktop has: without one, the libraries that look for
# it fork a process to start one, and every page the program then writes
# again costs a fault.
read -r DBUS_SESSION_BUS_ADDRESS BUS < <(dbus-daemon --session --fork --print-address=1 --print-pid=1 | paste -s -d ' ') || true
export DBUS_SESSION_BUS_ADDRESS
for _ in $(seq 100); do xdpyinfo >/dev/null 2>&1 && break; sleep 0.1; done

# fresh_program PROGRAM_DIR DELIVERED_DIR TARGET: the program with its tunes
# and sound beside fresh copies of the delivered settings file and database,
# as a new user gets them.
fresh_program() {
  mkdir -p "$3"
  cp "$1"/dovrin "$1"/Circus.mid "$1"/sweetone.mid "$1"/PCluck.wav "$2"/Lantern.mdb "$2"/dovrin.ini "$3"/
}

# wait_for_user_form PID: polls (a few milliseconds a look) until the user
# form's window is mapped; fails when the program ends before it shows.
wait_for_user_form() {
  until xdotool search --onlyvisible --name "^Lantern! Dovrin$" >/dev/null 2>&1; do
    kill -0 "$1" 2>/dev/null || { echo "the program ended before its user form showed" >&2; return 1; }
  done
}

# start_window_manager: openbox, as on a desktop: it frames and places the
# windows and gives each new form the keyboard. Returns once it manages the
# screen.
start_window_manager() {
  openbox --sm-disable >"$WORK/openbox.log" 2>&1 &
  WM=$!
  timeout 30 bash -c 'until xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"; do sleep 0.02; done' 2>/dev/null ||
    { echo "the window manager did not start on $DISPLAY:"; cat "$WORK/openbox.log" "$WORK/xvfb.log"; return 1; }
}
