#!/usr/bin/env bash
# Sends the given number of records (20000 by default) over TCP to a station, each printed on
# several cards with pages, copies, stripe and automatic numbers. All cards must be printed in
# order, and memory and descriptors must not grow.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset release
cmake --build --preset release --target test_faults
VANTREL_SOAK_RECORDS=${1:-20000} build/release/bin/test_faults --gtest_filter='Soak.*'
