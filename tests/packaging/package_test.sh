#!/usr/bin/env bash
# Makes the package, installs it into a throw-away root, looks at what it holds, prints a card with
# the station it starts there, and removes it again.
#   package_test.sh BUILD-FOLDER
set -euo pipefail
build=$1
scratch=$(mktemp -d)
station=
end() {
  [ -z "$station" ] || kill -9 "$station" 2>/dev/null || true
  rm -rf "$scratch"
}
trap end EXIT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# Waits until a command succeeds. The limit only ends a test that has failed.
await() {
  for _ in $(seq 600); do
    ! "$@" 2>/dev/null || return 0
    sleep 0.1
  done
  fail "waited in vain for: $*"
}

echo "== make and install"
cpack -G DEB --config "$build/CPackConfig.cmake" -B "$scratch/made" >"$scratch/cpack.log" 2>&1 ||
  fail "cpack: $(cat "$scratch/cpack.log")"
package=$(echo "$scratch"/made/*.deb)
[ -f "$package" ] || fail "no package in $scratch/made"
dpkg-deb --field "$package" Depends | grep -q 'libqt6widgets6' || fail "it does not depend on its libraries"
dpkg-deb --field "$package" Depends | grep -qF 'qt6-svg-plugins | libqt6svg6 (<< 6.7)' ||
  fail "it does not depend on what draws its icons"
dpkg-deb --field "$package" Recommends | grep -q 'qt6-wayland' || fail "on a Wayland desktop it has no window"
root=$scratch/root
mkdir -p "$root"/var/lib/dpkg/{info,updates,triggers}
touch "$root"/var/lib/dpkg/{status,available}
in_root() { dpkg --root="$root" --force-not-root --force-depends --force-script-chrootless --log="$scratch/dpkg.log" "$@"; }
in_root --install "$package" >"$scratch/install.log" 2>&1 || fail "dpkg: $(cat "$scratch/install.log")"

echo "== what it holds"
# Some machines leave documents out when they install.
held=$scratch/held
dpkg-deb --extract "$package" "$held"
for file in bin/vantrel bin/vantrel-{admin,console,print} libexec/vantrel/vantrel \
  share/applications/org.vantrel.{Vantrel,Console}.desktop share/metainfo/org.vantrel.Vantrel.metainfo.xml \
  share/icons/hicolor/{16x16,22x22,24x24,32x32,48x48,64x64,128x128,256x256}/apps/org.vantrel.Vantrel.png \
  share/icons/hicolor/scalable/apps/org.vantrel.Vantrel.svg share/man/man1/{vantrel,vantrel-admin,vantrel-console,vantrel-print}.1.gz \
  share/doc/vantrel/{README.md,CHANGELOG.md,printers.md,cards-from-a-file.md,console.md,images/station.png} lib/systemd/system/{vantrel@,vantrel-console}.service \
  lib/sysusers.d/vantrel.conf share/bash-completion/completions/{vantrel-admin,vantrel-console,vantrel-print}; do
  [ -s "$held/usr/$file" ] || fail "/usr/$file is missing"
done
grep -q '^# The book' "$held/usr/share/doc/vantrel/README.md" || fail "the book has no first page"
for sender in send.sh send.py; do
  [ -x "$held/usr/share/doc/vantrel/senders/$sender" ] || fail "$sender cannot be run"
done
desktop-file-validate "$held"/usr/share/applications/*.desktop
# Newer versions want a home page, which there is none of.
appstreamcli validate --no-net --pedantic "$held"/usr/share/metainfo/*.xml >"$scratch/appstream.log" ||
  [ "$(grep -E '^[EW]:' "$scratch/appstream.log" | sed 's/.* //')" = url-homepage-missing ] ||
  fail "$(cat "$scratch/appstream.log")"
for page in "$held"/usr/share/man/man1/*.1.gz; do
  said=$(LC_ALL=C.UTF-8 man --warnings -E UTF-8 -l -Tutf8 -Z "$page" 2>&1 >/dev/null)
  [ -z "$said" ] || fail "$page: $said"
done

echo "== the unit"
unit=$scratch/unit
mkdir "$unit"
sed "s|=/usr/bin/vantrel|=$root/usr/bin/vantrel|" "$root/usr/lib/systemd/system/vantrel@.service" >"$unit/vantrel@.service"
said=$(SYSTEMD_LOG_LEVEL=warning systemd-analyze verify --man=no "$unit/vantrel@1.service" 2>&1 | grep 'vantrel@' || true)
[ -z "$said" ] || fail "unit: $said"
sed "s|=/usr/bin/vantrel|=$root/usr/bin/vantrel|" "$root/usr/lib/systemd/system/vantrel-console.service" >"$unit/vantrel-console.service"
said=$(SYSTEMD_LOG_LEVEL=warning systemd-analyze verify --man=no "$unit/vantrel-console.service" 2>&1 | grep 'vantrel-console' || true)
[ -z "$said" ] || fail "unit of the console: $said"

echo "== every command is in its manual page"
"$root/usr/bin/vantrel-admin" --help | sed -n 's/^  vantrel-admin \([a-z][a-z ]*[a-z]\) .*/\1/p' >"$scratch/commands"
[ "$(wc -l <"$scratch/commands")" -ge 8 ] || fail "the help names $(wc -l <"$scratch/commands") commands"
while read -r command; do
  zgrep -q "^\.BI \"$command " "$held/usr/share/man/man1/vantrel-admin.1.gz" || fail "the manual does not tell of $command"
done <"$scratch/commands"

echo "== every option of cards from a file and of the console is in its manual page"
for program in vantrel-print:16 vantrel-console:4; do
  "$root/usr/bin/${program%:*}" --help | grep -oE '^  (-h, )?--[a-z-]+' | grep -oE -- '--[a-z-]+' >"$scratch/options"
  [ "$(wc -l <"$scratch/options")" -ge "${program#*:}" ] || fail "the help of $program names $(wc -l <"$scratch/options") options"
  zcat "$held/usr/share/man/man1/${program%:*}.1.gz" | sed 's/\\-/-/g' >"$scratch/manual"
  while read -r option; do
    grep -A1 '^\.TP' "$scratch/manual" | grep -qE -- "^\.B(I|R)? .*$option( |\"|$)" || fail "the manual does not tell of $option"
  done <"$scratch/options"
done

echo "== the first start"
export HOME="$scratch/a home" XDG_RUNTIME_DIR=$scratch/runtime QT_QPA_PLATFORM=offscreen
unset XDG_DATA_HOME VANTREL_HOME DISPLAY WAYLAND_DISPLAY
mkdir -p "$HOME" && mkdir -m 700 "$XDG_RUNTIME_DIR"
"$root/usr/bin/vantrel" --help | grep -q "$HOME/.local/share/vantrel" || fail "the help does not name the folder"
[ "$("$root/usr/bin/vantrel" --version)" = "$("$root/usr/bin/vantrel-admin" --version | sed s/-admin//)" ] || fail "version"
folder=$HOME/.local/share/vantrel
printed="$folder/Printed/Session 1"
"$root/usr/bin/vantrel" 2>"$scratch/errors" &
station=$!
await test -s "$folder/Vantrel.dat"
await test -s "$folder/SessionStatus.ini"
grep -q '^Ledger=True' "$folder/Vantrel 6.ini" || fail "the first start does not set what is recommended"
"$root/usr/bin/vantrel-admin" session stop "$folder" 1
wait "$station" || fail "the first session ended with $?: $(cat "$scratch/errors")"

echo "== a card of its own"
rm -r "$folder"
"$root/usr/bin/vantrel-admin" demo "$folder"
port=$(python3 -c 'import socket; s = socket.socket(); s.bind(("127.0.0.1", 0)); print(s.getsockname()[1])')
sed -i "s/^Port=[0-9]*/Port=$port/" "$folder/Vantrel 6.ini"
"$root/usr/bin/vantrel" 2>"$scratch/errors" &
station=$!
listens() { (exec 3<>"/dev/tcp/127.0.0.1/$port"); }
await listens
printf '<Ada Lovelace+40012345+Gold>' >"/dev/tcp/127.0.0.1/$port"
await test -s "$printed/card-000002.pdf"
"$root/usr/bin/vantrel-admin" session stop "$folder" 1
wait "$station" || fail "the session ended with $?: $(cat "$scratch/errors")"
"$root/usr/bin/vantrel-admin" session start "$folder" 1
station=

echo "== cards from a file"
printf 'name,number,tier\n"Lovelace, Ada",40012345,Gold\nGrace Hopper,40054321,Silver\n' >"$scratch/members.csv"
said=$("$root/usr/bin/vantrel-print" "$folder" "Member Card" "$scratch/members.csv" --header --one "$scratch/members.pdf")
[ "$said" = "2 rows printed: $scratch/members.pdf" ] || fail "it said: $said"
pdftotext -layout "$scratch/members.pdf" "$scratch/members.txt"
for text in 'Lovelace, Ada' 'Grace Hopper' Silver; do
  grep -qF "$text" "$scratch/members.txt" || fail "$text is on no card"
done
"$root/usr/bin/vantrel-admin" ledger list "$folder" --text 'members.csv:3' | grep -q 'printed.*Grace Hopper' ||
  fail "a row is not in the ledger"

echo "== the console"
"$root/usr/bin/vantrel-console" "$folder" --listen 127.0.0.1:0 >"$scratch/console" &
station=$!
await grep -q '^The console is at ' "$scratch/console"
address=$(sed -n 's/^The console is at //p' "$scratch/console")
# Read whole before it is searched: a search that has found its words closes the pipe, and curl would fail.
page=$(curl --silent --fail "$address")
[[ $page == *'<title>Vantrel Console</title>'* ]] || fail "the console shows no page"
records=$(curl --silent --fail --header "Authorization: Bearer $(cat "$folder/Console.token")" "${address}api/v1/records")
[[ $records == *'Grace Hopper'* ]] || fail "the console does not tell of the cards"
kill "$station"
wait "$station" || fail "the console ended with $?"
station=

echo "== where no folder can be made"
touch "$scratch/file"
! said=$(XDG_DATA_HOME=$scratch/file "$root/usr/bin/vantrel" 2>&1) || fail "it started without a folder"
[ "$(wc -l <<<"$said")" = 1 ] && [[ $said = vantrel:* ]] || fail "it said: $said"

echo "== remove"
in_root --purge vantrel >"$scratch/remove.log" 2>&1 || fail "dpkg: $(cat "$scratch/remove.log")"
left=$(find "$root" -path "$root/var/lib/dpkg" -prune -o -type f -print)
[ -z "$left" ] || fail "left behind: $left"
echo "passed"
