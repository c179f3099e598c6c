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

# Each release of the formatter has a judgement of its own; this one's counts.
formatter=clang-format-14
if command -v "$formatter" >/dev/null; then
  "$formatter" --dry-run --Werror "${own[@]}" || bad=1
else
  echo "The format is not checked: there is no $formatter here."
fi

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

# Whoever reads a promise can run what shows it.
promises=$(sed -n '/^## It promises/,/^## /p' docs/reliability.md)
sources=$(find tests -name '*Test.cpp' -exec cat {} + | tr -s '\n ' ' ')
while read -r name; do
  grep -qE "TEST(_F|_P)?\\(${name%.*}, ?${name#*.}\\)" <<<"$sources" ||
    complain "docs/reliability.md: there is no test $name"
done < <(grep -oE '`[A-Z][A-Za-z0-9]+\.[A-Za-z0-9]+`' <<<"$promises" | tr -d '`')
while read -r name; do
  grep -qw "$name" fuzz/CMakeLists.txt || complain "docs/reliability.md: there is no fuzz target $name"
done < <(grep -oE 'fuzz target `[a-z]+`' <<<"$promises" | cut -d '`' -f 2)
while read -r row; do
  grep -qE '`[A-Z][A-Za-z0-9]+\.|the same test' <<<"$row" ||
    complain "docs/reliability.md: no test shows: $row"
done < <(grep '^| [A-Z]' <<<"$promises" | grep -v '^| Promise')
exit "$bad"
