#!/usr/bin/env bash
# Makes the screenshots of the user guide again (docs/guide/images/*.png):
# the real program on the demo base, under Xvfb. Run it when windows change,
# then look at the pictures and commit them.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${PLOUVARINE_BUILD_DIR:-$root/build}"
export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=true
cmake --build "$build" --target guide_screenshots
xvfb-run -a -s "-screen 0 1280x800x24" "$build/tests/guide_screenshots" "$root/docs/guide/images"
