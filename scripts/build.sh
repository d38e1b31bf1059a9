#!/usr/bin/env bash
# Configures and builds Plouvarine into build/ (the application folder is build/bin).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${PLOUVARINE_BUILD_DIR:-$root/build}"
if [ ! -f "$build/CMakeCache.txt" ]; then
  cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release
fi
cmake --build "$build" -j "$(nproc)"
