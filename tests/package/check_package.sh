#!/usr/bin/env bash
# The Debian package that CPack makes from a build: its file list holds the
# program, every component of the application folder, the model base, the
# demo base, the guide, the launcher, the desktop entry and the icons, and its
# control file declares the libraries it needs.
#   check_package.sh <build folder>
set -euo pipefail
build=$1
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
cpack --config "$build/CPackConfig.cmake" -G DEB -B "$out" > "$out/cpack.log" 2>&1 || { cat "$out/cpack.log"; exit 1; }
deb=$(ls "$out"/*.deb)
dpkg-deb -c "$deb" | awk '{print $NF}' | sed 's|^\./|/|' > "$out/files"
faults=0
need() {
  if ! grep -qx "$1" "$out/files"; then
    echo "missing from the package: $1"
    faults=$((faults + 1))
  fi
}
app=/usr/lib/plouvarine
need $app/plouvarine
for plugin in "$build"/bin/*.so; do
  need "$app/$(basename "$plugin")"
done
[ "$(ls "$build"/bin/*.so | wc -l)" -ge 9 ] || { echo "fewer components built than expected"; faults=$((faults + 1)); }
need $app/modele_base.sav
need $app/demo.mdb
need $app/maj_base.ini
need $app/guide/index.md
need /usr/bin/plouvarine
need /usr/share/applications/fr.plouvarine.Plouvarine.desktop
need /usr/share/metainfo/fr.plouvarine.Plouvarine.metainfo.xml
need /usr/share/icons/hicolor/scalable/apps/plouvarine.svg
for size in 48 128 256; do
  need /usr/share/icons/hicolor/${size}x${size}/apps/plouvarine.png
done
depends=$(dpkg-deb -f "$deb" Depends)
for lib in libqt6widgets6 libqt6printsupport6 libsqlite3-0 libzip4; do
  case "$depends" in
    *"$lib"*) ;;
    *) echo "not declared in Depends: $lib ($depends)"; faults=$((faults + 1)) ;;
  esac
done
# The demo base in the package is the one the build made.
dpkg-deb -x "$deb" "$out/root"
cmp "$out/root$app/demo.mdb" "$build/bin/demo.mdb" || faults=$((faults + 1))
[ -x "$out/root/usr/bin/plouvarine" ] || { echo "the launcher is not executable"; faults=$((faults + 1)); }

# The launcher gives a user a working folder of their own and starts the
# program from it: still running after three seconds is a start.
user="$out/home/plouvarine"
rc=0
HOME="$out/home" XDG_CONFIG_HOME="$out/home/config" XDG_DATA_HOME="$out/home" QT_QPA_PLATFORM=offscreen timeout 3 "$out/root/usr/bin/plouvarine" > "$out/run.log" 2>&1 || rc=$?
if [ "$rc" -ne 124 ]; then
  echo "the program did not stay up (exit $rc):"; cat "$out/run.log"; faults=$((faults + 1))
fi
[ -f "$user/plouvarine" ] && [ ! -L "$user/plouvarine" ] || { echo "the executable is not copied"; faults=$((faults + 1)); }
[ "$(readlink -f "$user/rcpres.so")" = "$(readlink -f "$out/root$app/rcpres.so")" ] || { echo "no link to the components"; faults=$((faults + 1)); }
[ -f "$user/demo.mdb" ] && [ ! -L "$user/demo.mdb" ] || { echo "the demo base is not copied"; faults=$((faults + 1)); }
exit $((faults > 0))
