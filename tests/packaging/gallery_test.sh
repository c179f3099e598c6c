#!/usr/bin/env bash
# Prints the sample cards with the built station, as the documents show them, and reads what stands on
# them.
#   gallery_test.sh PROGRAMS-FOLDER
set -euo pipefail
cd "$(dirname "$0")/../.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export XDG_RUNTIME_DIR=$scratch/runtime
mkdir -m 700 "$XDG_RUNTIME_DIR"
scripts/gallery.sh "$1" "$scratch"

expect() { # CARD TEXT...
  local text
  text=$(pdftotext -layout "$scratch/$1.pdf" - | tr -s ' \n' ' ')
  for wanted in "${@:2}"; do
    [[ $text == *"$wanted"* ]] || { echo "FAILED: $1 has no '$wanted' but '$text'" >&2; exit 1; }
  done
}
expect member-card-1 'Ada Lovelace' 'No. 400123451' Gold 1001
expect member-card-2 'No. 400123451'
expect staff-badge-1 'Dr. Miriam Okafor' Paediatrics 'No. 20417'
expect gift-card-1 'EUR 50.00'
expect gift-card-2 '~1%6034982100457710^50.00?' '~2;6034982100457710?' '6034-9821-0045-7710' 'EUR 50.00'
expect library-card-1 'Thomas Whitfield' 21834001907
expect visitor-pass-1 'Elena Marsh' 'Jonas Keller, Room 214' '21 November 2026'
expect visitor-pass-2 'Wear this pass'
expect transport-pass-1 'Sofia Lindqvist' 500001 'Valid to 31 December 2026'

for card in "$scratch"/*.pdf; do
  pages=$(pdfinfo "$card" | sed -n 's/^Pages: *//p')
  [ "$pages" = 1 ] || { echo "FAILED: $card has $pages pages" >&2; exit 1; }
  # The stripe's text stands on the card that has a stripe, and on no other.
  striped=$(pdftotext "$card" - | grep -c '^~[12]' || true)
  case $card in */gift-card-2.pdf) wanted=2 ;; *) wanted=0 ;; esac
  [ "$striped" = "$wanted" ] || { echo "FAILED: $card has $striped lines of stripe text" >&2; exit 1; }
done
[ "$(find "$scratch" -name '*.pdf' | wc -l)" = 9 ] || { echo "FAILED: cards" >&2; exit 1; }
[ "$(find "$scratch" -name '*.png' | wc -l)" = 9 ] || { echo "FAILED: pictures" >&2; exit 1; }
