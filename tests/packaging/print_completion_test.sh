#!/usr/bin/env bash
# Presses Tab behind words of vantrel-print, and looks at what its completion offers.
#   print_completion_test.sh PROGRAMS-FOLDER COMPLETION
set -euo pipefail
PATH=$1:$PATH
# shellcheck source=/dev/null
. "$2"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cd "$scratch"
vantrel-admin init "$scratch/a station"
vantrel-admin macro add "$scratch/a station" 'Card and carrier'
vantrel-admin macro add "$scratch/a station" Both
mkdir photos
touch members.csv 'more members.csv'

# offers EXPECTED WORD...: completes the last word, and expects these offers, in their order.
offers() {
  local expected=$1 said
  shift
  COMP_WORDS=(vantrel-print "$@")
  COMP_CWORD=$#
  _vantrel_print
  said=$(printf '%s|' "${COMPREPLY[@]}")
  [ "${said%|}" = "$expected" ] || {
    echo "FAILED: behind '$*' it offers '${said%|}', not '$expected'" >&2
    exit 1
  }
}

complete -p vantrel-print | grep -q _vantrel_print
# Every option of the help, in its order, and none besides.
help=$(vantrel-print --help | grep -oE '^  (-h, )?--[a-z-]+' | grep -oE -- '--[a-z-]+' | paste -sd '|')
[[ $help = --format*--version ]]
offers "$help" --
offers '--format|--first' a --f
offers 'a station|photos' ''
offers 'photos' ph
offers '' 'a station' ''
offers 'a station|members.csv|more members.csv|photos' 'a station' Badge ''
offers 'members.csv' 'a station' Badge --header --first 7 mem
offers 'members.csv' 'a station' --macro Both mem
offers '' 'a station' Badge members.csv ''
offers 'csv|records|tsv' 'a station' Badge --format ''
offers 'records' --format r
offers 'cp1252|utf-8' --encoding ''
offers 'a station|photos' 'a station' Badge --each ''
offers 'photos' 'a station' Badge members.csv --images p
offers 'members.csv|more members.csv' 'a station' Badge --one m
offers 'Card and carrier|Both' "a\\ station" --macro ''
offers 'Card and carrier' '"a station"' --macro C
offers 'Card and carrier' 'a station' --macro 'Card\ and'
offers '' --macro ''
offers '' nowhere --macro ''
offers '' 'a station' Badge --first ''
offers '' 'a station' Badge --columns ''
# What is offered is understood.
for format in csv records tsv; do
  for encoding in cp1252 utf-8; do
    said=$(vantrel-print nowhere Badge --format "$format" --encoding "$encoding" 2>&1 </dev/null || true)
    [ "$said" = 'vantrel-print: There is no layout database in nowhere.' ] || {
      echo "FAILED: with $format and $encoding it said: $said" >&2
      exit 1
    }
  done
done
echo passed
