#!/bin/sh
# Starts a card station of this user. An installed program's own folder cannot be written, so the
# station gets a program folder in the user's data folder, filled at the first start.
set -eu

own=$(readlink -f "$0")
prefix=$(dirname "$(dirname "$own")")
admin=$prefix/bin/vantrel-admin
station=$prefix/libexec/vantrel/vantrel

die() {
  echo "vantrel: $*" >&2
  exit 1
}

case ${1:-} in
--help | -h)
  cat <<HELP
Starts a card station.

Usage: vantrel [SESSION]

SESSION is a number from 0 to 255; without one it is session 1 with a notification icon.
The station's files are in the folder that VANTREL_HOME names, else in
${XDG_DATA_HOME:-$HOME/.local/share}/vantrel, which the first start makes.
Without a display the station runs all the same; it only has nothing to show.
HELP
  exit 0
  ;;
--version)
  "$admin" --version | sed 's/-admin//'
  exit 0
  ;;
esac

if [ -z "${VANTREL_HOME:-}" ]; then
  VANTREL_HOME=${XDG_DATA_HOME:-${HOME:?vantrel: HOME is not set}/.local/share}/vantrel
  # Two sessions that start at once may both come here: one of them makes the folder.
  if [ ! -e "$VANTREL_HOME/Vantrel.dat" ] && ! said=$("$admin" new "$VANTREL_HOME" 2>&1) &&
    [ ! -e "$VANTREL_HOME/Vantrel.dat" ]; then
    rmdir "$VANTREL_HOME" 2>/dev/null || true
    die "the program folder cannot be made: ${said#vantrel-admin: }"
  fi
  export VANTREL_HOME
fi
exec "$station" "$@"
