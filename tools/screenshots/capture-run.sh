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

source tools/screenshots/x-session.sh
start_x "$display"
export QT_QPA_PLATFORM=xcb

# A home of its own in $work/$1 for each picture's run: a first batch, not a
# repeated one. Sets $source (the folder $2 in Pictures) and $dest, both created.
fresh_home() {
  private_home "$work/$1"
  source="$HOME/Pictures/$2" dest="$HOME/Pictures/UltraHDR"
  mkdir -p "$source" "$dest"
}

# Writes the shared configuration: source, destination and any more lines.
write_config() {
  printf '{\n  "source_dir" : "%s",\n  "dest_dir" : "%s"%s\n}\n' "$source" "$dest" "${1:-}" \
    >"$XDG_CONFIG_HOME/orvanta/config.json"
}

# Starts the application (log $1), presses Ctrl+R once its window shows, and
# waits until an engine whose command line matches $2 runs. Sets $app and $main.
start_batch() {
  "$build/src/app/orvanta" >"$1" 2>&1 &
  app=$!
  pids+=($app)
  main=$(wait_window '^Orvanta$')
  sleep 2
  xdotool windowactivate --sync "$main" key --clearmodifiers ctrl+r
  for _ in $(seq 100); do pgrep -f "$2" >/dev/null && break; sleep 0.1; done
}

for lang in $langs; do
  fresh_home "$lang" Shoot
  "$build/tools/samples/orvanta-sample-pairs" "$source" "$pairs" >/dev/null
  first=$(ls "$source" | head -1)
  first=${first%.*}
  head -c 65536 /dev/urandom >"$source/DSC_0090.DNG"
  cp "$source/$first.JPG" "$source/DSC_0090.JPG"
  cp "$source/$first.DNG" "$source/DSC_0091.DNG"
  head -c 65536 /dev/urandom >"$source/DSC_0091.JPG"
  write_config
  set_language "$lang"

  # The batch has ended once its engine has come and gone.
  start_batch "$work/app-$lang.log" "orvanta_engine run -s $source"
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
  fresh_home "watch-$lang" "Shoot 2026-11-25/Card A/incoming"
  "$build/tools/samples/orvanta-sample-pairs" "$HOME/cards" 3 >/dev/null
  mv "$HOME/cards"/SAMPLE_0001.* "$HOME/cards"/SAMPLE_0002.* "$source"/
  write_config $',\n  "watch_folder" : true'
  set_language "$lang"

  start_batch "$work/app-watch-$lang.log" "orvanta_engine watch"
  sleep 4
  cp "$HOME/cards"/SAMPLE_0003.DNG "$HOME/cards"/SAMPLE_0003.JPG "$source"/
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
