#!/usr/bin/env bash
# Runs the game under a Wayland desktop: weston's headless compositor with
# XWayland, on an output of 1920x1080. The program starts twice beside fresh
# copies of the delivered files, at the zoom given: natively (Qt's wayland
# platform) and as the package starts it where an X display is at hand,
# through XWayland. Each time the user form stands over the main window; a
# screenshot of the output is saved, and the script checks that the form is
# given the main window as its parent (xdg_toplevel.set_parent natively,
# WM_TRANSIENT_FOR through XWayland) and that the windows have the zoom's
# size. Nothing types into the forms: the headless compositor has no seat.
# Usage: scripts/wayland_check.sh OUT_DIR [ZOOM]   (ZOOM: a percent or fit; 150)
# Needs weston, xwayland, qt6-wayland, xdotool and x11-utils, and a built
# program in build/ (BUILD_DIR names another build folder).
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=${1:?usage: scripts/wayland_check.sh OUT_DIR [ZOOM]}
ZOOM=${2:-150}
BUILD=${BUILD_DIR:-build}
mkdir -p "$OUT"
OUT=$(cd "$OUT" && pwd)

WORK=$(mktemp -d)
APP=
WESTON=
end_session() {
  if [ -n "$APP" ]; then kill "$APP" 2>/dev/null || true; fi
  if [ -n "$WESTON" ]; then kill "$WESTON" 2>/dev/null || true; wait "$WESTON" 2>/dev/null || true; fi
  rm -rf "$WORK"
}
trap end_session EXIT

export XDG_RUNTIME_DIR="$WORK/xdg" SDL_AUDIODRIVER=dummy
mkdir -m 700 "$XDG_RUNTIME_DIR"
export WAYLAND_DISPLAY="dovrin-check-$$"
unset DISPLAY QT_QPA_PLATFORM
# No on-screen keyboard: it would take the keys of every text box.
printf '[core]\nidle-time=0\n\n[input-method]\npath=\n' >"$WORK/weston.ini"
weston --config="$WORK/weston.ini" --backend=headless-backend.so --width=1920 --height=1080 --use-pixman \
  --socket="$WAYLAND_DISPLAY" --debug --xwayland >"$WORK/weston.log" 2>&1 &
WESTON=$!
for _ in $(seq 100); do [ -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" ] && break; sleep 0.1; done
[ -S "$XDG_RUNTIME_DIR/$WAYLAND_DISPLAY" ] || { echo "weston did not start:" >&2; cat "$WORK/weston.log" >&2; exit 1; }
for _ in $(seq 100); do grep -q "xserver listening on display" "$WORK/weston.log" && break; sleep 0.1; done
X_DISPLAY=$(sed -n 's/.*xserver listening on display \(:[0-9]*\).*/\1/p' "$WORK/weston.log" | head -n 1)
[ -n "$X_DISPLAY" ] || { echo "weston offers no XWayland display" >&2; exit 1; }

# run_program NAME [VAR=VALUE...]: the program beside fresh copies of the
# delivered files, with a fresh configuration, in the background as $APP.
run_program() {
  local dir="$WORK/$1"
  shift
  mkdir -p "$dir/config"
  cp "$BUILD"/program/{dovrin,Circus.mid,sweetone.mid,PCluck.wav} "$BUILD"/delivered/{Lantern.mdb,dovrin.ini} "$dir"/
  (cd "$dir" && exec env XDG_CONFIG_HOME="$dir/config" "$@" ./dovrin --zoom "$ZOOM" >"$dir/out.log" 2>"$dir/err.log") &
  APP=$!
}

stop_program() { kill "$APP" 2>/dev/null || true; wait "$APP" 2>/dev/null || true; APP=; }

# shoot NAME: the whole output as OUT_DIR/NAME.png.
shoot() {
  mkdir -p "$WORK/shot"
  (cd "$WORK/shot" && rm -f ./*.png && weston-screenshooter >/dev/null)
  mv "$WORK/shot"/*.png "$OUT/$1.png"
  echo "saved $OUT/$1.png"
}

# The expected client width at the zoom (fit is 150 % on this output).
percent=$ZOOM
[ "$percent" = fit ] && percent=150
design_width=642
client_width=$(( (design_width * percent + 50) / 100 ))
faults=0
fault() { echo "FAULT: $1"; faults=$((faults + 1)); }

# Natively: the protocol log tells the toplevels and their parents.
echo "== native Wayland, --zoom $ZOOM"
run_program native QT_QPA_PLATFORM=wayland WAYLAND_DEBUG=1
log="$WORK/native/err.log"
for _ in $(seq 150); do
  # The user form's toplevel has its parent and its first picture.
  awk '/xdg_toplevel@[0-9]+\.set_parent/ {p=1} p && /wl_surface@[0-9]+\.attach/ {found=1} END {exit !found}' \
    "$log" 2>/dev/null && break
  kill -0 "$APP" 2>/dev/null || break
  sleep 0.1
done
sleep 0.5
shoot native
toplevels=$(grep -c 'get_toplevel' "$log" || true)
parented=$(grep -c 'xdg_toplevel@[0-9]*\.set_parent(xdg_toplevel@' "$log" || true)
echo "toplevels: $toplevels, with a parent: $parented"
[ "$toplevels" -ge 2 ] || fault "natively, the user form did not open"
[ "$parented" -eq $((toplevels - 1)) ] || fault "natively, a form has no parent"
main_width=$(sed -n 's/.*xdg_surface@[0-9]*\.set_window_geometry(0, 0, \([0-9]*\), [0-9]*).*/\1/p' "$log" | head -n 1)
echo "main window: ${main_width:-?} wide (client $client_width and Qt's own frame)"
[ -n "$main_width" ] && [ "$main_width" -ge "$client_width" ] && [ "$main_width" -le $((client_width + 16)) ] ||
  fault "natively, the main window is not of the zoom's size"
stop_program

# Through XWayland, as the program chooses with an X display at hand.
echo "== XWayland ($X_DISPLAY), --zoom $ZOOM"
run_program xwayland DISPLAY="$X_DISPLAY"
form=
for _ in $(seq 150); do
  form=$(DISPLAY=$X_DISPLAY xdotool search --onlyvisible --name '^Lantern! Dovrin$' 2>/dev/null | head -n 1) || true
  [ -n "$form" ] && break
  kill -0 "$APP" 2>/dev/null || break
  sleep 0.1
done
sleep 0.5
shoot xwayland
main=$(DISPLAY=$X_DISPLAY xdotool search --onlyvisible --name '^Oakmere Software' 2>/dev/null | head -n 1) || true
if [ -z "$form" ] || [ -z "$main" ]; then
  fault "through XWayland, the windows did not show (the program may have taken the wayland platform)"
else
  owner=$(DISPLAY=$X_DISPLAY xprop -id "$form" WM_TRANSIENT_FOR | sed -n 's/.*# //p')
  echo "user form transient for: ${owner:-none}; main window: $(printf '0x%x' "$main")"
  [ -n "$owner" ] && [ $((owner)) -eq "$main" ] || fault "through XWayland, the user form is not transient for the main window"
  main_width=$(DISPLAY=$X_DISPLAY xdotool getwindowgeometry "$main" | sed -n 's/.*Geometry: \([0-9]*\)x.*/\1/p')
  echo "main window: $main_width wide (client $client_width)"
  [ "$main_width" = "$client_width" ] || fault "through XWayland, the main window is not of the zoom's size"
fi
stop_program

[ "$faults" -eq 0 ] && echo "wayland check passed" || echo "wayland check: $faults faults"
exit $((faults > 0))
