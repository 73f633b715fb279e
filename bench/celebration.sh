#!/usr/bin/env bash
# Under Xvfb, Release build, from a fresh copy of the delivered files (music
# on): the time of one tick of the balloons and the processor use of a whole
# celebration of a high score, tune included (build/bin/bench_celebration).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/build.sh bench_celebration >/dev/null
source scripts/xvfb_session.sh
fresh_program build/program build/delivered "$WORK/program"
build/bin/bench_celebration "$WORK/program" 2>/dev/null
