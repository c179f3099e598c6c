#!/usr/bin/env bash
# The check of the floors lets includes run down and stops each one that runs up or sideways.
set -euo pipefail
check=$1
house=$(mktemp -d)
trap 'rm -rf "$house"' EXIT
mkdir -p "$house"/scripts "$house"/{tests,bench,fuzz}
cp "$check" "$house/scripts/check.sh"

# write FILE INCLUDE...: a file of the house with those includes.
write() {
  local file=$house/src/$1 name
  shift
  mkdir -p "${file%/*}"
  echo '#pragma once' >"$file"
  for name in "$@"; do
    printf '#include "%s"\n' "$name"
  done >>"$file"
}

# expect pass|fail TEXT...: what the check says of the house; each text stands in its complaint.
expect() {
  local want=$1 text said got=pass
  shift
  said=$("$house/scripts/check.sh" floors 2>&1) || got=fail
  [ "$got" = "$want" ] || { echo "expected $want, got $got: $said" >&2; exit 1; }
  for text in "$@"; do
    [[ $said == *"$text"* ]] || { echo "'$text' is missing in: $said" >&2; exit 1; }
  done
}

write base/Text.h
write drawing/Picture.h base/Text.h
write drawing/pdf/PdfFile.h drawing/Picture.h
write drawing/PageCanvas.cpp drawing/pdf/PdfFile.h
write store/Connection.h base/Text.h
write station/session/Session.h store/Connection.h drawing/Picture.h
write station/layout/Load.cpp station/session/Session.h
write programs/vantrel/main.cpp station/session/Session.h
expect pass

write base/Text.cpp drawing/Picture.h
expect fail "src/base/Text.cpp (base)" "src/drawing/Picture.h (drawing)"
rm "$house/src/base/Text.cpp"

write store/Rows.cpp drawing/pdf/PdfFile.h
expect fail "src/store/Rows.cpp (store)" "src/drawing/pdf/PdfFile.h (drawing)"
rm "$house/src/store/Rows.cpp"

write station/session/Face.h station/layout/Pages.h
write station/layout/Pages.h
expect fail "src/station/session/Face.h (station/session)" "src/station/layout/Pages.h (station/layout)"
rm "$house/src/station/session/Face.h"

write attic/Box.h
expect fail "src/attic/Box.h: stands in no room"
rm "$house/src/attic/Box.h"
expect pass
