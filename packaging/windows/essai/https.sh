#!/usr/bin/env bash
# Looks for newer versions by Windows' own TLS, without the Internet: https.sh FOLDER PROGRAM_FOLDER
# Called by essai.sh. Runs https.py in a network and a file system in which the publisher's site is this machine, and
# the only authority that wine trusts is one of the trial's own.
set -euo pipefail
folder=$1
program=$2
here=$(dirname "$(realpath "$0")")
site=www.mirabonde.example

if [ $# -eq 2 ]; then
  wineserver -k || true # it makes the sockets of all, in the network that it was started in
  exec unshare --map-root-user --mount --net "$0" "$folder" "$program" "$(id -u)" "$(id -g)"
fi

keys=$folder/https
rm -rf "$keys"
mkdir -p "$keys"
# authority NAME, certificate NAME HOST AUTHORITY
authority() {
  openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj "/CN=$1" -keyout "$keys/$1.key" -out "$keys/$1.pem" 2>/dev/null
}
certificate() {
  openssl req -x509 -newkey rsa:2048 -nodes -days 2 -subj "/CN=$2" -addext "subjectAltName=DNS:$2" \
    -addext basicConstraints=critical,CA:FALSE -CA "$keys/$3.pem" -CAkey "$keys/$3.key" \
    -keyout "$keys/$1.key" -out "$keys/$1.pem" 2>/dev/null
}
authority connue
authority inconnue
certificate bon "$site" connue
certificate étranger "$site" inconnue
certificate ailleurs ailleurs.example connue

mount -t tmpfs none /etc/ssl/certs
cp "$keys/connue.pem" /etc/ssl/certs/ca-certificates.crt
echo "127.0.0.1 localhost $site" >"$keys/hosts"
echo 'hosts: files' >"$keys/nsswitch.conf"
for file in hosts nsswitch.conf; do mount --bind "$keys/$file" "/etc/$file"; done
ip link set lo up
echo 0 >/proc/sys/net/ipv4/ip_unprivileged_port_start
# Wine wants its folder to be its user's own.
exec unshare --map-user="$3" --map-group="$4" python3 "$here/https.py" "$program" "$keys" "$folder/images/https"
