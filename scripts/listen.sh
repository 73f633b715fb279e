#!/usr/bin/env bash
# Records what the game plays: starts it under Xvfb with SDL's disk driver and
# the animals on, crosses the pot and the animals with the pointer, plays one
# hand, then turns the recording into a WAV file and draws its spectrogram.
# Usage: scripts/listen.sh [output directory]
set -euo pipefail
cd "$(dirname "$0")/.."
OUT=$(realpath -m "${1:-listen}")
mkdir -p "$OUT"
source "$(dirname "$0")"/xvfb_session.sh
fresh_program build/program build/delivered "$WORK"
sed -i 's/^animals=.*\r$/animals=TRUE\r/' "$WORK/dovrin.ini"
export SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$WORK/played.raw"
"$WORK/dovrin" >"$WORK/program.log" 2>&1 &
APP=$!
python3 scripts/autoplay.py --user Listener --tour --hands 1 --timeout 300 --shots "$OUT"
kill "$APP"
sox -t raw -r 44100 -e floating-point -b 32 -c 2 "$WORK/played.raw" "$OUT/played.wav"
sox "$OUT/played.wav" -n remix 1 spectrogram -x 1600 -y 400 -o "$OUT/played.png"
echo "saved $OUT/played.wav and $OUT/played.png"
