# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Shared by the screenshot scripts (sourced, not run): checks the tools and
# the build, a work folder removed on exit with every process started,
# private homes, an X server with a window manager, and the captures.
# Expects $build and $out to be set.

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

# Points HOME and the XDG folders into $1, which is created.
private_home() {
  export HOME="$1" XDG_CONFIG_HOME="$1/.config" XDG_DATA_HOME="$1/.local/share"
  export XDG_CACHE_HOME="$1/.cache" XDG_RUNTIME_DIR="$1/runtime"
  mkdir -p "$XDG_CONFIG_HOME/orvanta" "$XDG_DATA_HOME" "$XDG_CACHE_HOME" "$XDG_RUNTIME_DIR"
  chmod 700 "$XDG_RUNTIME_DIR"
}

# Xvfb on display $1 (":N") with openbox; DISPLAY points at it.
start_x() {
  Xvfb "$1" -screen 0 1920x1080x24 -nolisten tcp &
  pids+=($!)
  export DISPLAY=$1
  for _ in $(seq 50); do xdotool getdisplaygeometry >/dev/null 2>&1 && break; sleep 0.2; done
  openbox >/dev/null 2>&1 &
  pids+=($!)
  sleep 1
}

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

root_shot() { xwd -root -silent | convert xwd:- "$1"; }
window_shot() { xwd -id "$1" -silent | convert xwd:- "$2"; }

# The client area of window $1 on the root: "x y width height".
geometry() {
  xwininfo -id "$1" | awk '/Absolute upper-left X/ {x=$4} /Absolute upper-left Y/ {y=$4}
    /Width:/ {w=$2} /Height:/ {h=$2} END {print x, y, w, h}'
}

# Writes the language the application starts in.
set_language() {
  printf '[General]\norvanta_preferred_language=%s\n' "$1" >"$XDG_CONFIG_HOME/orvanta/orvanta.conf"
}
