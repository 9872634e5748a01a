#!/usr/bin/env bash
# Tries what is built for Windows under wine, on a screen and in a Windows of its own:
#   packaging/windows/essai/essai.sh FOLDER [STEP...]
# The steps are tests, scenarios, desktop and https; all without any. FOLDER holds that Windows and pictures of the last
# two steps, which are there to be looked at. Build first: packaging/windows/build.sh.
set -euo pipefail
[ $# -ge 1 ] || { sed -n '2,5s/^# \{0,1\}//p' "$0" >&2; exit 2; }
source "$(dirname "$0")/../common.sh"
folder=$(realpath -m "$1")
shift
[ $# -gt 0 ] || set -- tests scenarios desktop https
cd "$project"
source packaging/build.sh
install_missing $packages_for_windows wine64 wine fonts-wine xvfb openbox xdotool x11-utils imagemagick libgtest-dev googletest python3 \
  unzip openssl iproute2

mkdir -p "$folder/maison/Documents"
player_home=$HOME
export HOME=$folder/maison WINEPREFIX=$folder/windows WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="winemenubuilder.exe=d"

# A screen of its own, which goes with this script.
start_screen() {
  local number=90
  while [ -e "/tmp/.X11-unix/X$number" ]; do number=$((number + 1)); done
  Xvfb ":$number" -screen 0 1280x1024x24 >/dev/null 2>&1 &
  screen=$!
  export DISPLAY=:$number
  until xdotool getdisplaygeometry >/dev/null 2>&1; do sleep 0.2; done
  openbox >/dev/null 2>&1 &
  manager=$!
}
stop_screen() {
  wineserver -k || true
  kill "$manager" "$screen" 2>/dev/null || true
}
start_screen
trap stop_screen EXIT
[ -d "$WINEPREFIX" ] || wineboot -i >/dev/null 2>&1
wineserver -w

build_tests() {
  HOME=$player_home build windows-essai "$@"
  local library
  for library in libgcc_s_seh-1 libstdc++-6 libwinpthread-1; do
    cp "$(x86_64-w64-mingw32-g++-posix -print-file-name=$library.dll)" build/windows-essai/programme/
  done
}

step_tests() {
  build_tests unit_test
  local without
  without=$(sed -E '/^#|^$/d' packaging/windows/essai/without | paste -sd:)
  wine build/windows-essai/programme/unit_test.exe --gtest_brief=1 --gtest_filter="-$without" 2>"$folder/tests.log"
}

# Each through ardane-pilote.exe, which the runner starts and talks to.
step_scenarios() {
  build_tests scenario_runner ardane-pilote
  local path failed=0
  for path in tests/scenarios/*.scenario; do
    wine build/windows-essai/programme/scenario_runner.exe resources "$path" || failed=$((failed + 1))
  done
  echo "Scénarios : $(ls tests/scenarios/*.scenario | wc -l), dont $failed démentis"
  [ "$failed" -eq 0 ]
}

step_desktop() {
  "$windows_folder/essai/desktop.sh" "$folder" build/windows/paquets/ardane-*-installation.exe
}

# By the program as the zip has it.
step_https() {
  rm -rf "$folder/zip" "$folder/images/https"
  unzip -q build/windows/paquets/ardane-*-windows.zip -d "$folder/zip"
  "$windows_folder/essai/https.sh" "$folder" "$folder"/zip/ardane-*
}

for step in "$@"; do
  printf '\n== %s (%d s)\n' "$step" "$SECONDS"
  "step_$step"
done
