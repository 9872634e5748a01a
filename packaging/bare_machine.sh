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
source packaging/packages.sh

[ "$(id -u)" -eq 0 ] || { echo "À lancer en tant que root." >&2; exit 2; }
[ ! -e "$folder" ] || { echo "$folder existe déjà." >&2; exit 2; }
# What is mounted below goes with this process, however it ends.
[ -n "${ARDANE_MOUNTS:-}" ] || exec env ARDANE_MOUNTS=own unshare --mount --propagation private "$0" "$folder" "$commit" "$@"
install_missing $packages_for_a_bare_machine

say() { printf '\n## %s\n' "$*"; }

# timed NAME COMMAND...: notes how long the command took.
timed() {
  local name=$1 start=$SECONDS
  shift
  say "$name"
  "$@"
  figures+=("$(printf '%4d s  %s' $((SECONDS - start)) "$name")")
}
figures=()

# The mirror that this machine's own sources name first.
mirror() {
  sed -nE 's/^URIs: *([^ ]+).*/\1/p; s/^deb (\[[^]]*\] )?([^ ]+) .*/\2/p' \
    $(ls /etc/apt/sources.list /etc/apt/sources.list.d/{debian.sources,*.list} 2>/dev/null) | head -n 1
}

make_debian() {
  mkdir -p "$folder"
  with_progress '^I:' debootstrap --variant=minbase bookworm "$folder/root" "$(mirror)"
  rm -f "$folder"/root/etc/apt/sources.list
  cp -a /etc/apt/. "$folder/root/etc/apt/"
  cp /etc/resolv.conf /etc/hosts "$folder/root/etc/"
  cp -a "$folder/root" "$folder/user"
}

# enter MACHINE USER COMMAND: in the clone, with an environment of nothing but what a login has.
enter() {
  local root=$folder/$1 user=$2 home=/root
  [ "$user" = root ] || home=/home/$user
  env -i PATH="$PATH" chroot "$root" su "$user" -s /bin/bash -c \
    "export HOME=$home PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin; cd $home/ardane && $3"
}

# prepare MACHINE USER: what a kernel gives, the user, and the clone.
prepare() {
  local root=$folder/$1 user=$2 home=/root
  mount -t proc proc "$root/proc"
  mount --rbind /dev "$root/dev"
  if [ "$user" != root ]; then
    home=/home/$user
    chroot "$root" useradd --create-home --shell /bin/bash "$user"
  fi
  git clone -q . "$root$home/ardane"
  git -C "$root$home/ardane" checkout -q --detach "$(git rev-parse "$commit")"
  chroot "$root" chown -R "$user:" "$home/ardane"
}

# The last line that a command writes when it fails, as it must here.
refusal() {
  local output
  if output=$(enter user ardan "$1" 2>&1); then
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

timed "Une Debian minimale" make_debian
prepare root root
timed "./jouer, root, paquets compris" enter root root ./jouer
timed "./jouer, root, la deuxième fois" enter root root ./jouer
timed "./tester $*, root, paquets compris" enter root root "./tester $*"
timed "./tester $*, root, la deuxième fois" enter root root "./tester $*"
prepare user ardan
timed "La ligne de ./jouer" follow_the_line ./jouer
timed "./jouer, simple utilisateur" enter user ardan ./jouer
timed "La ligne de ./tester" follow_the_line ./tester
timed "./tester $*, simple utilisateur" enter user ardan "./tester $*"

say "Durées"
printf '%s\n' "${figures[@]}"
