#!/usr/bin/env bash
# Presses Tab behind words of vantrel-console, and looks at what its completion offers.
#   console_completion_test.sh PROGRAMS-FOLDER COMPLETION
set -euo pipefail
PATH=$1:$PATH
# shellcheck source=/dev/null
. "$2"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
mkdir 'a station' certificates
touch cert.pem key.pem

# offers EXPECTED WORD...: completes the last word, and expects these offers, in their order.
offers() {
  local expected=$1 said
  shift
  COMP_WORDS=(vantrel-console "$@")
  COMP_CWORD=$#
  _vantrel_console
  said=$(printf '%s|' "${COMPREPLY[@]}")
  [ "${said%|}" = "$expected" ] || {
    echo "FAILED: behind '$*' it offers '${said%|}', not '$expected'" >&2
    exit 1
  }
}

complete -p vantrel-console | grep -q _vantrel_console
# Every option of the help, in its order, and none besides.
help=$(vantrel-console --help | grep -oE '^  (-h, )?--[a-z-]+' | grep -oE -- '--[a-z-]+' | paste -sd '|')
[[ $help = --listen*--version ]]
offers "$help" --
offers '--listen' 'a station' --l
offers 'a station|certificates' ''
offers 'a station' a
offers '' 'a station' ''
offers '' 'a station' --listen ''
offers 'a station|cert.pem|certificates|key.pem' 'a station' --tls ''
offers 'key.pem' 'a station' --tls cert.pem k
offers '' 'a station' --tls cert.pem key.pem ''
offers 'a station|certificates' --tls cert.pem key.pem ''
echo passed
