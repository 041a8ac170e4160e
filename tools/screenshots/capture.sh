#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Photographs the real application as a user meets it: an X server (Xvfb)
# with a window manager (openbox), a history made by the real engine from the
# sample pairs, each window at its default size, captured from the X server
# itself (what QWidget::grab() would not show: frames, placement, popups).
#
#   tools/screenshots/capture.sh [BUILD_DIR] [OUT_DIR] [LANGS]
#
# Defaults: build, docs/screenshots, "en de fr ja". Environment: DISPLAY_NUM
# (default 15), SCALE (QT_SCALE_FACTOR, default 1), PAIRS (default 12).
# Writes history-LANG.png, inspector-LANG.png and compare-LANG.png.
#
# Why popups are captured by window id: on Xvfb 21.1 with Qt 6.4, once any
# window has been resized, windows mapped afterwards (menus, dialogs,
# tooltips, the compare window) can come out black in a capture of the root
# window while they work normally; captured by their own window id they
# render. A 40-line Qt program without OpenGL shows the same, so it is not
# the application. The main window is taken from the root (frame and all);
# the compare window by its id, then framed on the root picture's backdrop.
set -euo pipefail
cd "$(dirname "$0")/../.."

build=${1:-build}
out=${2:-docs/screenshots}
langs=${3:-"en de fr ja"}
display=":${DISPLAY_NUM:-15}"
scale=${SCALE:-1}
pairs=${PAIRS:-12}

source tools/screenshots/x-session.sh
private_home "$work/home"

# The history: the engine converts the sample pairs exactly as a batch would.
"$build/tools/samples/orvanta-sample-pairs" "$work/photos/source" "$pairs" >/dev/null
"$build/src/app/orvanta_engine" run -s "$work/photos/source" -d "$work/photos/UltraHDR" \
  --profile-id default >/dev/null

start_x "$display"
export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale

# Gives the application time to finish painting (thumbnails, histogram).
settle() { sleep "${1:-2}"; }


for lang in $langs; do
  set_language "$lang"
  "$build/src/app/orvanta" >"$work/app-$lang.log" 2>&1 &
  app=$!
  pids+=($app)
  main=$(wait_window '^Orvanta$')
  settle
  # The history tab, keyboard in the table (Ctrl+2), first row current.
  xdotool windowactivate --sync "$main" key --clearmodifiers ctrl+2
  settle 3
  root_shot "$out/history-$lang.png"
  xdotool key --clearmodifiers Home ctrl+i
  settle 3
  root_shot "$out/inspector-$lang.png"
  xdotool key --clearmodifiers ctrl+i
  # Enter opens the compare window on the current photo; H shows the histogram.
  xdotool key --clearmodifiers Return
  compare=$(wait_window '(HDR)')
  settle 3
  xdotool windowactivate --sync "$compare" key --clearmodifiers h
  settle 4
  # Zoomed in (Ctrl+wheel) with the pointer on the photo, the pixel read-out
  # shows too: it has to keep clear of the histogram.
  # (xwininfo gives the client area's place on the root, inside the frame).
  read -r x y w h < <(geometry "$compare")
  xdotool mousemove $((x + w / 2 + 60)) $((y + h / 2))
  for _ in 1 2 3 4 5 6; do xdotool keydown ctrl click 4 keyup ctrl; sleep 0.2; done
  xdotool mousemove_relative 4 4
  settle 2
  window_shot "$compare" "$work/compare.png"
  # Put the compare window where it sits on the screen, over the desktop.
  root_shot "$work/root.png"
  convert "$work/root.png" "$work/compare.png" -geometry "+$x+$y" -composite "$out/compare-$lang.png"
  kill "$app"
  wait "$app" 2>/dev/null || true
done
echo "screenshots in $out: $(for l in $langs; do printf 'history-%s inspector-%s compare-%s ' "$l" "$l" "$l"; done)"
