#!/usr/bin/env bash
# Tests the package's services under systemd in a container that the script creates and removes. The
# stations' service is installed as described in docs/installing.md, started, killed, restarted, ended by
# hand, stopped while a card prints, run with two sessions, and purged. That of the console is started
# beside it as described in docs/console.md, asked, hung, killed, stopped, and purged with it. Needs root
# and the apt mirror; takes some minutes.
#   service-test.sh [PACKAGE.deb]       without a package, scripts/package.sh builds it
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/lib.sh
[ "$(id -u)" = 0 ] || die "A container needs root: sudo $0"

install_packages "${SERVICE_TEST_PACKAGES[@]}"
package=${1:-}
if [ -z "$package" ]; then
  scripts/package.sh
  package=$(find build/release -maxdepth 1 -name 'vantrel_*.deb' | sort -V | tail -1)
  [ -n "$package" ] || die "No package was made."
fi

scratch=$(mktemp -d)
machine=$scratch/machine
container=
end() {
  trap - EXIT
  # The container is still running after a failure.
  if [ -n "$container" ] && kill -0 "$container" 2>/dev/null; then
    for child in $(ps -o pid= --ppid "$container"); do kill -KILL "$child" 2>/dev/null || true; done
    wait "$container" || true
  fi
  # The folder stays in use for some seconds.
  for _ in $(seq 60); do
    ! rm -rf --one-file-system "$scratch" 2>/dev/null || return 0
    sleep 1
  done
  echo "Left behind: $scratch" >&2
}
trap end EXIT
trap 'exit 130' INT TERM

# guide WORDS [PAGE]: prints the line of the page, docs/installing.md if none is named, that begins with these
# words, without its comment; fails if there is none
guide() {
  local line page=${2:-docs/installing.md}
  line=$(sed -n "s|^    \($1.*\)|\1|p" "$page" | sed 's/ *#.*//')
  { [ "$(wc -l <<<"$line")" = 1 ] && [ -n "$line" ]; } || die "$page has no line '$1'"
  echo "$line"
}
install_line=$(guide 'sudo apt install ')
demo_line='sudo -u vantrel vantrel-admin demo /var/lib/vantrel'
grep -qF "\`$demo_line\`" docs/installing.md || die "docs/installing.md does not tell: $demo_line"
{
  echo "guide_users='$(guide 'sudo systemd-sysusers')'"
  echo "guide_folder='$(guide 'sudo install -d ')'"
  echo "guide_demo='$demo_line'"
  echo "guide_enable='$(guide 'sudo systemctl enable --now ')'"
  echo "guide_disable='$(guide 'sudo systemctl disable --now ')'"
  echo "guide_end='$(guide 'sudo -u vantrel vantrel-admin session stop ')'"
  echo "guide_console='$(guide 'sudo systemctl enable --now ' docs/console.md)'"
  echo "guide_token='$(guide 'sudo cat /var/lib/' docs/console.md)'"
  echo "guide_let='$(guide 'sudo -u vantrel vantrel-admin session start ')'"
} >"$scratch/guide"

echo "== a machine"
# shellcheck disable=SC2016
read -r mirror suite < <(
  apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 'Identifier: Packages' 'Component: main' |
    grep " $(. /etc/os-release && echo "$VERSION_CODENAME")\$"
) || die "apt has no mirror of this release."
debootstrap --variant=minbase --include=systemd,systemd-sysv,dbus,sudo,sqlite3 \
  "$suite" "$machine" "$mirror" >"$scratch/debootstrap.log" 2>&1 ||
  die "debootstrap: $(tail -5 "$scratch/debootstrap.log")"
echo station >"$machine/etc/hostname"
echo '127.0.1.1 station' >>"$machine/etc/hosts"
# apt must not ask questions, and the service needs no desktop packages.
printf 'APT::Get::Assume-Yes "true";\nAPT::Install-Recommends "false";\n' >"$machine/etc/apt/apt.conf.d/90service-test"
echo force-unsafe-io >"$machine/etc/dpkg/dpkg.cfg.d/90service-test"

echo "== $install_line"
given=$machine/root/${install_line#*./}
mkdir -p "$(dirname "$given")"
cp "$package" "$given"
chroot "$machine" /bin/sh -c "cd /root && DEBIAN_FRONTEND=noninteractive $install_line" >"$scratch/install.log" 2>&1 ||
  die "apt install: $(tail -5 "$scratch/install.log")"

echo "== boot"
steps=$machine/root/steps
mkdir "$steps"
cp tests/packaging/service_steps.sh "$scratch/guide" "$steps"
cat >"$machine/etc/systemd/system/steps.service" <<'UNIT'
[Unit]
Description=The steps of the test
After=basic.target dbus.service
[Service]
Type=oneshot
ExecStart=/bin/bash /root/steps/service_steps.sh
ExecStopPost=/bin/systemctl --no-block poweroff
StandardOutput=append:/root/steps/told
StandardError=append:/root/steps/told
TimeoutStartSec=900
[Install]
WantedBy=multi-user.target
UNIT
chroot "$machine" systemctl enable --quiet steps.service
touch "$steps/told"
# systemd-nspawn needs a terminal. A private network keeps its ports from conflicting with others.
script -qfec "systemd-nspawn --quiet -D '$machine' --boot --register=no --keep-unit --private-network" \
  "$scratch/boot.log" </dev/null >/dev/null 2>&1 &
container=$!
for _ in $(seq 1200); do
  kill -0 "$container" 2>/dev/null || break
  sleep 1
done
cat "$steps/told"
if ! grep -qx 'all steps passed' "$steps/told"; then
  tail -20 "$scratch/boot.log" >&2
  die "FAILED"
fi
! kill -0 "$container" 2>/dev/null || die "FAILED: the container does not end"
container=

echo "== the cards, read from outside"
printed=$machine/var/lib/vantrel/Printed
while read -r card; do
  { pdftotext "$card" - >/dev/null 2>"$scratch/said" && [ ! -s "$scratch/said" ]; } || die "FAILED: $card is not whole"
done < <(find "$printed" -name '*.pdf')
[ -z "$(find "$printed" -name '.card-*')" ] || die "FAILED: half a card is left in $printed"
echo "$(find "$printed" -name '*.pdf' | wc -l) cards are whole"
echo "passed"
