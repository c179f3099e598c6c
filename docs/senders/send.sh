#!/usr/bin/env bash
# send.sh [--wait] HOST PORT VALUE...: sends one record to a station, in its default framing.
# With --wait it waits up to a minute for the answer of a station that has AnswerHost=True, writes it,
# and ends with 0 only if the cards were handed over.
# The values are sent as code page 1252, one byte for each character, or as UTF-8 with
# SENDER_ENCODING=utf-8 in the environment, for a station that has Encoding=utf-8.
set -euo pipefail

wait=
[ "${1-}" != --wait ] || { wait=yes; shift; }
[ $# -ge 3 ] || { echo "usage: send.sh [--wait] HOST PORT VALUE..." >&2; exit 2; }
host=$1 port=$2
encoding=${SENDER_ENCODING:-WINDOWS-1252}
shift 2

record=
for value in "$@"; do
  # An empty value takes no position and a delimiter would end the value, so both are refused.
  case $value in
  '' | *[\<+\>]*) echo "send.sh: cannot be sent: '$value'" >&2; exit 1 ;;
  esac
  record+=${record:++}$value
done

bytes=$(printf '<%s>' "$record" | iconv -f UTF-8 -t "$encoding" | base64 -w0)
exec {station}<>"/dev/tcp/$host/$port"
base64 -d <<<"$bytes" >&"$station"
[ -n "$wait" ] || exit 0

IFS= read -r -t 60 answer <&"$station" || { echo "send.sh: no answer" >&2; exit 1; }
answer=${answer%$'\r'}
echo "$answer"
[[ $answer == "OK "* ]]
