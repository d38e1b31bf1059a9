#!/usr/bin/env bash
# Configures and builds Plouvarine into build/ (the application folder is build/bin).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${PLOUVARINE_BUILD_DIR:-$root/build}"
# ccache finds a compilation again from another checkout of the project (paths
# taken relative to the project's root).
export CCACHE_BASEDIR="$root" CCACHE_NOHASHDIR=true
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release
fi
cmake --build "$build" -j "$(nproc)"
