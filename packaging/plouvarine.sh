#!/bin/sh
# Starts Plouvarine from a per-user copy of its application folder.
#
# The program works in its own folder: it writes its report templates and its
# work folders beside the executable. The installed folder belongs to root, so
# each user gets ${XDG_DATA_HOME:-~/.local/share}/plouvarine, where the
# executable is copied (the program finds its folder from the executable's
# real path) and the components, the model base, the upgrade file and the
# guide are links to the installed ones. The demo base is copied once, so
# that it can be opened and changed.
set -eu
here=$(dirname "$(readlink -f "$0")")
installed=$(readlink -f "$here/../lib/plouvarine")
user="${XDG_DATA_HOME:-$HOME/.local/share}/plouvarine"
mkdir -p "$user"
chmod 700 "$user"
for f in "$installed"/*; do
  name=$(basename "$f")
  case "$name" in
    plouvarine) cmp -s "$f" "$user/$name" || cp -f "$f" "$user/$name" ;;
    demo.mdb) [ -e "$user/$name" ] || { cp "$f" "$user/$name"; chmod 600 "$user/$name"; } ;;
    *) ln -sfn "$f" "$user/$name" ;;
  esac
done
exec "$user/plouvarine" "$@"
