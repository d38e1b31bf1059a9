#!/usr/bin/env bash
# On a fresh machine: installs the packages, builds, and starts Plouvarine.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
bash "$root/scripts/install-deps.sh"
bash "$root/scripts/build.sh"
build="${PLOUVARINE_BUILD_DIR:-$root/build}"
exec "$build/bin/plouvarine"
