#!/usr/bin/env bash
# Kills stations the given number of times (1000 by default) at random instants while hosts send
# bursts of records, once with one session and once with two on one store. Then makes as many states
# that a power cut can leave of one disk, and starts a station on every twentieth. Every answered record
# must have its card, and no number may come twice.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset release
cmake --build --preset release --target test_ledger_faults
count=${1:-1000}
VANTREL_KILLS=$count VANTREL_POWER_CUTS=$count build/release/bin/test_ledger_faults \
  --gtest_filter='LedgerKills.*:PowerCut.*'
