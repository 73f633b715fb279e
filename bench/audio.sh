#!/usr/bin/env bash
# Release build, no sound card needed: the sound's figures through SDL's dummy
# driver, and once through its disk driver, which writes what the device would
# play to a scratch file. Each driver runs both orders: effects first (the
# first effect opens the device) and the tune first (its first open opens it).
# Usage: bench/audio.sh [runs] [seconds of play]
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-3}
SECONDS_OF_PLAY=${2:-10}
export BUILD_DIR=${BUILD_DIR:-build}
./scripts/build.sh bench_audio dovrin_wave_files dovrin_tunes >/dev/null
BENCH=("$BUILD_DIR/bin/bench_audio" "$BUILD_DIR/resources/waves/wave" "$BUILD_DIR/program/Circus.mid" "$SECONDS_OF_PLAY")
SCRATCH=$(mktemp -d)
trap 'rm -rf "$SCRATCH"' EXIT
for run in $(seq "$RUNS"); do
  for order in "" --tune-first; do
    SDL_AUDIODRIVER=dummy "${BENCH[@]}" $order | sed "s/^/run $run: /"
  done
done
for order in "" --tune-first; do
  # The disk driver announces itself on stderr, on every run.
  SDL_AUDIODRIVER=disk SDL_DISKAUDIOFILE="$SCRATCH/device.raw" "${BENCH[@]}" $order \
    2> >(grep -v '^CRITICAL:' >&2) | sed "s/^/disk: /"
done
