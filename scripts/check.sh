#!/usr/bin/env bash
# Checks the format, the sizes of files, the direction of includes, and that docs/reliability.md
# names existing tests. `check.sh CHECK...` runs only the named checks: format, sizes, floors,
# promises.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t own < <(find src tests bench fuzz -name '*.h' -o -name '*.cpp')
bad=0
complain() {
  echo "$*" >&2
  bad=1
}

# Releases of the formatter format differently; this is the one in use.
check_format() {
  formatter=clang-format-14
  if command -v "$formatter" >/dev/null; then
    "$formatter" --dry-run --Werror "${own[@]}" || bad=1
  else
    echo "The format is not checked: there is no $formatter here."
  fi
}

check_sizes() {
  local file limit lines
  for file in "${own[@]}"; do
    limit=500
    [[ $file != tests/* ]] || limit=400
    lines=$(wc -l <"$file")
    [ "$lines" -le "$limit" ] || complain "$file: $lines lines, at most $limit"
  done
}

# The floors of docs/architecture.md, lowest first. A file may include files of its own room and of
# rooms on lower floors.
readonly FLOORS='
base
store drawing ports service
printers ledger
card
station/session
station/layout
station/ledger
station/print
station/macro
station/capture station/batch
station/compose station/imaging station/commands
station/start
samples console desktop/controls
desktop/designer desktop/composers desktop/camera desktop/history
desktop/dialogs
desktop/menu
desktop/window
programs
'

check_floors() {
  local files broken
  mapfile -t files < <(find src -name '*.h' -o -name '*.cpp')
  broken=$(env FLOORS="$FLOORS" awk '
    # The room of a path such as "drawing/pdf/PdfFile.h": the longest one that the path begins with.
    function room_of(path) {
      while (sub("/[^/]*$", "", path))
        if (path in floor) return path
      return ""
    }
    BEGIN {
      rows = split(ENVIRON["FLOORS"], row, "\n")
      for (i = 1; i <= rows; ++i) {
        rooms = split(row[i], room, " ")
        for (j = 1; j <= rooms; ++j) floor[room[j]] = i
      }
    }
    FNR == 1 {
      own = room_of(substr(FILENAME, length("src/") + 1))
      if (own == "") print FILENAME ": stands in no room"
    }
    /^#include "[^"]*\/[^"]*"/ {
      split($0, quoted, "\"")
      other = room_of(quoted[2])
      if (other == "") print FILENAME ": includes src/" quoted[2] ", which stands in no room"
      else if (own != "" && other != own && floor[other] >= floor[own])
        print FILENAME " (" own ") includes src/" quoted[2] " (" other "): no include runs up or sideways"
    }' "${files[@]}")
  [ -z "$broken" ] || complain "$broken"
}

# Every promise in docs/reliability.md must name a test or fuzz target that exists.
check_promises() {
  local promises sources name row
  promises=$(sed -n '/^## It promises/,/^## /p' docs/reliability.md)
  sources=$(find tests -name '*Test.cpp' -exec cat {} + | tr -s '\n ' ' ')
  while read -r name; do
    grep -qE "TEST(_F|_P)?\\(${name%.*}, ?${name#*.}\\)" <<<"$sources" ||
      complain "docs/reliability.md: there is no test $name"
  done < <(grep -oE '`[A-Z][A-Za-z0-9]+\.[A-Za-z0-9]+`' <<<"$promises" | tr -d '`')
  while read -r name; do
    [ -d "fuzz/corpus/$name" ] || complain "docs/reliability.md: there is no fuzz target $name"
  done < <(grep -oE 'fuzz target `[a-z_0-9]+`' <<<"$promises" | cut -d '`' -f 2)
  while read -r row; do
    grep -qE '`[A-Z][A-Za-z0-9]+\.|the same test' <<<"$row" ||
      complain "docs/reliability.md: no test shows: $row"
  done < <(grep '^| [A-Z]' <<<"$promises" | grep -v '^| Promise')
}

[ $# -gt 0 ] || set -- format sizes floors promises
for check in "$@"; do
  case "$check" in
  format | sizes | floors | promises) "check_$check" ;;
  *) complain "There is no check $check." ;;
  esac
done
exit "$bad"
