#!/usr/bin/env bash
# long.sh [RECORDS [file|server]]: sends that many records (1000000 by default) to stations on one store
# that keep account of every record: to two on a file and then to four on a server, or to those on the one
# that is named. One station prints jobs of a print server, the others files. They are killed now and then,
# the print server is paused and restarted, and the store's server is killed. As many cards must come out
# as records went in, with numbers that are all different; memory, descriptors and what a record takes of the
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
