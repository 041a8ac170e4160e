#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Debian package (scripts/package) and checks what it installs:
# the desktop file, AppStream data, icons, the engine under libexec and the
# manual pages are in it, and the freedesktop validators accept the files.
set -euo pipefail
cd "$(dirname "$0")/.."

deb=$(scripts/package | tail -1)
id=$(sed -n 's/.*kAppId\[\] = u"\([^"]*\)".*/\1/p' src/platform/AppId.h)
version=$(sed -n 's/^project(Orvanta VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
failures=0
fail() { echo "check-package: $*" >&2; failures=$((failures + 1)); }

contents=$(dpkg-deb -c "$deb" | awk '{print $NF}' | sed 's|^\./|/|')
expected=(
  /usr/bin/orvanta
  /usr/bin/orvanta-uhdr
  /usr/libexec/orvanta/orvanta_engine
  "/usr/share/applications/$id.desktop"
  "/usr/share/metainfo/$id.metainfo.xml"
  "/usr/share/icons/hicolor/scalable/apps/$id.svg"
  /usr/share/man/man1/orvanta.1.gz
  /usr/share/man/man1/orvanta_engine.1.gz
  /usr/share/man/man1/orvanta-uhdr.1.gz
)
for size in 16 22 24 32 48 64 128 256 512; do
  expected+=("/usr/share/icons/hicolor/${size}x${size}/apps/$id.png")
done
for path in "${expected[@]}"; do
  grep -qxF "$path" <<<"$contents" || fail "missing $path"
done
# The engine is a helper, not a command.
if grep -qxF /usr/bin/orvanta_engine <<<"$contents"; then fail "orvanta_engine is in /usr/bin"; fi

field() { dpkg-deb -f "$deb" "$1"; }
[ "$(field Section)" = graphics ] || fail "section is '$(field Section)', not graphics"
[ "$(field Version)" = "$version-1" ] || fail "version is '$(field Version)', not $version-1"
for dep in libqt6widgets6 libsqlite3-0 libexiv2-27 libraw20 libsodium23 opencv-data xdg-utils; do
  field Depends | grep -q "\b$dep\b" || fail "Depends lacks $dep"
done

# Validate the files as installed, straight from the package.
tree=$(mktemp -d)
trap 'rm -rf "$tree"' EXIT
dpkg-deb -x "$deb" "$tree"
desktop-file-validate "$tree/usr/share/applications/$id.desktop" || fail "desktop-file-validate"
appstreamcli validate --no-net "$tree/usr/share/metainfo/$id.metainfo.xml" || fail "appstreamcli validate"
grep -q "<release version=\"$version\"" "$tree/usr/share/metainfo/$id.metainfo.xml" \
  || fail "the metainfo has no release $version"
for png in "$tree"/usr/share/icons/hicolor/*x*/apps/"$id.png"; do
  size=$(basename "$(dirname "$(dirname "$png")")")
  file "$png" | grep -q "${size/x/ x }," || fail "$png is not $size"
done
for page in orvanta orvanta_engine orvanta-uhdr; do
  warnings=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$tree/usr/share/man/man1/$page.1.gz" 2>&1 >/dev/null || true)
  [ -z "$warnings" ] || fail "man page $page: $warnings"
done
for tool in orvanta-uhdr; do
  "$tree/usr/bin/$tool" --version | grep -qx "$tool $version" || fail "$tool --version"
done
"$tree/usr/libexec/orvanta/orvanta_engine" --version | grep -qx "orvanta_engine $version" \
  || fail "orvanta_engine --version"

if [ "$failures" -ne 0 ]; then
  echo "check-package: $failures problem(s) in $deb" >&2
  exit 1
fi
echo "check-package: $deb ($(du -k "$deb" | cut -f1) KiB) passes"
