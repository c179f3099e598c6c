#!/usr/bin/env bash
# Takes the screenshots of the documentation, docs/images/*.png, from the built program. Needs no
# display.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}"
cmake --preset dev
cmake --build --preset dev --target screenshots
settings=$(mktemp -d)
trap 'rm -r "$settings"' EXIT
program=$(find build/dev -type f -name screenshots -perm -u+x)
XDG_CONFIG_HOME=$settings QT_QPA_PLATFORM=offscreen "$program" docs/images

most=150000
find docs/images -name '*.png' -newer "$settings" -size +"$most"c -print | while read -r picture; do
  die "$picture is larger than $most bytes."
done
