#!/usr/bin/env bash
# Under Xvfb, Release build, turn about: the start of the program from its
# build folder (a fresh copy of the delivered files each run) and of the
# installed program as a new user (an empty home each run, so the first
# start's filling of ~/.local/share/lantern-dovrin is included), each from
# its start until the user form's window is mapped (polled with xdotool).
# Also the installed size and the size of the Debian package.
# Usage: bench/installed_startup.sh [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-5}
./scripts/build.sh dovrin dovrin_tunes dovrin_pcluck dovrin_guide dovrin_delivered_files dovrin_launcher dovrin_install_files >/dev/null
source scripts/xvfb_session.sh
cmake --install build --prefix "$WORK/prefix" >/dev/null
ms() { date +%s%3N; }
mapped() {  # command...; prints the milliseconds until the user form is mapped
  local start app
  start=$(ms)
  "$@" >/dev/null 2>&1 &
  app=$!
  wait_for_user_form "$app" || exit 1
  echo $(( $(ms) - start ))
  kill "$app" 2>/dev/null; wait "$app" 2>/dev/null || true
}
for run in $(seq "$RUNS"); do
  rm -rf "$WORK/program" "$WORK/home" && fresh_program build/program build/delivered "$WORK/program"
  mkdir -p "$WORK/home"
  built=$(mapped "$WORK/program/dovrin")
  installed=$(HOME="$WORK/home" XDG_DATA_HOME="$WORK/home/.local/share" mapped "$WORK/prefix/games/dovrin")
  [ -f "$WORK/home/.local/share/lantern-dovrin/Lantern.mdb" ] || { echo "the user's folder wasn't filled" >&2; exit 1; }
  echo "run $run: build folder $built ms, installed as a new user $installed ms"
done
echo "installed size: $(du -sk "$WORK/prefix" | cut -f1) KiB"
(cd build && rm -f lantern-dovrin_*.deb && cpack -G DEB >/dev/null && ls -l lantern-dovrin_*.deb | awk '{ print $9 ": " $5 " bytes" }')
dpkg-deb -f build/lantern-dovrin_*.deb Installed-Size | sed 's/^/Installed-Size of the package: /; s/$/ KiB/'
