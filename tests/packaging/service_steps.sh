#!/usr/bin/env bash
# Runs inside the container of scripts/service-test.sh, as root, and tells each state that it sees.
set -eEuo pipefail
cd "$(dirname "$0")"
# shellcheck source=/dev/null
. ./guide
home=/var/lib/vantrel

fail() {
  echo "FAILED: $*"
  systemctl status --no-pager --lines=30 'vantrel@*' vantrel-console || true
  exit 1
}
trap 'fail "line $LINENO"' ERR

# Waits until a command succeeds. The limit only ends a test that has failed.
await() {
  for _ in $(seq 1200); do
    ! "$@" 2>/dev/null || return 0
    sleep 0.1
  done
  fail "waited in vain for: $*"
}
# The unit of a session, or of the console.
unit() { [ "$1" = console ] && echo vantrel-console || echo "vantrel@$1"; }
property() { systemctl show --value --property "$2" "$(unit "$1")"; }
state() { echo "$(property "$1" ActiveState) $(property "$1" SubState) $(property "$1" Result)"; }
is() { [ "$(state "$1")" = "$2" ]; }
# expect SESSION|console STATE WHAT: the state has to come, and is told.
expect() {
  await is "$1" "$2"
  echo "ok: $3: $(unit "$1") is $2"
}
running='active running success'
ended='inactive dead success'
listens() { (exec 3<>"/dev/tcp/127.0.0.1/$1"); }
cards() { { find "$home/Printed/Session $1" -name 'card-*.pdf' 2>/dev/null || true; } | wc -l; }
has_cards() { [ "$(cards "$1")" -ge "$2" ]; }
# record SESSION PORT: sends a record, and waits for the two pages of its card.
record() {
  local before
  before=$(cards "$1")
  await listens "$2"
  printf '<Ada Lovelace+40012345+Gold>' >"/dev/tcp/127.0.0.1/$2"
  await has_cards "$1" $((before + 2))
  [ "$(cards "$1")" = $((before + 2)) ] || fail "session $1 printed $(cards "$1") pages"
  echo "ok: session $1 printed page $((before + 1)) and $((before + 2))"
}
has_restarts() { [ "$(property "$1" NRestarts)" = "$2" ]; }
# hang SESSION|console: lets its process stand still, and waits until another one has taken its place.
hang() {
  local folder hung
  folder=/run/systemd/system/$(unit "$1").service.d
  mkdir -p "$folder"
  printf '[Service]\nWatchdogSec=2\nTimeoutAbortSec=2\n' >"$folder/hung.conf"
  systemctl daemon-reload
  systemctl restart "$(unit "$1")"
  hung=$(property "$1" MainPID)
  kill -STOP "$hung"
  await has_restarts "$1" 1
  expect "$1" "$running" 'restarted, as it gave no sign of life'
  [ "$(property "$1" MainPID)" != "$hung" ] || fail 'no other process'
  rm "$folder/hung.conf"
  systemctl daemon-reload
}
# kill_it SESSION|console: kills its process, and waits until another one has taken its place.
kill_it() {
  local killed
  systemctl restart "$(unit "$1")"
  killed=$(property "$1" MainPID)
  kill -KILL "$killed"
  await has_restarts "$1" 1
  expect "$1" "$running" 'restarted after a kill'
  [ "$(property "$1" MainPID)" != "$killed" ] || fail 'no other process'
}
# ask PATH [HEADER]: the console's answer, with its head.
ask() {
  exec 4<>/dev/tcp/127.0.0.1/8620
  printf 'GET %s HTTP/1.1\r\nHost: 127.0.0.1\r\nConnection: close\r\n%s\r\n' "$1" "${2:+$2$'\r\n'}" >&4
  cat <&4
  exec 4>&-
}
# is_told WORDS PATH [HEADER]: whether the console's answer has these words.
is_told() { [[ $(ask "${@:2}" | tr -d '\000') == *"$1"* ]]; }
page='<title>Vantrel Console</title>'

echo "== set up and started as the guide tells"
eval "$guide_users"
eval "$guide_folder"
eval "$guide_demo"
eval "$guide_enable"
expect 1 "$running" 'enabled and started'
[ "$(systemctl is-enabled vantrel@1)" = enabled ] || fail 'it will not come with the machine'
record 1 10001
[ "$(stat -c %U "/proc/$(property 1 MainPID)")" = vantrel ] || fail 'it runs as somebody else'

echo "== told to systemd and to the journal"
[ "$(property 1 StatusText)" != '' ] || fail 'it tells no status'
told() { journalctl -q -u vantrel@1 VANTREL_STATE=printed VANTREL_LAYOUT='Member Card' -o cat --output-fields=MESSAGE; }
is_in_journal() { [ -n "$(told)" ]; }
await is_in_journal
echo "ok: $(told | tail -1)"

echo "== hung"
hang 1
record 1 10001

echo "== killed"
kill_it 1
record 1 10001

echo "== the console, started as the guide tells"
eval "$guide_console"
expect console "$running" 'enabled and started'
[ "$(systemctl is-enabled vantrel-console)" = enabled ] || fail 'it will not come with the machine'
[ "$(stat -c %U "/proc/$(property console MainPID)")" = vantrel ] || fail 'it runs as somebody else'
[ "$(property console StatusText)" = 'Serves http://127.0.0.1:8620/' ] || fail "its status: $(property console StatusText)"
is_told "$page" / || fail 'it is ready, and its page does not come'
await is_told 'HTTP/1.1 200 ' /healthz
[ "$(stat -c '%U %a' "$home/Console.token")" = 'vantrel 600' ] || fail 'others may read its token'
token="Authorization: Bearer $(eval "$guide_token")"
is_told 'HTTP/1.1 401 ' /api/v1/records || fail 'it tells records to anybody'
is_told '"state": "printed"' /api/v1/records "$token" || fail 'it tells no record'
is_told 'Content-Type: image/png' /api/v1/records/1/cards/1.png "$token" || fail 'it shows no card'
echo "ok: the page, the station's health, its records and its cards are told"

echo "== the console hung"
hang console
await is_told "$page" /

echo "== the console killed"
kill_it console
await is_told "$page" /
is_told '"state": "printed"' /api/v1/records "$token" || fail 'its token is another one'

echo "== the console stopped"
systemctl stop vantrel-console
expect console "$ended" 'stopped'
! is_told "$page" / 2>/dev/null || fail 'its page still comes'
expect 1 "$running" 'the console was stopped'
record 1 10001
systemctl start vantrel-console
expect console "$running" 'started again'

echo "== restarted"
before=$(property 1 MainPID)
systemctl restart vantrel@1
expect 1 "$running" 'restarted'
[ "$(property 1 MainPID)" != "$before" ] || fail 'no other process'
record 1 10001

echo "== ended by hand"
eval "$guide_end"
expect 1 "$ended" 'ended by hand, not restarted'
has_restarts 1 0 || fail 'it was restarted'
eval "$guide_let"
systemctl start vantrel@1
expect 1 "$running" 'started again'
record 1 10001

echo "== stopped between cards"
systemctl stop vantrel@1
expect 1 "$ended" 'stopped'
sed -n '/Session 1/,/^$/p' "$home/SessionStatus.ini" | grep -q '^Active=False' || fail 'its status is still active'

echo "== stopped while a card prints"
copies=400
sudo -u vantrel sqlite3 "$home/Vantrel.dat" "UPDATE LayoutParams SET PrinterCopies = $copies WHERE LayoutName = 'Member Card'"
systemctl start vantrel@1
await listens 10001
before=$(cards 1)
printf '<Ada Lovelace+40012345+Gold>' >/dev/tcp/127.0.0.1/10001
await has_cards 1 $((before + 1))
seen=$(cards 1)
systemctl stop vantrel@1
printed=$(($(cards 1) - before))
expect 1 "$ended" 'stopped while a card prints'
[ $((seen - before)) -lt "$printed" ] || fail 'nothing was printed any more when the stop came'
[ "$printed" = $((2 * copies)) ] || fail "$printed pages of $((2 * copies))"
echo "ok: the stop came at page $((seen - before)), and all $printed were printed"
sudo -u vantrel sqlite3 "$home/Vantrel.dat" "UPDATE LayoutParams SET PrinterCopies = 1 WHERE LayoutName = 'Member Card'"

echo "== two sessions"
sudo -u vantrel tee -a "$home/Vantrel 6.ini" >/dev/null <<'INI'
[Session 2]
LastLayout=Member Card
CaptureEnabled=True
Port=10002
INI
systemctl start vantrel@1
systemctl enable --quiet --now vantrel@2
expect 1 "$running" 'started beside another'
expect 2 "$running" 'started beside another'
record 1 10001
record 2 10002
systemctl stop vantrel@1
expect 1 "$ended" 'stopped'
expect 2 "$running" 'the other was stopped'
record 2 10002

echo "== purged"
is_told "$page" / || fail 'the page does not come any more'
eval "$guide_disable"
systemctl disable --quiet --now vantrel@2 vantrel-console
expect 1 "$ended" 'disabled'
expect 2 "$ended" 'disabled'
expect console "$ended" 'disabled'
cards_before=$(($(cards 1) + $(cards 2)))
sudo apt purge vantrel >/dev/null 2>&1
systemctl daemon-reload
for one in 1 console; do
  [ "$(property "$one" LoadState)" = not-found ] || fail "$(unit "$one") is still there: $(property "$one" LoadState)"
done
left=$(find / -xdev -path "$home" -prune -o -path /root -prune -o \( -name 'vantrel*' -o -name 'org.vantrel*' \) -print)
[ -z "$left" ] || fail "left behind: $left"
[ $(($(cards 1) + $(cards 2))) = "$cards_before" ] || fail 'its cards are gone'
[ -s "$home/Vantrel.dat" ] || fail 'its layouts are gone'
echo "ok: the programs are gone, and $cards_before pages and the layouts are kept"
echo "all steps passed"
