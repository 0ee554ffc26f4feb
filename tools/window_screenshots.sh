#!/usr/bin/env bash
# Takes the README's pictures of the window under Xvfb, at 100 % and 200 %:
#   tools/window_screenshots.sh [BUILD_DIR] [OUTDIR]
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build}"
out="${2:-docs/screenshots}"
cmake --build "$build" -j2 --target window_screenshots korvane
run() { # SCREEN [VAR=value...]
  local screen="$1"
  shift
  xvfb-run -a -s "-screen 0 ${screen}x24" env QT_QPA_PLATFORM=xcb "$@" "$build/bin/window_screenshots" "$out"
}
run 1600x1050
run 3200x2100 QT_SCALE_FACTOR=2
