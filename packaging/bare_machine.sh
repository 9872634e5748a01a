#!/usr/bin/env bash
# Tries ./jouer and ./tester where nothing is installed: in a minimal Debian 12 made in a folder, as root, and in a
# second one as a plain user without sudo, who must get the one line to run. Prints what each took. To be run as
# root, before each release and whenever packages change:
#   packaging/bare_machine.sh FOLDER [COMMIT] [TESTER OPTION...]
# FOLDER must not exist; it takes about 8 GB and can be deleted afterwards.
set -euo pipefail
[ $# -ge 1 ] || { sed -n '2,6s/^# \{0,1\}//p' "$0" >&2; exit 2; }
folder=$(realpath -m "$1")
commit=${2:-HEAD}
shift $(($# < 2 ? $# : 2))
cd "$(dirname "$0")/.."
source packaging/minimal_debian.sh

[ ! -e "$folder" ] || { echo "$folder existe déjà." >&2; exit 2; }
own_mounts "$0" "$folder" "$commit" "$@"
install_missing $packages_for_a_bare_machine

make_machines() {
  make_debian "$folder/root"
  cp -a "$folder/root" "$folder/user"
}

# prepare MACHINE USER: the machine started, and the clone in it.
prepare() {
  local root=$folder/$1 user=$2 home
  home=$(home_of "$user")
  start_debian "$root" "$user"
  git clone -q . "$root$home/ardane"
  git -C "$root$home/ardane" checkout -q --detach "$(git rev-parse "$commit")"
  chroot "$root" chown -R "$user:" "$home/ardane"
}

# in_clone MACHINE USER COMMAND
in_clone() { enter "$folder/$1" "$2" "cd ardane && $3"; }

# The last line that a command writes when it fails, as it must here.
refusal() {
  local output
  if output=$(in_clone user ardan "$1" 2>&1); then
    echo "$1 aurait dû s'arrêter : il manque des paquets." >&2
    exit 1
  fi
  tail -n 1 <<<"$output"
}

# A plain user gets one line; once root has run it the command must work.
follow_the_line() {
  local line
  line=$(refusal "$1")
  echo "$1 : $line"
  [[ $line == "apt-get update && apt-get install "* ]] || { echo "Ce n'est pas la ligne attendue." >&2; exit 1; }
  DEBIAN_FRONTEND=noninteractive with_progress . chroot "$folder/user" bash -c "$line"
}

timed "Une Debian minimale" make_machines
prepare root root
timed "./jouer, root, paquets compris" in_clone root root ./jouer
timed "./jouer, root, la deuxième fois" in_clone root root ./jouer
timed "./tester $*, root, paquets compris" in_clone root root "./tester $*"
timed "./tester $*, root, la deuxième fois" in_clone root root "./tester $*"
prepare user ardan
timed "La ligne de ./jouer" follow_the_line ./jouer
timed "./jouer, simple utilisateur" in_clone user ardan ./jouer
timed "La ligne de ./tester" follow_the_line ./tester
timed "./tester $*, simple utilisateur" in_clone user ardan "./tester $*"

tell_figures
