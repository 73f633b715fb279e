#!/usr/bin/env bash
# Under Xvfb, Release build, from a fresh copy of the delivered files: the
# heaviest tick of the want-more scene over two rounds of its script, and
# the processor use while it plays with its tune (build/bin/bench_want_more).
set -euo pipefail
cd "$(dirname "$0")/.."
./scripts/build.sh bench_want_more dovrin_tunes dovrin_pcluck >/dev/null
source scripts/xvfb_session.sh
fresh_program build/program build/delivered "$WORK/program"
build/bin/bench_want_more "$WORK/program" 2>/dev/null
