#!/usr/bin/env bash
# On a fresh machine: installs the packages, builds, and runs every test through ctest.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh" --tests
bash "$root/scripts/build.sh"
build="${PLOUVARINE_BUILD_DIR:-$root/build}"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build" --output-on-failure -j "$(nproc)"
