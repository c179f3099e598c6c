#!/usr/bin/env bash
# Installs missing packages, builds everything and runs all tests.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}" \
  "${PACKAGE_PACKAGES[@]}" "${PACKAGE_TEST_PACKAGES[@]}"
install_node_packages
export QT_QPA_PLATFORM=offscreen
cmake --preset dev
cmake --build --preset dev --target all check
# Runs each fuzz target briefly, to check that its corpus still passes.
scripts/fuzz.sh 3
ctest --preset dev --parallel "$(nproc)" "$@"
