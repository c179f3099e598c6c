#!/usr/bin/env bash
# Takes the screenshots of the documentation, docs/images/*.png, from the built programs. Needs no
# display.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" chromium chromium-driver python3-selenium
cmake --preset dev
cmake --build --preset dev --target screenshots vantrel vantrel-admin vantrel-console
settings=$(mktemp -d)
trap 'rm -r "$settings"' EXIT
program=$(find build/dev -type f -name screenshots -perm -u+x)
XDG_CONFIG_HOME=$settings QT_QPA_PLATFORM=offscreen "$program" docs/images
/usr/bin/python3 tests/browser/console_pictures.py build/dev/bin docs/images

most=150000
find docs/images -name '*.png' -newer "$settings" -size +"$most"c -print | while read -r picture; do
  die "$picture is larger than $most bytes."
done
