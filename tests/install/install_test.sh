#!/usr/bin/env bash
# Installs the build under a scratch prefix with a space in it and checks what
# lands there: every file the program and the desktop need, the user's files
# kept when it is installed again, launchers that name the installed program
# and pass desktop-file-validate, icons of the right sizes and software
# centre data that passes appstreamcli. Then a
# launcher written for a program under a path full of characters its Exec
# key reserves must still start that program (through gio).
# Usage: install_test.sh CMAKE BUILD_DIR SOURCE_DIR
set -euo pipefail
CMAKE=$1
BUILD=$2
SOURCE=$3
ID=com.example.LanternDovrin
WORK=$(mktemp -d)
trap 'rm -rf "$WORK"' EXIT
fail() { echo "FAILED: $*"; exit 1; }

PREFIX="$WORK/the prefix"
"$CMAKE" --install "$BUILD" --prefix "$PREFIX" >"$WORK/install.log" || { cat "$WORK/install.log"; fail "cmake --install"; }

SHARE="$PREFIX/share/lantern-dovrin"
for f in games/dovrin \
         share/lantern-dovrin/{dovrin.ini,Lantern.mdb,Circus.mid,sweetone.mid,PCluck.wav,LANTERN.lnx} \
         share/lantern-dovrin/{guide.html,guide-table.png,guide-rules.png} \
         "share/applications/$ID.desktop" "share/icons/hicolor/scalable/apps/$ID.svg" \
         "share/metainfo/$ID.metainfo.xml" share/man/man6/dovrin.6.gz; do
    [ -s "$PREFIX/$f" ] || fail "nothing installed at $f"
done
[ -x "$PREFIX/games/dovrin" ] || fail "games/dovrin is not executable"
for f in dovrin.ini Lantern.mdb; do
    cmp -s "$BUILD/delivered/$f" "$SHARE/$f" || fail "$f is not the delivered one"
    echo played >>"$SHARE/$f"
    cp "$SHARE/$f" "$WORK/played-$f"
done
# Installed again over its own share folder (as --prefix ~/.local is, which
# holds the user's own files), it keeps them.
"$CMAKE" --install "$BUILD" --prefix "$PREFIX" >"$WORK/install.log" || { cat "$WORK/install.log"; fail "cmake --install again"; }
for f in dovrin.ini Lantern.mdb; do
    cmp -s "$WORK/played-$f" "$SHARE/$f" || fail "installing again replaced $f"
done
# The share folder is copied whole into each user's folder: files only.
[ -z "$(find "$SHARE" -mindepth 1 ! -type f)" ] || fail "the share folder holds more than files"

# The installed launchers start the installed program, the build's its own.
cp "$SHARE/LANTERN.lnx" "$WORK/LANTERN.desktop"
cp "$BUILD/program/LANTERN.lnx" "$WORK/build-LANTERN.desktop"
for entry in "$PREFIX/share/applications/$ID.desktop" "$WORK/LANTERN.desktop" "$WORK/build-LANTERN.desktop"; do
    desktop-file-validate "$entry" || fail "$entry is not a valid desktop entry"
    grep -qx "Icon=$ID" "$entry" || fail "$entry: not the icon $ID"
done
grep -qx "Exec=\"$PREFIX/games/dovrin\"" "$PREFIX/share/applications/$ID.desktop" || fail "menu entry: $(grep ^Exec= "$PREFIX/share/applications/$ID.desktop")"
grep -qx "Exec=\"$PREFIX/games/dovrin\"" "$WORK/LANTERN.desktop" || fail "installed LANTERN.lnx: $(grep ^Exec= "$WORK/LANTERN.desktop")"
grep -qx "Exec=$(cd "$BUILD/program" && pwd)/dovrin" "$WORK/build-LANTERN.desktop" || fail "the build's LANTERN.lnx: $(grep ^Exec= "$WORK/build-LANTERN.desktop")"
grep -qx "Name=LANTERN! Dovrin v3.0" "$WORK/LANTERN.desktop" || fail "LANTERN.lnx is not named LANTERN! Dovrin v3.0"

appstreamcli validate --no-net "$PREFIX/share/metainfo/$ID.metainfo.xml" >"$WORK/appstream.log" || { cat "$WORK/appstream.log"; fail "metainfo"; }

# A PNG's header: width, height, bit depth and colour type (6: with alpha).
png_header() {
    python3 -c 'import struct, sys
d = open(sys.argv[1], "rb").read(26)
print(*struct.unpack(">8x8xIIBB", d) if d[:8] == b"\x89PNG\r\n\x1a\n" else ["not a PNG"])' "$1"
}
for size in 16 32 48 64 128 256; do
    got=$(png_header "$PREFIX/share/icons/hicolor/${size}x${size}/apps/$ID.png")
    [ "$got" = "$size $size 8 6" ] || fail "icon ${size}x${size}: $got"
done
gzip -t "$PREFIX/share/man/man6/dovrin.6.gz" || fail "the manual page is not gzip'd"

# Exec quoting: a program under a path with a space, $, ", ` and \ started by
# the launcher written for it.
ODD="$WORK/odd dir/\$HOME \"q\" \`b\` back\\slash"
mkdir -p "$ODD"
printf '#!/bin/sh\necho started > "%s/started"\n' "$WORK" >"$ODD/dovrin"
chmod +x "$ODD/dovrin"
"$CMAKE" -DTEMPLATE="$SOURCE/resources/install/LANTERN.lnx.in" -DOUTPUT="$WORK/odd.desktop" \
    -DEXECUTABLE="$ODD/dovrin" -DDOVRIN_APP_ID=$ID -P "$SOURCE/resources/install/configure_entry.cmake"
desktop-file-validate "$WORK/odd.desktop" || fail "odd.desktop is not a valid desktop entry"
gio launch "$WORK/odd.desktop" || fail "gio could not launch $(grep ^Exec= "$WORK/odd.desktop")"
for _ in $(seq 50); do [ -f "$WORK/started" ] && break; sleep 0.1; done
[ -f "$WORK/started" ] || fail "$(grep ^Exec= "$WORK/odd.desktop") did not start $ODD/dovrin"
echo "1 passed, 0 failed"
