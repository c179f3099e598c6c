#!/usr/bin/env bash
# long.sh [RECORDS [file|server]]: sends that many records (1000000 by default) to two stations on one
# store that keep account of every record, first in a file and then on a server, or in the one that is
# named. One station prints files, the other one jobs of a print server. Both are killed now and then, the
# print server is paused and restarted, and the store's server is killed. As many cards must come out as
# records went in, with numbers that are all different; memory, descriptors and what a record takes of the
# store must not grow. Needs about 10 KiB of disk for each record in the folder TMPDIR names.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

case ${2:-both} in
  file) runs='LongRun.*' ;;
  server) runs='ServerLongRun.*' ;;
  both) runs='LongRun.*:ServerLongRun.*' ;;
  *) die "The store is file or server, not $2." ;;
esac
install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset release
cmake --build --preset release --target test_ledger_faults
VANTREL_LONG_RECORDS=${1:-1000000} build/release/bin/test_ledger_faults --gtest_filter="$runs"
