#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# The command-line tools link the codec, media and state-database libraries,
# never the application's core. Every binary given fails when it needs Qt's
# D-Bus, network, widget, OpenGL or SVG module itself, or loads one of the last
# four through any library. Binaries after --core-only (the engine,
# orvanta-uhdr, the fuzzers) must run on QtCore alone: they fail when they load
# QtGui or QtDBus at all, or an OpenGL library (libGL, libGLX, libEGL,
# libOpenGL) that anything but Debian's OpenCV core pulls in. (libopencv_core
# is built with OpenGL interop and needs libGLX; the engine's face finder
# cannot drop it, and the script says so.)
#   scripts/check-tool-links.sh [BINARY...] [--core-only BINARY...]
set -euo pipefail

direct='libQt6(DBus|Network|Widgets|OpenGL|OpenGLWidgets|Svg)\.so'
loaded='libQt6(Network|Widgets|OpenGL|OpenGLWidgets|Svg)\.so'
gui='libQt6(Gui|DBus)\.so'
gl='lib(GL|GLX|EGL|OpenGL)\.so'
status=0
core_only=0
for binary in "$@"; do
  if [[ $binary == --core-only ]]; then
    core_only=1
    continue
  fi
  needed=$(readelf -d "$binary" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p')
  libraries=$(ldd "$binary" | awk '$2 == "=>" && $3 ~ /^\// {print $1, $3}')
  if found=$(grep -E "$direct" <<<"$needed"); then
    echo "$binary needs $(tr '\n' ' ' <<<"$found")" >&2
    status=1
  fi
  if found=$(awk '{print $1}' <<<"$libraries" | grep -E "$loaded"); then
    echo "$binary loads $(tr '\n' ' ' <<<"$found")" >&2
    status=1
  fi
  if ((core_only)); then
    if found=$(awk '{print $1}' <<<"$libraries" | grep -E "$gui"); then
      echo "$binary loads $(tr '\n' ' ' <<<"$found")(QtCore only expected)" >&2
      status=1
    fi
    # Which loaded library asks for OpenGL: only OpenCV's core is accepted.
    while read -r name path; do
      [[ -z $name ]] && continue
      grep -qE "$gl" <<<"$name" && continue
      if readelf -d "$path" | grep -E '\(NEEDED\)' | grep -qE "$gl"; then
        if [[ $name == libopencv_core.so* ]]; then
          echo "$binary: note: $name (Debian's OpenCV) needs OpenGL"
        else
          echo "$binary loads OpenGL through $name" >&2
          status=1
        fi
      fi
    done <<<"$libraries"
    if grep -qE "$gl" <<<"$needed"; then
      echo "$binary needs OpenGL itself" >&2
      status=1
    fi
  fi
  echo "$binary: $(tr '\n' ' ' <<<"$needed")"
done
exit "$status"
