#!/usr/bin/env bash
# send.sh HOST PORT VALUE...: sends one record to a station, in its default framing.
# The values are sent as code page 1252, one byte for each character.
set -euo pipefail

[ $# -ge 3 ] || { echo "usage: send.sh HOST PORT VALUE..." >&2; exit 2; }
host=$1 port=$2
shift 2

record=
for value in "$@"; do
  # An empty value takes no position and a delimiter would end the value, so both are refused.
  case $value in
  '' | *[\<+\>]*) echo "send.sh: cannot be sent: '$value'" >&2; exit 1 ;;
  esac
  record+=${record:++}$value
done

bytes=$(printf '<%s>' "$record" | iconv -f UTF-8 -t WINDOWS-1252 | base64 -w0)
base64 -d <<<"$bytes" >"/dev/tcp/$host/$port"
