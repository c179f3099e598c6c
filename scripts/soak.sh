#!/usr/bin/env bash
# Sends so many records (20000 by default) through a station over TCP, each through a chain of cards
# with pages, copies, stripe and numbers: all must come out in order, memory and descriptors flat.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
cmake --preset release
cmake --build --preset release --target test_faults
VANTREL_SOAK_RECORDS=${1:-20000} build/release/bin/test_faults --gtest_filter='Soak.*'
