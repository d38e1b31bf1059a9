#!/usr/bin/env bash
# Installs every Debian package that building, running and testing Plouvarine needs.
# With --tests, also what only the tests use: a word processor that writes the
# RTF our templates must read, and poppler to render printed PDF pages to pictures.
set -euo pipefail
packages=(
  build-essential cmake ninja-build ccache pkg-config
  qt6-base-dev qt6-base-dev-tools qt6-translations-l10n libgl-dev
  libsqlite3-dev sqlite3 libzip-dev zip unzip
  libgtest-dev libgmock-dev libbenchmark-dev
  xvfb xauth
)
if [ "${1:-}" = "--tests" ]; then
  packages+=(libreoffice-writer-nogui poppler-utils)
fi
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  SUDO=""; [ "$(id -u)" -ne 0 ] && SUDO="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $SUDO apt-get update
  $SUDO apt-get install -y --no-install-recommends "${missing[@]}"
fi
