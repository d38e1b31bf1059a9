#!/usr/bin/env bash
# The desktop entry and the AppStream metadata pass their validators.
#   check_desktop_files.sh <packaging folder>
set -euo pipefail
dir=$1
desktop-file-validate "$dir/fr.plouvarine.Plouvarine.desktop"
appstreamcli validate --no-net "$dir/fr.plouvarine.Plouvarine.metainfo.xml"
# The entry's icon is one the package installs.
grep -qx 'Icon=plouvarine' "$dir/fr.plouvarine.Plouvarine.desktop"
test -f "$dir/icons/plouvarine.svg"
