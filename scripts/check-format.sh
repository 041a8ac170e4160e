#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Fails when a tracked C++ file differs from what clang-format makes of it, and
# names the files. Fix with: git ls-files '*.cpp' '*.h' | xargs clang-format -i
set -euo pipefail
cd "$(dirname "$0")/.."
bad=()
while IFS= read -r f; do
  if ! clang-format --dry-run --Werror "$f" >/dev/null 2>&1; then
    bad+=("$f")
  fi
done < <(git ls-files '*.cpp' '*.h')
if [ ${#bad[@]} -gt 0 ]; then
  echo "check-format: ${#bad[@]} file(s) are not clang-format clean:"
  printf '  %s\n' "${bad[@]}"
  exit 1
fi
echo "check-format: clean"
