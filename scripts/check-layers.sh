#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Folders of src/ point one way: each may include only folders below it in
# LAYERS (bottom first; folders on one line are peers and must not include
# each other). Prints every offending include and exits 1; a folder missing
# from the list is an error too, so a new folder has to be placed.
set -euo pipefail
cd "$(dirname "$0")/../src"

LAYERS=(
  "i18n platform base update db"
  "hdr"
  "media"
  "thumbnails"
  "styles history document"
  "engine"
  "core"
  "ui"
  "app"
)

declare -A rank
for i in "${!LAYERS[@]}"; do
  for folder in ${LAYERS[$i]}; do rank[$folder]=$i; done
done

status=0
for dir in */; do
  dir=${dir%/}
  if [[ -z ${rank[$dir]+set} ]]; then
    echo "src/$dir: folder not placed in a layer of scripts/check-layers.sh"
    status=1
  fi
done

# Quoted includes whose first component is a folder of src/.
while IFS=: read -r file line text; do
  from=${file%%/*}
  to=$(sed -E 's/^[[:space:]]*#[[:space:]]*include[[:space:]]*"([^/"]+)\/.*/\1/' <<<"$text")
  [[ -d $to && $to != "$from" ]] || continue
  [[ -n ${rank[$from]+set} && -n ${rank[$to]+set} ]] || continue
  if ((rank[$to] >= rank[$from])); then
    echo "src/$file:$line: $from/ includes $to/, which is not below it: $text"
    status=1
  fi
done < <(grep -rnE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"[^/"]+/' --include='*.h' --include='*.cpp' . | sed 's|^\./||')

if ((status == 0)); then
  echo "check-layers: no folder of src/ includes one at or above its layer"
fi
exit $status
