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
exit $((faults > 0))
