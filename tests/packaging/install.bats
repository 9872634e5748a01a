# The first minute: what ./jouer and ./tester install, and what they say where they can't. dpkg-query, apt-get, id
# and sudo are stand-ins; nothing else of the machine but these tools is on the PATH.

bats_require_minimum_version 1.5.0

setup() {
  root=$(cd "$BATS_TEST_DIRNAME/../.." && pwd)
  stand_ins=$BATS_TEST_TMPDIR/stand-ins
  mkdir "$stand_ins"
  local tool
  for tool in bash dirname env grep sed stty; do
    ln -s "$(command -v "$tool")" "$stand_ins/$tool"
  done
  export LOG=$BATS_TEST_TMPDIR/log INSTALLED="" UNHEARD_OF="" UID_OF_THE_PLAYER=0
  : >"$LOG"
  stand_in id 'echo "$UID_OF_THE_PLAYER"'
  stand_in apt-get 'echo "apt-get $*" >>"$LOG"; echo "Get:1 a package"'
  stand_in dpkg-query '
    code=0
    for package in "${@:4}"; do
      if [[ " $UNHEARD_OF " == *" $package "* ]]; then
        echo "dpkg-query: no packages found matching $package" >&2
        code=1
      elif [[ " $INSTALLED " == *" $package "* ]]; then
        echo "$package:installed"
      else
        echo "$package:not-installed"
      fi
    done
    exit $code'
}

# stand_in NAME BODY
stand_in() {
  printf '#!/bin/bash\n%s\n' "$2" >"$stand_ins/$1"
  chmod +x "$stand_ins/$1"
}

sudo_that_needs_no_password() {
  stand_in sudo '[ "$1" = -n ] && exit 0; echo "sudo $1" >>"$LOG"; exec "$@"'
}

# Its argument is the code that it ends with when it has asked: 0 for the right password, 1 for a wrong one.
sudo_that_asks_for_a_password() {
  stand_in sudo "[ \"\$1\" = -n ] && exit 1; echo \"sudo \$1\" >>\"\$LOG\"; [ \"\$1\" = -v ] && exit $1; exec \"\$@\""
}

# What the commands at the root do first, and something after it.
install() {
  PATH=$stand_ins bash "$(script_that_installs "$@")"
}

install_at_a_terminal() {
  SHELL=/bin/bash script -qec "PATH=$stand_ins bash $(script_that_installs "$@")" /dev/null
}

script_that_installs() {
  local file=$BATS_TEST_TMPDIR/install
  printf '%s\n' 'set -euo pipefail' "source '$root/packaging/packages.sh'" "install_missing $*" 'echo done' >"$file"
  echo "$file"
}

@test "none of the packages is installed: all are, from a fresh list" {
  run install cmake ninja-build
  [ "$status" -eq 0 ]
  [ "${lines[-1]}" = done ]
  [[ $output == *"cmake ninja-build"* ]]
  grep -q "^apt-get update" "$LOG"
  grep -q "^apt-get install .* cmake ninja-build$" "$LOG"
}

@test "some are installed: only the others are" {
  INSTALLED="cmake git" run install cmake ninja-build git
  [ "$status" -eq 0 ]
  grep -q "^apt-get install .* ninja-build$" "$LOG"
  run ! grep -qw cmake "$LOG"
}

@test "all are installed: nothing is run, nothing is said" {
  INSTALLED="cmake ninja-build" run install cmake ninja-build
  [ "$status" -eq 0 ]
  [ "$output" = done ]
  [ ! -s "$LOG" ]
}

@test "a package that was removed, its settings left behind, counts as missing" {
  stand_in dpkg-query 'echo "cmake:config-files"'
  run install cmake
  [ "$status" -eq 0 ]
  grep -q "^apt-get install .* cmake$" "$LOG"
}

@test "a package whose name begins another's is not taken for it" {
  stand_in dpkg-query 'echo "clang-format:installed"; exit 1'
  run install clang
  grep -q "^apt-get install .* clang$" "$LOG"
}

@test "a package that dpkg has never heard of counts as missing" {
  INSTALLED="cmake" UNHEARD_OF="qt6-base-dev" run install cmake qt6-base-dev
  [ "$status" -eq 0 ]
  grep -q "^apt-get install .* qt6-base-dev$" "$LOG"
}

@test "dpkg has heard of none of them: all are installed" {
  UNHEARD_OF="cmake qt6-base-dev" run install cmake qt6-base-dev
  [ "$status" -eq 0 ]
  grep -q "^apt-get install .* cmake qt6-base-dev$" "$LOG"
}

@test "no root and no sudo: the one line to run comes last, and the code is not 0" {
  UID_OF_THE_PLAYER=1000 INSTALLED="git" run install cmake git ninja-build
  [ "$status" -eq 1 ]
  [ "${lines[-1]}" = "apt-get update && apt-get install -y --no-install-recommends cmake ninja-build" ]
  [ ! -s "$LOG" ]
}

@test "sudo without a password: everything of apt-get's goes through it" {
  sudo_that_needs_no_password
  UID_OF_THE_PLAYER=1000 run install cmake
  [ "$status" -eq 0 ]
  [ "$(grep -c '^sudo' "$LOG")" -eq "$(grep -c '^apt-get' "$LOG")" ]
  grep -q "^apt-get install .* cmake$" "$LOG"
}

@test "sudo that asks for a password with nobody to ask: the one line to run" {
  sudo_that_asks_for_a_password 0
  UID_OF_THE_PLAYER=1000 run install cmake </dev/null
  [ "$status" -eq 1 ]
  [[ ${lines[-1]} == "apt-get update && "*" cmake" ]]
  [ ! -s "$LOG" ]
}

@test "sudo that asks for a password at a terminal: it is asked once, before anything is installed" {
  sudo_that_asks_for_a_password 0
  UID_OF_THE_PLAYER=1000 run install_at_a_terminal cmake
  [ "$status" -eq 0 ]
  [ "$(head -n 1 "$LOG")" = "sudo -v" ]
  [ "$(grep -c '^sudo -v' "$LOG")" -eq 1 ]
  grep -q "^apt-get install .* cmake$" "$LOG"
}

@test "a wrong password at a terminal: the one line to run" {
  sudo_that_asks_for_a_password 1
  UID_OF_THE_PLAYER=1000 run install_at_a_terminal cmake
  [ "$status" -eq 1 ]
  [[ $output == *"apt-get update && apt-get install"*" cmake"* ]]
  run ! grep -q "^apt-get" "$LOG"
}

@test "apt-get fails to install: its message is the last thing on the screen, its code is ours" {
  stand_in apt-get '[ "$1" = update ] && exit 0
    echo "Reading package lists..."
    echo "E: Unable to locate package cmake" >&2
    exit 100'
  run install cmake
  [ "$status" -eq 100 ]
  [ "${lines[-1]}" = "E: Unable to locate package cmake" ]
}

@test "apt-get fails to fetch its lists: its message is the last thing on the screen, nothing is installed" {
  stand_in apt-get 'echo "apt-get $*" >>"$LOG"; echo "E: The repository is not signed." >&2; exit 100'
  run install cmake
  [ "$status" -eq 100 ]
  [ "${lines[-1]}" = "E: The repository is not signed." ]
  run ! grep -q "^apt-get install" "$LOG"
}

@test "./jouer as a plain user without sudo names every package it needs, and builds nothing" {
  stand_in cmake 'echo "cmake $*" >>"$LOG"'
  UID_OF_THE_PLAYER=1000 PATH=$stand_ins run bash "$root/jouer"
  [ "$status" -eq 1 ]
  [[ ${lines[-1]} == *" build-essential cmake "*" qt6-base-dev "* ]]
  [ ! -s "$LOG" ]
}

@test "./tester as a plain user without sudo names every package it needs, and builds nothing" {
  stand_in cmake 'echo "cmake $*" >>"$LOG"'
  UID_OF_THE_PLAYER=1000 PATH=$stand_ins run bash "$root/tester"
  [ "$status" -eq 1 ]
  [[ ${lines[-1]} == *" libgtest-dev "* ]]
  [ ! -s "$LOG" ]
}

@test "./tester with a word that it does not know says how it is used" {
  PATH=$stand_ins run bash "$root/tester" --vite
  [ "$status" -eq 2 ]
  [ "$output" = "Usage : ./tester [--tout]" ]
}
