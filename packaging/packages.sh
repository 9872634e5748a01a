# The Debian packages that the commands at the root need, and their installing. Sourced, not run.

packages_to_play="build-essential cmake ninja-build qt6-base-dev qt6-multimedia-dev
  qt6-translations-l10n libgl-dev nlohmann-json3-dev fonts-liberation"
packages_to_test="$packages_to_play clang clang-format clang-tidy libclang-rt-14-dev git libgif-dev
  libgtest-dev libgmock-dev libbenchmark-dev python3"

# Installs those of the packages that are missing, as root or through sudo; without either, prints the line
# to run and stops.
install_missing() {
  local missing=() package
  local installed
  installed=" $(dpkg-query -W -f '${Package}:${db:Status-Status}\n' "$@" 2>/dev/null |
    sed -n 's/:installed$//p' | tr '\n' ' ') "
  for package in "$@"; do
    [[ $installed == *" $package "* ]] || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null || ! { sudo -n true 2>/dev/null || [ -t 0 ]; }; then
      echo "Il manque des paquets. À lancer en tant que root :"
      echo "apt-get install -y ${missing[*]}"
      exit 1
    fi
    as_root=(sudo)
  fi
  echo "Installation de : ${missing[*]}"
  "${as_root[@]}" apt-get update -qq
  DEBIAN_FRONTEND=noninteractive "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}
