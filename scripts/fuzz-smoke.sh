#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The Orvanta developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Builds the Ultra HDR fuzz targets with clang (libFuzzer + ASan + UBSan) and
# runs each one briefly, starting from a corpus our own writer produces.
#   scripts/fuzz-smoke.sh [SECONDS_PER_TARGET]   (default 30; CI uses the default)
# A crash leaves its input as build-fuzz/crash-* and fails the script; turn
# every such input into a regression test in tests/hdr.
set -euo pipefail
cd "$(dirname "$0")/.."

seconds="${1:-30}"
build=build-fuzz
targets=(segments mpf xmp iso icc decode)

cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DCMAKE_CXX_COMPILER=clang++ -DORVANTA_BUILD_FUZZERS=ON -DORVANTA_BUILD_TESTS=OFF \
  -DORVANTA_WERROR=OFF > /dev/null
cmake --build "$build" --parallel "$(nproc)" \
  --target orvanta_fuzz_seeds $(printf 'fuzz_%s ' "${targets[@]}")

# The fuzzers run on QtCore alone, like the tools they stand in for.
scripts/check-tool-links.sh --core-only $(printf "$build/fuzz/fuzz_%s " "${targets[@]}") \
  "$build/fuzz/orvanta_fuzz_seeds" > /dev/null

corpus="$build/fuzz-corpus"
"$build/fuzz/orvanta_fuzz_seeds" "$corpus"
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
for t in "${targets[@]}"; do
  mkdir -p "$corpus/$t"
  echo "fuzz-smoke: $t for ${seconds}s"
  log="$build/fuzz-$t.log"
  status=0
  "$build/fuzz/fuzz_$t" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -max_len=65536 -print_final_stats=1 -artifact_prefix="$build/" "$corpus/$t" > "$log" 2>&1 \
    || status=$?
  grep -E '^(stat::number_of_executed_units|stat::peak_rss_mb|SUMMARY)' "$log" || true
  if [ "$status" -ne 0 ]; then
    echo "fuzz-smoke: $t found a problem (input in $build/crash-*, details in $log)" >&2
    exit 1
  fi
done
echo "fuzz-smoke: no findings"
