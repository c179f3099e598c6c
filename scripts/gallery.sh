#!/usr/bin/env bash
# Prints the sample cards with a built station, each from its record over TCP, as PDF and PNG.
#   scripts/gallery.sh PROGRAMS-FOLDER OUT-FOLDER
set -euo pipefail
[ $# = 2 ] || { echo "gallery.sh: give the folder of the programs and one for the cards" >&2; exit 1; }
programs=$(realpath "$1")
mkdir -p "$2"
out=$(realpath "$2")
scratch=$(mktemp -d)
station=
end() {
  [ -z "$station" ] || kill "$station" 2>/dev/null || true
  rm -rf "$scratch"
}
trap end EXIT
export VANTREL_HOME=$scratch/station QT_QPA_PLATFORM=offscreen
settings="$VANTREL_HOME/Vantrel 6.ini"
printed="$VANTREL_HOME/Printed/Session 1"
"$programs/vantrel-admin" demo "$VANTREL_HOME"

# Layout, file name, pages, record.
samples=(
  'Member Card|member-card|2|<Ada Lovelace+40012345+Gold>'
  'Staff Badge|staff-badge|1|<Dr. Miriam Okafor+Paediatrics+20417>'
  'Gift Card|gift-card|2|<50.00+6034-9821-0045-7710>'
  'Library Card|library-card|1|<Thomas Whitfield+2183400190>'
  'Visitor Pass|visitor-pass|2|<Elena Marsh+Brightwater Engineering+Jonas Keller, Room 214+21 November 2026>'
  'Transport Pass|transport-pass|1|<Sofia Lindqvist+1 - 4+31 December 2026>'
)

await() {
  for _ in $(seq 600); do
    ! "$@" 2>/dev/null || return 0
    sleep 0.1
  done
  echo "gallery.sh: waited in vain for: $*" >&2
  exit 1
}

cards=0
for sample in "${samples[@]}"; do
  IFS='|' read -r layout name pages record <<<"$sample"
  port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
  sed -i "s/^Port=.*/Port=$port\r/; s/^LastLayout=.*/LastLayout=$layout\r/" "$settings"
  "$programs/vantrel" &
  station=$!
  listens() { (exec 3<>"/dev/tcp/127.0.0.1/$port"); }
  await listens
  printf '%s' "$record" >"/dev/tcp/127.0.0.1/$port"
  for page in $(seq "$pages"); do
    cards=$((cards + 1))
    card=$(printf '%s/card-%06d.pdf' "$printed" "$cards")
    await test -s "$card"
    cp "$card" "$out/$name-$page.pdf"
    pdftoppm -png -r 220 -singlefile "$card" "$out/$name-$page"
  done
  kill "$station"
  wait "$station"
  station=
  echo "$layout: $out/$name-1.png"
done
