#!/usr/bin/env bash
# Installs every Debian package the build, the tests and the screenshots need,
# skipping those already present. Works as root or through sudo.
set -euo pipefail

PACKAGES=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev qt6-base-private-dev qt6-svg-dev libqt6svg6 qt6-qpa-plugins qt6-wayland
  kdegames-card-data-kf5
  libsqlcipher-dev sqlcipher sqlite3
  libsdl2-dev
  libfluidsynth-dev timgm6mb-soundfont
  libgtest-dev libgmock-dev
  clang libclang-rt-14-dev
  xvfb openbox xdotool imagemagick x11-utils python3 dbus-daemon
  weston xwayland
  sox fluidsynth
  fonts-dejavu-core fonts-dejavu-extra
  desktop-file-utils appstream libglib2.0-bin lintian
)

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  exit 0
fi

echo "Installing missing packages: ${missing[*]}"
if [ "$(id -u)" -eq 0 ]; then
  SUDO=""
elif command -v sudo >/dev/null 2>&1; then
  SUDO="sudo"
else
  echo "error: these packages are missing and neither root nor sudo is available: ${missing[*]}" >&2
  exit 1
fi

export DEBIAN_FRONTEND=noninteractive
$SUDO apt-get update -qq
$SUDO apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
