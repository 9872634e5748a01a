#!/usr/bin/env bash
# Installs the program under wine, plays it and takes it away: desktop.sh FOLDER INSTALLER, called by essai.sh.
set -euo pipefail
folder=$1
installer=$2
here=$(dirname "$(realpath "$0")")
home=$WINEPREFIX/drive_c/users/$(id -un)
program=$home/AppData/Local/Programs/Ardane
lifeline=$home/AppData/Local/mirabonde
key='HKEY_CURRENT_USER\Software\Mirabonde\Ardane'
uninstall='HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\Uninstall\Ardane'
pictures=$folder/images
rm -rf "$pictures"
mkdir -p "$pictures"

fail() {
  echo "$*" >&2
  exit 1
}

# As if nobody had ever played here.
wine reg delete 'HKEY_CURRENT_USER\Software\Mirabonde' /f >/dev/null 2>&1 || true
rm -rf "$program" "$lifeline" "$home"/Documents/{ARDANE.*,*.CAI}

wine "$installer" /S /CurrentUser
wineserver -w
[ -f "$program/ardane.exe" ] || fail "Rien n'est installé dans $program."
wine reg query "$uninstall" | tr -d '\r'
wine "$program/ardane.exe" --version | tr -d '\r'

python3 "$here/play.py" "$program" "$lifeline" "$pictures"

wine reg query "$key" | tr -d '\r'
wine reg query "$key" | grep -q 'Documents' || fail "Le dossier des parties n'est pas dans la base de registre."

before=$(find "$program" -type f | wc -l)
wine "$program/desinstaller.exe" /CurrentUser /S
for _ in $(seq 60); do
  [ -e "$program" ] || break
  sleep 1
done
[ ! -e "$program" ] || fail "Il reste quelque chose dans $program."
[ -f "$home/Documents/ARDANE.SCI" ] || fail "Les scores du joueur ont disparu."
wine reg query "$key" >/dev/null || fail "Les réglages du joueur ont disparu."
! wine reg query "$uninstall" >/dev/null 2>&1 || fail "Le programme se dit encore installé."
echo "Désinstallé : $before fichiers retirés, ceux du joueur sont restés."
