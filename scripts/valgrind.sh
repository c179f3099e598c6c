#!/usr/bin/env bash
# Runs the station under valgrind from its start to its orderly end, then its console, then cards from a
# file. Each record over TCP, and each row, prints a two-page card with a stripe and automatic numbers and
# a card of another layout; the console is asked for all that it shows and enters and voids records. Fails
# on any memory error, and on any definitely lost block of the station or the console. The argument is the
# number of records, and of rows (50 by default).
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh

readonly RECORDS=${1:-50}
# No layout is open; the macro prints a layout of two pages and a layout of one page.
readonly PAGES_OF_RECORD=3
# Timeout in tenths of a second. It only ends a run that has failed: a busy machine takes long under valgrind.
readonly TIMEOUT=18000

install_packages "${BUILD_PACKAGES[@]}" "${RUN_PACKAGES[@]}" "${VALGRIND_PACKAGES[@]}"
cmake --preset dev
cmake --build --preset dev --target vantrel vantrel-admin vantrel-console vantrel-print
bin=$PWD/build/dev/bin

folder=$(mktemp -d)
station=
console=
viewer=
cleanup() {
  for running in $station $console $viewer; do
    kill -KILL "$running" 2>/dev/null || true
  done
  rm -rf "$folder"
}
trap cleanup EXIT

port_answers() { (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; }
count_pages() { find "$folder/home/Printed" -name 'card-*.pdf' 2>/dev/null | wc -l; }
# wait_for WHAT COMMAND...: repeats the command until it succeeds; fails if the station ends or the
# timeout expires.
wait_for() {
  local what=$1
  shift
  for _ in $(seq "$TIMEOUT"); do
    ! "$@" || return 0
    kill -0 "$station" 2>/dev/null || break
    sleep 0.1
  done
  cat "$folder/valgrind.log" >&2
  die "Not seen: $what."
}
has_pages() { [ "$(count_pages)" -ge "$1" ]; }

export VANTREL_HOME=$folder/home
"$bin/vantrel-admin" demo "$VANTREL_HOME"
"$bin/vantrel-admin" macro add "$VANTREL_HOME" Chain
sqlite3 "$VANTREL_HOME/Vantrel.dat" \
  "INSERT INTO MacroElements (MacroID, LayoutName) SELECT ID, 'Member Card' FROM Macros;
   INSERT INTO MacroElements (MacroID, LayoutName) SELECT ID, 'Visitor' FROM Macros;"
port=$((20000 + RANDOM % 10000))
while port_answers; do
  port=$((port + 1))
done
sed -i "s/^Port=[0-9]*/Port=$port\r\nActiveMacro=Chain/; s/^LastLayout=[^\r]*/LastLayout=/" \
  "$VANTREL_HOME/Vantrel 6.ini"
# A hidden station, as on a server.
printf '[Session 1]\r\nVisible=False\r\nActive=True\r\n' >"$VANTREL_HOME/SessionStatus.ini"

export QT_QPA_PLATFORM=offscreen CUPS_SERVER=$folder/no.sock XDG_RUNTIME_DIR=$folder/run
mkdir -m 700 "$XDG_RUNTIME_DIR"
CHECK=(valgrind --error-exitcode=9 --num-callers=30 --suppressions=scripts/valgrind.supp)
LEAKS=(--leak-check=full --show-leak-kinds=definite --errors-for-leak-kinds=definite)
"${CHECK[@]}" "${LEAKS[@]}" --log-file="$folder/valgrind.log" "$bin/vantrel" &
station=$!
wait_for "the open port" port_answers

for record in $(seq "$RECORDS"); do
  printf '<Holder %s+%s+Gold>' "$record" $((40012345 + record)) >"/dev/tcp/127.0.0.1/$port"
  wait_for "the cards of record $record" has_pages $((record * PAGES_OF_RECORD))
done

kill -TERM "$station"
status=0
wait "$station" || status=$?
station=
cat "$folder/valgrind.log"
echo "$RECORDS records, $(count_pages) pages; exit status $status"
[ "$status" = 0 ] || exit "$status"

"${CHECK[@]}" "${LEAKS[@]}" --log-file="$folder/console.log" \
  "$bin/vantrel-console" "$VANTREL_HOME" --listen 127.0.0.1:0 >"$folder/console.out" &
console=$!
for _ in $(seq "$TIMEOUT"); do
  ! grep -q '^Its token' "$folder/console.out" || break
  kill -0 "$console" 2>/dev/null || break
  sleep 0.1
done
address=$(sed -n 's/^The console is at //p' "$folder/console.out")
[ -n "$address" ] || die "The console does not listen."
# ask STATUS PATH [CURL OPTIONS...]: asks the console, and fails if the answer has another status.
ask() {
  local expected=$1 path=$2 status
  shift 2
  status=$(curl --silent --show-error --output "$folder/answer" --write-out '%{http_code}' \
    --header "Authorization: Bearer $(cat "$VANTREL_HOME/Console.token")" "$@" "$address$path")
  [ "$status" = "$expected" ] || die "The console answers $status to $path: $(head -c 300 "$folder/answer")"
}
# Who looks on while the others ask.
curl --silent --no-buffer --max-time 3600 --header "Authorization: Bearer $(cat "$VANTREL_HOME/Console.token")" \
  "${address}api/v1/events" >"$folder/events" &
viewer=$!
for path in '' page.js page.css login metrics api/v1/stations api/v1/records api/v1/unsettled api/v1/counts api/v1/layouts \
  api/v1/records/1 api/v1/records/1/parts api/v1/records/1/cards/1.png 'api/v1/records?text=holder&brief=1'; do
  ask 200 "$path"
done
ask 503 healthz
ask 404 api/v1/records/1000000
json=(--header 'Content-Type: application/json' --data)
ask 400 api/v1/records "${json[@]}" '{'
ask 201 api/v1/records "${json[@]}" '{"layout": "Member Card", "values": ["Ada Lovelace", "40012345", "Gold"]}'
ask 201 api/v1/records/1/reprint "${json[@]}" '{}'
ask 200 "api/v1/records/$((RECORDS + 1))/void" --data ''
for _ in $(seq "$TIMEOUT"); do
  ! grep -q '"state": "void"' "$folder/events" || break
  sleep 0.1
done
grep -q '"state": "void"' "$folder/events" || die "Whoever looks on is not told of a record that is void."
kill -TERM "$console"
wait "$console" || status=$?
console=
wait "$viewer" || true
viewer=
cat "$folder/console.log"
[ "$status" = 0 ] || exit "$status"

{
  echo 'name,number,tier'
  for row in $(seq "$RECORDS"); do
    echo "\"Holder, $row\",$((40012345 + row)),Gold"
  done
} >"$folder/rows.csv"
for place in "--one=$folder/all.pdf" "--each=$folder/cards" "--each=$folder/shared --workers=2"; do
  # The words of a place are options. Lost blocks are not looked for: at the end fontconfig still holds
  # its fonts, by offsets that are not seen as pointers.
  # shellcheck disable=SC2086
  "${CHECK[@]}" --log-file="$folder/print-%p.log" "$bin/vantrel-print" \
    "$VANTREL_HOME" --macro Chain "$folder/rows.csv" --header $place || status=$?
  cat "$folder"/print-*.log
  [ "$status" = 0 ] || exit "$status"
  # Each process has a log of its own.
  for log in "$folder"/print-*.log; do
    grep -q 'ERROR SUMMARY: 0 errors' "$log" || die "Errors in a process of $place."
    rm "$log"
  done
done
