# Functions and lists shared by the scripts. Sourced from the repository's root folder.

# A name that ends in ? is a package that some Debian releases lack: Debian 12 has libqt6svg6 where
# 13 has qt6-svg-plugins, and 13 lacks clang-format-14.
BUILD_PACKAGES=(g++ cmake ninja-build pkg-config ccache qt6-base-dev libsqlite3-dev libpq-dev
  qt6-multimedia-dev qt6-pdf-dev qt6-serialport-dev libgl1-mesa-dev libcups2-dev libcairo2-dev libpango1.0-dev libharfbuzz-dev
  libjpeg-dev libmicrohttpd-dev libzint-dev libsystemd-dev libgtest-dev libgmock-dev libbenchmark-dev)
RUN_PACKAGES=(libqt6svg6 'qt6-svg-plugins?' qt6-qpa-plugins qt6-image-formats-plugins poppler-utils fonts-liberation
  fonts-dejavu-core)
TEST_PACKAGES=('clang-format-14?' cups-daemon cups-client cups-filters cups-ipp-utils ghostscript
  fonts-urw-base35 mupdf-tools qpdf zbar-tools zxing-cpp-tools dmtx-utils
  libqt6sql6-sqlite sqlite3 procps python3 python3-prometheus-client python3-yaml curl openssl xvfb dbus-daemon at-spi2-core openbox
  locales weston qt6-wayland chromium chromium-driver python3-selenium postgresql pgbouncer)

# The script uses sqlite3 to write the layouts of a macro.
VALGRIND_PACKAGES=(valgrind libc6-dbg sqlite3 curl)
PACKAGE_PACKAGES=(librsvg2-bin dpkg-dev file)
PACKAGE_TEST_PACKAGES=(appstream curl desktop-file-utils man-db groff systemd)
# For a container with its own systemd, and for reading its cards.
SERVICE_TEST_PACKAGES=(systemd-container debootstrap bsdutils poppler-utils)

FUZZ_PACKAGES=(clang libclang-rt-dev)

# These settings allow ccache to cache Qt's precompiled headers.
export CCACHE_SLOPPINESS=pch_defines,time_macros
export CCACHE_BASEDIR="$PWD"
export CCACHE_NOHASHDIR=1

die() {
  echo "$*" >&2
  exit 1
}

# install_packages NAME...: installs the missing Debian packages. Names that end in ? are skipped if
# the system does not offer them.
install_packages() {
  local name missing=() root=()
  [ "$(id -u)" = 0 ] || root=(sudo)
  for name in "$@"; do
    [[ $name == *'?' ]] || is_installed "$name" || missing+=("$name")
  done
  # A new machine has no package lists yet.
  [ ${#missing[@]} = 0 ] || "${root[@]}" apt-get update -qq
  for name in "$@"; do
    [[ $name == *'?' ]] || continue
    name=${name%'?'}
    is_installed "$name" || ! apt-cache show "$name" >/dev/null 2>&1 || missing+=("$name")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  echo "Installing: ${missing[*]}"
  # The tests start servers of their own; the package must not start one.
  if [[ " ${missing[*]} " == *' postgresql '* ]]; then
    "${root[@]}" mkdir -p /etc/postgresql-common/createcluster.d
    echo 'create_main_cluster = false' |
      "${root[@]}" tee /etc/postgresql-common/createcluster.d/no-main-cluster.conf >/dev/null
  fi
  # Nor must that of the pooler.
  if [[ " ${missing[*]} " == *' pgbouncer '* && ! -e /etc/systemd/system/pgbouncer.service ]]; then
    "${root[@]}" mkdir -p /etc/systemd/system
    "${root[@]}" ln -s /dev/null /etc/systemd/system/pgbouncer.service
  fi
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

is_installed() { dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null | grep -qx installed; }

# install_node_packages: puts what tests/node/package.json names into build/node, if its versions changed.
install_node_packages() {
  command -v npm >/dev/null || install_packages nodejs npm
  mkdir -p build/node
  ! cmp -s tests/node/package-lock.json build/node/installed.json || return 0
  cp tests/node/package.json tests/node/package-lock.json build/node
  npm ci --prefix build/node --no-audit --no-fund --loglevel=error >/dev/null
  cp build/node/package-lock.json build/node/installed.json
}
