# What the scripts share. Sourced from the repository's root folder.

BUILD_PACKAGES=(g++ cmake ninja-build pkg-config ccache qt6-base-dev libsqlite3-dev
  qt6-multimedia-dev qt6-pdf-dev qt6-serialport-dev libgl1-mesa-dev libcups2-dev libcairo2-dev libpango1.0-dev libharfbuzz-dev libgtest-dev
  libgmock-dev libbenchmark-dev)
RUN_PACKAGES=(libqt6svg6 qt6-qpa-plugins qt6-image-formats-plugins poppler-utils fonts-liberation
  fonts-dejavu-core)
TEST_PACKAGES=(clang-format cups-daemon cups-client libqt6sql6-sqlite sqlite3 procps python3 xvfb
  dbus-daemon at-spi2-core)

# sqlite3 fills the macro that the run prints.
VALGRIND_PACKAGES=(valgrind libc6-dbg sqlite3)
PACKAGE_PACKAGES=(librsvg2-bin dpkg-dev file)
PACKAGE_TEST_PACKAGES=(appstream desktop-file-utils man-db groff systemd)

FUZZ_PACKAGES=(clang libclang-rt-14-dev)

# Qt's pre-compiled headers and moving folders are safe to cache.
export CCACHE_SLOPPINESS=pch_defines,time_macros
export CCACHE_BASEDIR="$PWD"
export CCACHE_NOHASHDIR=1

die() {
  echo "$*" >&2
  exit 1
}

# install_packages NAME...: installs the Debian packages that are missing, and nothing else.
install_packages() {
  local name missing=() root=()
  for name in "$@"; do
    dpkg-query -W -f='${db:Status-Status}' "$name" 2>/dev/null | grep -qx installed ||
      missing+=("$name")
  done
  [ ${#missing[@]} -gt 0 ] || return 0
  [ "$(id -u)" = 0 ] || root=(sudo)
  echo "Installing: ${missing[*]}"
  "${root[@]}" apt-get update -qq
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
