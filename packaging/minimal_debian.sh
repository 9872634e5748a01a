# A minimal Debian 12 in a folder, to try things in where nothing is installed. Sourced, not run.

source "$(dirname "${BASH_SOURCE[0]}")/packages.sh"

# own_mounts SCRIPT ARGUMENT...: starts the script again with mounts of its own, which go with it however it ends.
own_mounts() {
  [ "$(id -u)" -eq 0 ] || { echo "À lancer en tant que root." >&2; exit 2; }
  [ -n "${ARDANE_MOUNTS:-}" ] || exec env ARDANE_MOUNTS=own unshare --mount --propagation private "$@"
}

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

tell_figures() {
  say "Durées"
  printf '%s\n' "${figures[@]}"
}

# The mirror that this machine's own sources name first.
mirror() {
  sed -nE 's/^URIs: *([^ ]+).*/\1/p; s/^deb (\[[^]]*\] )?([^ ]+) .*/\2/p' \
    $(ls /etc/apt/sources.list /etc/apt/sources.list.d/{debian.sources,*.list} 2>/dev/null) | head -n 1
}

# make_debian FOLDER: with this machine's own sources of packages.
make_debian() {
  mkdir -p "$(dirname "$1")"
  with_progress '^I:' debootstrap --variant=minbase bookworm "$1" "$(mirror)"
  rm -f "$1"/etc/apt/sources.list
  cp -a /etc/apt/. "$1/etc/apt/"
  cp /etc/resolv.conf /etc/hosts "$1/etc/"
}

# start_debian FOLDER USER: what a kernel gives, and the user.
start_debian() {
  mount -t proc proc "$1/proc"
  mount --rbind /dev "$1/dev"
  [ "$2" = root ] || chroot "$1" useradd --create-home --shell /bin/bash "$2"
}

home_of() { if [ "$1" = root ]; then echo /root; else echo "/home/$1"; fi; }

# enter FOLDER USER COMMAND: at home, with an environment of nothing but what a login has.
enter() {
  local home
  home=$(home_of "$2")
  env -i PATH="$PATH" chroot "$1" su "$2" -s /bin/bash -c \
    "export HOME=$home PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin:/usr/games; cd $home && $3"
}
