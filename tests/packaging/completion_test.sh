#!/usr/bin/env bash
# Presses Tab behind words of vantrel-admin, and looks at what its completion offers.
#   completion_test.sh PROGRAMS-FOLDER COMPLETION
set -euo pipefail
PATH=$1:$PATH
# shellcheck source=/dev/null
. "$2"
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir "$scratch/a station" "$scratch/another"
touch "$scratch/a file"
cd "$scratch"

# offers EXPECTED WORD...: completes the last word, and expects these offers, in their order.
offers() {
  local expected=$1 said
  shift
  COMP_WORDS=(vantrel-admin "$@")
  COMP_CWORD=$#
  _vantrel_admin
  said=$(printf '%s|' "${COMPREPLY[@]}")
  [ "${said%|}" = "$expected" ] || {
    echo "FAILED: behind '$*' it offers '${said%|}', not '$expected'" >&2
    exit 1
  }
}

complete -p vantrel-admin | grep -q _vantrel_admin
offers 'check|demo|init|ledger|macro|new|session|settings|store' ''
offers 'ledger' led
offers 'counts|export|list|purge|reprint|show|void' ledger ''
offers 'reprint' ledger re
offers 'remove|rename' macro re
offers '' nonsense ''
offers '--help|--version' --
offers 'a station|another' ledger list ''
offers 'a station' init 'a s'
offers '' ledger show another ''
offers 'a station|another' check ''
offers '' check another ''
offers '--json|--help' check another --
offers 'a file' ledger export another 'a f'
offers '' settings ''
offers 'check|copy|init' store ''
offers '' store init ''
offers 'a station|another' store copy ''
offers 'a station|another' store copy another ''
offers '' store copy another another ''
offers '--state|--text|--since|--until|--before|--limit|--json|--help' ledger list another -
offers '--older-than|--all|--help' ledger purge another --
offers '--existing|--help' new --
offers '--help' init -
offers 'received|printing|printed|done|failed|doubtful|void' ledger list --state ''
offers 'printing|printed' ledger list another --state pr
offers '' ledger list another --text ''
offers 'a station|another' ledger list --json ''
echo passed
