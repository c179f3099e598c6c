#!/usr/bin/env bash
# What can rot is checked: format, small files, and no window in the engine.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t own < <(find src tests bench fuzz -name '*.h' -o -name '*.cpp')
bad=0
complain() {
  echo "$*" >&2
  bad=1
}

clang-format --dry-run --Werror "${own[@]}" || bad=1

for file in "${own[@]}"; do
  limit=500
  [[ $file != tests/* ]] || limit=400
  lines=$(wc -l <"$file")
  [ "$lines" -le "$limit" ] || complain "$file: $lines lines, at most $limit"
  case "$file" in
  src/programs/* | */frm* | */Desktop* | tests/* | bench/* | fuzz/*) ;;
  *)
    ! grep -nE '#include (<QtWidgets|<QWidget|"[a-z]+/frm)' "$file" /dev/null ||
      complain "an engine file includes a window"
    ;;
  esac
done
exit "$bad"
