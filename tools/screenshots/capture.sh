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

for tool in Xvfb openbox xdotool xwd xwininfo convert; do
  command -v "$tool" >/dev/null || { echo "missing $tool (scripts/install-deps.sh installs it)" >&2; exit 1; }
done
[ -x "$build/src/app/orvanta" ] && [ -x "$build/src/app/orvanta_engine" ] \
  && [ -x "$build/tools/samples/orvanta-sample-pairs" ] \
  || { echo "build orvanta, orvanta_engine and orvanta-sample-pairs in $build first" >&2; exit 1; }
mkdir -p "$out"

work=$(mktemp -d)
pids=()
cleanup() {
  for pid in "${pids[@]}"; do kill "$pid" 2>/dev/null || true; done
  rm -rf "$work"
}
trap cleanup EXIT

export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
export XDG_CACHE_HOME="$work/home/.cache" XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$XDG_CONFIG_HOME/orvanta" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR"
chmod 700 "$XDG_RUNTIME_DIR"

# The history: the engine converts the sample pairs exactly as a batch would.
"$build/tools/samples/orvanta-sample-pairs" "$work/photos/source" "$pairs" >/dev/null
"$build/src/app/orvanta_engine" run -s "$work/photos/source" -d "$work/photos/UltraHDR" \
  --profile-id default >/dev/null

Xvfb "$display" -screen 0 1920x1080x24 -nolisten tcp &
pids+=($!)
export DISPLAY=$display
for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.2; done
openbox >/dev/null 2>&1 &
pids+=($!)
sleep 1

export QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=$scale

# Waits until a window whose name matches $1 is mapped; prints its id.
wait_window() {
  local id=""
  for _ in $(seq 100); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1) && [ -n "$id" ] && break
    sleep 0.2
  done
  [ -n "$id" ] || { echo "no window named $1" >&2; return 1; }
  echo "$id"
}

# Gives the application time to finish painting (thumbnails, histogram).
settle() { sleep "${1:-2}"; }

root_shot() { xwd -root -silent | convert xwd:- "$1"; }
window_shot() { xwd -id "$1" -silent | convert xwd:- "$2"; }

for lang in $langs; do
  rm -f "$XDG_CONFIG_HOME/orvanta/orvanta.conf"
  printf '[General]\norvanta_preferred_language=%s\n' "$lang" >"$XDG_CONFIG_HOME/orvanta/orvanta.conf"
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
  x=$(xwininfo -id "$compare" | awk '/Absolute upper-left X/ {print $4}')
  y=$(xwininfo -id "$compare" | awk '/Absolute upper-left Y/ {print $4}')
  w=$(xwininfo -id "$compare" | awk '/Width:/ {print $2}')
  h=$(xwininfo -id "$compare" | awk '/Height:/ {print $2}')
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
