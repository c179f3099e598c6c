#!/usr/bin/env bash
# Looks at the service's unit as systemd would read it.
#   unit_test.sh UNIT
set -euo pipefail
unit=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

fail() {
  echo "FAILED: $*" >&2
  exit 1
}

# What a unit's commands hold that systemd does not put a value for: within a word only ${NAME} is a
# variable, $NAME is one as a word of its own.
unexpanded() {
  sed -n 's/^Exec[A-Za-z]*=//p' "$1" | tr -s ' ' '\n' | grep -E '.\$[A-Za-z_]|^\$[A-Za-z_0-9]+[^A-Za-z_0-9]' || true
}

echo "== the check itself"
printf 'ExecStart=/bin/a $ONE --two=${TWO}\nExecStop=/bin/a ${THREE}\n' >"$scratch/right"
[ -z "$(unexpanded "$scratch/right")" ] || fail "it complains of what is right: $(unexpanded "$scratch/right")"
printf 'ExecStop=/bin/a --pid=$MAINPID -f $HOME/b\n' >"$scratch/wrong"
[ "$(unexpanded "$scratch/wrong" | wc -l)" = 2 ] || fail "it sees only: $(unexpanded "$scratch/wrong")"

echo "== the unit's commands"
grep -q '^ExecStart=' "$unit" || fail "it starts nothing"
[ -z "$(unexpanded "$unit")" ] || fail "systemd takes literally: $(unexpanded "$unit")"
# A station can be gone before a command of its stop is run, also because it was ended by hand, and then
# a command that asks for its process fails the unit. systemd itself waits for the process.
! sed -n 's/^ExecStop=//p' "$unit" | grep -n 'MAINPID' || fail "its stop asks for a process that may be gone"
grep -q '^ExecStop=/usr/bin/vantrel-admin session stop ' "$unit" || fail "its stop does not tell the session to end"

echo "== as systemd reads it"
if command -v systemd-analyze >/dev/null; then
  # The programs are somewhere else until the package is installed.
  sed 's|=/usr/bin/vantrel[a-z-]*|=/bin/true|' "$unit" >"$scratch/vantrel@.service"
  said=$(SYSTEMD_LOG_LEVEL=warning systemd-analyze verify --man=no "$scratch/vantrel@1.service" 2>&1 | grep 'vantrel@' || true)
  [ -z "$said" ] || fail "$said"
fi
echo "passed"
