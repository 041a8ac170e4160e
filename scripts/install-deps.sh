#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Installs every Debian 12 package Orvanta needs to build, test and run.
# Idempotent: packages already present are left alone and apt is not touched
# at all when nothing is missing. Must run as root (or through sudo).
set -euo pipefail

packages=(
  # toolchain
  build-essential cmake ninja-build pkg-config ccache clang-format clang libclang-rt-14-dev
  # Qt 6.4
  qt6-base-dev qt6-base-dev-tools libqt6opengl6-dev qt6-svg-dev qt6-l10n-tools
  qt6-image-formats-plugins libqt6svg6 qt6-qpa-plugins
  # Qt's own texts (file dialogs, standard buttons, context menus) in every language
  qt6-translations-l10n
  # libraries
  libsqlite3-dev libexiv2-dev libraw-dev libjpeg62-turbo-dev libsodium-dev zlib1g-dev
  # the engine: face detection and the Haar cascades it ships
  libopencv-core-dev libopencv-imgproc-dev libopencv-objdetect-dev opencv-data
  # headless testing: X server for GL widgets, a private session bus
  xvfb xauth dbus-daemon dbus libgl1-mesa-dri libgl-dev libegl-dev
  # the Debian package (scripts/package) and its checks: dpkg-shlibdeps, file,
  # icons drawn from the SVG, the desktop-file and AppStream validators
  dpkg-dev file librsvg2-bin desktop-file-utils appstream
  # remaking the screenshots from a real X server (tools/screenshots/capture.sh)
  openbox xdotool x11-apps imagemagick
  # runtime
  xdg-utils fonts-noto-color-emoji fonts-noto-cjk sound-theme-freedesktop
  libimage-exiftool-perl
  # benchmarks: LibRaw's and libjpeg-turbo's own programs, the anchors measured beside ours
  libraw-bin libjpeg-turbo-progs
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed'; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "install-deps: all ${#packages[@]} packages present"
  exit 0
fi

sudo_cmd=()
if [ "$(id -u)" -ne 0 ]; then
  sudo_cmd=(sudo)
fi

echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}"
