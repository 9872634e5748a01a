# What the scripts of this folder share. Sourced, not run.

windows_folder=$(dirname "$(realpath "${BASH_SOURCE[0]}")")
project=$(realpath "$windows_folder/../..")
source "$project/packaging/packages.sh"

# Qt is built once, outside the tree, for all clones of it.
cache=${ARDANE_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/ardane-windows}
export ARDANE_WINDOWS_CACHE=$cache
qt_folder=$cache/qt
toolchain=$windows_folder/toolchain.cmake
jobs=${ARDANE_JOBS:-$(nproc)}

packages_for_windows="build-essential cmake ninja-build g++-mingw-w64-x86-64-posix qt6-base-dev qt6-base-dev-tools
  qt6-translations-l10n nlohmann-json3-dev fonts-liberation debian-archive-keyring icoutils nsis zip"
