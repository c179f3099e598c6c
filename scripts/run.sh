#!/usr/bin/env bash
# Installs missing packages, builds, starts a station on a demo folder, sends one record over TCP
# and prints the path of the card, and how to look at the station in a browser. With a display the station
# stays open; without one it ends.
# VANTREL_HOME selects a folder other than ./demo.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

readonly RECORD='<Ada Lovelace+40012345+Gold>'
readonly PAGES=2

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}"
cmake --preset release
cmake --build --preset release --target vantrel vantrel-admin vantrel-console vantrel-print
bin=$PWD/build/release/bin

# Cards hold personal data, so new files are accessible to this user and group only.
umask g-w,o-rwx
export VANTREL_HOME=${VANTREL_HOME:-$PWD/demo}
printed="$VANTREL_HOME/Printed/Session 1"
settings="$VANTREL_HOME/Vantrel 6.ini"
[ -e "$VANTREL_HOME/Vantrel.dat" ] || "$bin/vantrel-admin" demo "$VANTREL_HOME"

port_answers() { (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

# A station does not report a port that is in use, so another port is set before.
port=$(sed -n 's/^Port=\([0-9]*\).*/\1/p' "$settings" | head -n 1)
port=${port:-10001}
while port_answers "$port"; do
  port=$((port + 1))
done
sed -i "s/^Port=[0-9]*/Port=$port/" "$settings"

shows=yes
[ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || shows=
[ -n "$shows" ] || export QT_QPA_PLATFORM=offscreen

mkdir -p "$printed"
count_cards() { find "$printed" -name 'card-*.pdf' | wc -l; }

before=$(count_cards)
"$bin/vantrel" &
station=$!
trap 'kill "$station" 2>/dev/null || true' EXIT

for _ in $(seq 100); do
  port_answers "$port" && break
  kill -0 "$station" 2>/dev/null || die "The station did not start."
  sleep 0.1
done
port_answers "$port" || die "The station does not listen on port $port."

printf '%s' "$RECORD" >"/dev/tcp/127.0.0.1/$port"

for _ in $(seq 100); do
  [ "$(count_cards)" -ge $((before + PAGES)) ] && break
  sleep 0.1
done
[ "$(count_cards)" -ge $((before + PAGES)) ] || die "No card came out within ten seconds."

echo "Record sent to port $port: $RECORD"
echo "Card printed:"
find "$printed" -name 'card-*.pdf' | sort | tail -n "$PAGES" | while read -r card; do
  pdftoppm -png -r 300 -singlefile "$card" "${card%.pdf}"
  echo "  $card"
  echo "  ${card%.pdf}.png"
done

echo "In a browser: $bin/vantrel-console '$VANTREL_HOME'"

trap - EXIT
if [ -n "$shows" ]; then
  echo "The station stays open; send it more records on port $port."
  wait "$station"
else
  kill -TERM "$station"
  wait "$station"
fi
