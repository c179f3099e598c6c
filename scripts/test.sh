#!/usr/bin/env bash
# Installs what is missing, builds everything, and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${TEST_PACKAGES[@]}" \
  "${PACKAGE_PACKAGES[@]}" "${PACKAGE_TEST_PACKAGES[@]}"
export QT_QPA_PLATFORM=offscreen
cmake --preset dev
cmake --build --preset dev --target all check
# Each fuzz target, briefly: enough to see that its kept corpus still passes.
scripts/fuzz.sh 3
ctest --preset dev --parallel "$(nproc)" "$@"
