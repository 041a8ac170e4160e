#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Photographs a batch as a user runs it: the real application and the real
# engine on an X server (Xvfb) with a window manager (openbox), the main
# window at its default size. The source folder holds the sample pairs and
# two that cannot be converted (a RAW and a JPG that are not pictures), so
# the batch ends with failures. The batch is paused a moment after its start
# and resumed; once it has ended, the failure list is opened from the card,
# as a user would click it.
#
#   tools/screenshots/capture-run.sh [BUILD_DIR] [OUT_DIR] [LANGS]
#
# Defaults: build, docs/screenshots, "en de ja". Environment: DISPLAY_NUM
# (default 16), PAIRS (default 6). Writes paused-card-LANG.png (the paused
# batch), failures-card-LANG.png (the card after the batch) and
# failures-LANG.png (the failure list, taken by its window id for the reason
# capture.sh explains), watching-LANG.png (a watched folder after a pair was
# copied in) and watching-lost-en.png (the watched folder moved away).
set -euo pipefail
cd "$(dirname "$0")/../.."

build=${1:-build}
out=${2:-docs/screenshots}
langs=${3:-"en de ja"}
display=":${DISPLAY_NUM:-16}"
pairs=${PAIRS:-6}

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

Xvfb "$display" -screen 0 1920x1080x24 -nolisten tcp &
pids+=($!)
export DISPLAY=$display
for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.2; done
openbox >/dev/null 2>&1 &
pids+=($!)
sleep 1
export QT_QPA_PLATFORM=xcb

wait_window() {
  local id=""
  for _ in $(seq 100); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1) && [ -n "$id" ] && break
    sleep 0.2
  done
  [ -n "$id" ] || { echo "no window named $1" >&2; return 1; }
  echo "$id"
}
root_shot() { xwd -root -silent | convert xwd:- "$1"; }
window_shot() { xwd -id "$1" -silent | convert xwd:- "$2"; }
# The client area of window $1: "x y width height" on the root.
geometry() {
  xwininfo -id "$1" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4}
    /Width:/ {w=$2} /Height:/ {h=$2} END {print x, y, w, h}'
}

for lang in $langs; do
  # A home of its own for each language: a first batch, not a repeated one.
  home="$work/$lang"
  export HOME="$home" XDG_CONFIG_HOME="$home/.config" XDG_DATA_HOME="$home/.local/share"
  export XDG_CACHE_HOME="$home/.cache" XDG_RUNTIME_DIR="$home/runtime"
  mkdir -p "$XDG_CONFIG_HOME/orvanta" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  source="$home/Pictures/Shoot" dest="$home/Pictures/UltraHDR"
  "$build/tools/samples/orvanta-sample-pairs" "$source" "$pairs" >/dev/null
  first=$(ls "$source" | head -1)
  first=${first%.*}
  head -c 65536 /dev/urandom >"$source/DSC_0090.DNG"
  cp "$source/$first.JPG" "$source/DSC_0090.JPG"
  cp "$source/$first.DNG" "$source/DSC_0091.DNG"
  head -c 65536 /dev/urandom >"$source/DSC_0091.JPG"
  mkdir -p "$dest"
  printf '{\n  "source_dir" : "%s",\n  "dest_dir" : "%s"\n}\n' "$source" "$dest" \
    >"$XDG_CONFIG_HOME/orvanta/config.json"
  printf '[General]\norvanta_preferred_language=%s\n' "$lang" >"$XDG_CONFIG_HOME/orvanta/orvanta.conf"

  "$build/src/app/orvanta" >"$work/app-$lang.log" 2>&1 &
  app=$!
  pids+=($app)
  main=$(wait_window '^Orvanta$')
  sleep 2
  # Ctrl+R starts the batch; it has ended once its engine has come and gone.
  xdotool windowactivate --sync "$main" key --clearmodifiers ctrl+r
  for _ in $(seq 100); do pgrep -f "orvanta_engine run -s $source" >/dev/null && break; sleep 0.1; done
  # Paused a moment into the batch (Ctrl+P), then resumed.
  sleep 1.5
  xdotool key --clearmodifiers ctrl+p
  sleep 2
  root_shot "$out/paused-card-$lang.png"
  xdotool key --clearmodifiers ctrl+p
  for _ in $(seq 600); do pgrep -f "orvanta_engine run -s $source" >/dev/null || break; sleep 0.1; done
  sleep 2
  root_shot "$out/failures-card-$lang.png"
  # "Show Failures" sits at the right end of the card's failure row; its
  # height depends on the fonts, so a few heights are tried, and a click that
  # misses lands on the card's text, which does nothing.
  read -r x y w _ < <(geometry "$main")
  list=""
  for dy in $(seq 480 10 570); do
    xdotool mousemove $((x + w - 95)) $((y + dy)) click 1
    sleep 1
    list=$(xdotool search --onlyvisible --pid "$app" --class orvanta 2>/dev/null \
      | grep -v "^$main$" | tail -1) || true
    [ -n "$list" ] && break
  done
  [ -n "$list" ] || { echo "the failure list did not open ($lang)" >&2; exit 1; }
  sleep 2
  window_shot "$list" "$out/failures-$lang.png"
  kill "$app"
  wait "$app" 2>/dev/null || true
done
# Watching: two pairs are in the folder at Start, a third is copied in once
# the engine watches; for the English picture of a lost folder, the folder is
# then moved away (the card waits for it to come back).
for lang in $langs; do
  home="$work/watch-$lang"
  export HOME="$home" XDG_CONFIG_HOME="$home/.config" XDG_DATA_HOME="$home/.local/share"
  export XDG_CACHE_HOME="$home/.cache" XDG_RUNTIME_DIR="$home/runtime"
  mkdir -p "$XDG_CONFIG_HOME/orvanta" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
  source="$home/Pictures/Shoot 2026-11-25/Card A/incoming" dest="$home/Pictures/UltraHDR"
  "$build/tools/samples/orvanta-sample-pairs" "$home/cards" 3 >/dev/null
  mkdir -p "$source" "$dest"
  mv "$home/cards"/SAMPLE_0001.* "$home/cards"/SAMPLE_0002.* "$source"/
  printf '{\n  "source_dir" : "%s",\n  "dest_dir" : "%s",\n  "watch_folder" : true\n}\n' \
    "$source" "$dest" >"$XDG_CONFIG_HOME/orvanta/config.json"
  printf '[General]\norvanta_preferred_language=%s\n' "$lang" >"$XDG_CONFIG_HOME/orvanta/orvanta.conf"

  "$build/src/app/orvanta" >"$work/app-watch-$lang.log" 2>&1 &
  app=$!
  pids+=($app)
  main=$(wait_window '^Orvanta$')
  sleep 2
  xdotool windowactivate --sync "$main" key --clearmodifiers ctrl+r
  for _ in $(seq 100); do pgrep -f "orvanta_engine watch" >/dev/null && break; sleep 0.1; done
  sleep 4
  cp "$home/cards"/SAMPLE_0003.DNG "$home/cards"/SAMPLE_0003.JPG "$source"/
  sleep 5
  root_shot "$out/watching-$lang.png"
  if [ "$lang" = en ]; then
    mv "$source" "$source.moved"
    sleep 3
    root_shot "$out/watching-lost-en.png"
  fi
  xdotool key --clearmodifiers ctrl+period
  for _ in $(seq 100); do pgrep -f "orvanta_engine watch" >/dev/null || break; sleep 0.1; done
  kill "$app"
  wait "$app" 2>/dev/null || true
done
echo "screenshots in $out: $(for l in $langs; do printf 'paused-card-%s failures-card-%s failures-%s watching-%s ' "$l" "$l" "$l" "$l"; done)"
