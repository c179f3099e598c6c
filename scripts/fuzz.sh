#!/usr/bin/env bash
# Builds the fuzz targets and runs each on its corpus for the given number of seconds (60 by
# default). A finding is kept in build/fuzz and ends the script.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

seconds=${1:-60}
export ASAN_OPTIONS=detect_leaks=1:quarantine_size_mb=64
export LSAN_OPTIONS=suppressions=$PWD/tests/lsan.supp:print_suppressions=0
install_packages "${BUILD_PACKAGES[@]}" "${FUZZ_PACKAGES[@]}"
cmake --preset fuzz
cmake --build --preset fuzz
# Each target has a corpus of its name.
for corpus in fuzz/corpus/*/; do
  target=$(basename "$corpus")
  # New inputs are written to a corpus of their own; the corpus in the repository is changed by hand
  # only.
  mkdir -p "build/fuzz/grown/$target"
  echo "fuzz_$target: $seconds seconds"
  build/fuzz/bin/fuzz_$target -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
    -artifact_prefix="build/fuzz/$target-" -print_final_stats=0 -print_funcs=0 -verbosity=0 \
    "build/fuzz/grown/$target" "$corpus"
done
