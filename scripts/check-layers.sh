#!/usr/bin/env bash
# Lists every include of ours that goes against the layer order and exits
# non-zero when there is one. The order, from the bottom: src/base, src/store,
# src/frame, src/reports, the subjects src/clubs, src/licences,
# src/competitions, src/entries, src/results, src/records, src/tools, the top of src/, then gui/frame, the subjects'
# windows in the same order, the top of gui/, and app/. A folder may include
# its own layer and the layers below it, never one above.
set -euo pipefail
cd "$(dirname "$0")/.."
layers=(src/base src/store src/frame src/reports
        src/clubs src/licences src/competitions src/entries src/results src/records src/tools src
        gui/frame gui/clubs gui/licences gui/competitions gui/entries gui/results gui/records gui/tools gui
        app)
rank() {
  local path=$1 i
  for i in "${!layers[@]}"; do
    case "$path" in "${layers[$i]}"/*) echo "$i"; return ;; esac
  done
  echo -1
}
faults=0
while IFS= read -r file; do
  from=$(rank "$file")
  [ "$from" -ge 0 ] || continue
  while IFS= read -r inc; do
    to=$(rank "$inc")
    [ "$to" -ge 0 ] || continue
    if [ "$to" -gt "$from" ]; then
      echo "$file: includes $inc (${layers[$to]} above ${layers[$from]})"
      faults=$((faults + 1))
    fi
  done < <(sed -n 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"\([^"]*\)".*/\1/p' "$file")
done < <(git ls-files --cached --others --exclude-standard -- src gui app | grep -E '\.(h|cpp)$')
if [ "$faults" -gt 0 ]; then
  echo "$faults include(s) against the layer order" >&2
  exit 1
fi
echo "layers: no include against the order"
