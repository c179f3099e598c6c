#!/usr/bin/env bash
# Builds the Debian package of a release build in build/release.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${PACKAGE_PACKAGES[@]}"
cmake --preset release -DVANTREL_PACKAGE=ON
cmake --build --preset release --target vantrel vantrel-admin vantrel-console vantrel-print vantrel_icons vantrel_manual
(cd build/release && cpack)
