# The Debian packages that the commands at the root need, and their installing. Sourced, not run.

source "$(dirname "${BASH_SOURCE[0]}")/progress.sh"

packages_to_play="build-essential cmake ninja-build qt6-base-dev qt6-multimedia-dev
  qt6-translations-l10n libgl-dev nlohmann-json3-dev fonts-liberation"
packages_to_test="$packages_to_play appstream bats clang clang-format clang-tidy desktop-file-utils libclang-rt-14-dev git
  libgif-dev libgtest-dev libgmock-dev libbenchmark-dev python3"
packages_to_test_all="$packages_to_test at-spi2-core dbus gir1.2-atspi-2.0 libfaketime openbox python3-gi xvfb"
packages_to_package="build-essential cmake ninja-build qt6-base-dev qt6-multimedia-dev libgl-dev nlohmann-json3-dev
  debhelper"
packages_for_a_bare_machine="debootstrap git"

# Those of the packages that are not installed, one a line. dpkg-query ends with an error when it has never
# heard of one: such a package is as missing as any.
missing_packages() {
  local installed
  installed=$(dpkg-query -W -f '${Package}:${db:Status-Status}\n' "$@" 2>/dev/null || true)
  local package
  for package in "$@"; do
    grep -qxF "$package:installed" <<<"$installed" || echo "$package"
  done
}

# Runs a command as root, through sudo where we are not.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

# True if we are root or can become it; asks for sudo's password where there is somebody to ask.
can_be_root() {
  [ "$(id -u)" -eq 0 ] && return
  command -v sudo >/dev/null || return
  sudo -n true 2>/dev/null && return
  [ -t 0 ] && sudo -v
}

# Installs those of the packages that are missing. Where nobody can become root it gives the one line to run,
# and ends the script that called it.
install_missing() {
  local missing
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -eq 0 ] && return
  if ! can_be_root; then
    echo "Il manque des paquets. La ligne à lancer en tant que root :"
    echo "apt-get update && apt-get install -y --no-install-recommends ${missing[*]}"
    exit 1
  fi
  echo "Paquets à installer : ${missing[*]}"
  with_progress . as_root apt-get update -q
  with_progress . apt_install "${missing[@]}"
}

# Without its status lines apt-get says nothing while it fetches a large package.
apt_install() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends -o APT::Status-Fd=1 "$@" |
    sed -u -E 's/^(dl|pm)status:.*:([0-9]+)\.[0-9]+:/[\2 %] /'
}
