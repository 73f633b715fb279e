#!/usr/bin/env bash
# Under Xvfb on a 1920 x 1080 screen with openbox, Release build, each run
# from a fresh copy of the delivered files (build/bin/bench_start):
#  - from main() until the user form is painted, at the fit zoom (150 % on
#    this screen) and at 100 %, turn about, and the ratio of the medians;
#  - live changes of zoom once the hand shows: from Ctrl+Plus (or Ctrl+Minus
#    where the screen has no room for a larger step) until the table is
#    painted at the new size.
# Usage: bench/zoom.sh [runs]
set -euo pipefail
cd "$(dirname "$0")/.."
RUNS=${1:-10}
./scripts/build.sh dovrin bench_start >/dev/null
XVFB_SCREEN=1920x1080x24
source scripts/xvfb_session.sh
start_window_manager

start_ms() { # zoom
  rm -rf "$WORK/program" && fresh_program build/program build/delivered "$WORK/program"
  build/bin/bench_start "$WORK/program" --zoom "$1" 2>/dev/null | sed -n 's/^start to user form painted: \(.*\) ms$/\1/p'
}
: >"$WORK/fit" && : >"$WORK/100"
for run in $(seq "$RUNS"); do
  start_ms fit >>"$WORK/fit"
  start_ms 100 >>"$WORK/100"
  echo "run $run: main() to user form painted: fit $(tail -1 "$WORK/fit") ms, 100 % $(tail -1 "$WORK/100") ms"
done
python3 - "$WORK/fit" "$WORK/100" <<'EOF'
import statistics, sys
fit, full = ([float(line) for line in open(path)] for path in sys.argv[1:3])
# A run's two starts share the machine's moment: the median of their ratios
# holds up where a neighbour's load comes and goes over the runs.
print(f"median: fit {statistics.median(fit):.1f} ms, 100 % {statistics.median(full):.1f} ms, "
      f"ratio {statistics.median(fit) / statistics.median(full):.2f}; "
      f"median of each run's ratio {statistics.median(f / h for f, h in zip(fit, full)):.2f}")
EOF
rm -rf "$WORK/program" && fresh_program build/program build/delivered "$WORK/program"
build/bin/bench_start "$WORK/program" --zoom fit --changes 12 2>/dev/null | grep "zoom key"
