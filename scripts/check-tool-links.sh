#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The command-line tools link the codec, media and state-database libraries,
# never the application's core. Fails when one of the given binaries needs Qt's
# D-Bus, network, widget, OpenGL or SVG module itself, or loads one of the last
# four through any library. (QtGui, which the codec's QImage needs, loads
# QtDBus on Debian; only a codec without QtGui would drop that one.)
#   scripts/check-tool-links.sh BINARY...
set -euo pipefail

direct='libQt6(DBus|Network|Widgets|OpenGL|OpenGLWidgets|Svg)\.so'
loaded='libQt6(Network|Widgets|OpenGL|OpenGLWidgets|Svg)\.so'
status=0
for binary in "$@"; do
  needed=$(readelf -d "$binary" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
  if found=$(grep -E "$direct" <<<"$needed"); then
    echo "$binary needs $(tr '\n' ' ' <<<"$found")" >&2
    status=1
  fi
  if found=$(ldd "$binary" | awk '{print $1}' | grep -E "$loaded"); then
    echo "$binary loads $(tr '\n' ' ' <<<"$found")" >&2
    status=1
  fi
  echo "$binary: $(tr '\n' ' ' <<<"$needed")"
done
exit "$status"
