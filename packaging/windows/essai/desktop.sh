#!/usr/bin/env bash
# Installs the program under wine, plays it and takes it away, for the player alone and for everybody:
#   desktop.sh FOLDER INSTALLER
# Called by essai.sh.
set -euo pipefail
folder=$1
installer=$2
here=$(dirname "$(realpath "$0")")
drive=$WINEPREFIX/drive_c
home=$drive/users/$(id -un)
lifeline=$home/AppData/Local/mirabonde
key='HKEY_CURRENT_USER\Software\Mirabonde\Ardane'
pictures=$folder/images
rm -rf "$pictures"

fail() {
  echo "$*" >&2
  exit 1
}

# Every file, folder with its "/", key and value of the registry, a line each; what Windows itself leaves behind is left
# out.
listed() {
  (cd "$drive" && find . -path ./windows -prune -o -path '*/Temp/*' -o -type d -printf '%p/\n' -o -print)
  local root
  for root in HKEY_CURRENT_USER HKEY_LOCAL_MACHINE; do
    wine reg export "$root\\Software" "$folder/registre" /y >/dev/null
    iconv -f UTF-16 -t UTF-8 "$folder/registre" | tr -d '\r' | awk '/^\[/ { key = $0 } { print key $0 }'
  done
}
list() { listed | LC_ALL=C sort -u >"$folder/$1"; }
# What is new since the list of that name and is not the player's. Keys without a value and folders come with the first
# program that asks Windows for them, and stay: of those only ours count.
left_since() {
  list now
  LC_ALL=C comm -13 "$folder/$1" "$folder/now" |
    grep -vE 'mirabonde|\\Software\\Mirabonde|/Documents/(ARDANE\.|.*\.CAI$)' |
    grep -E 'rdane|[^]/]$' || true
}

# install HOW ROOT PROGRAM: silently, for CurrentUser or AllUsers, whose settings are below ROOT.
install() {
  wine "$installer" /S "/$1"
  wineserver -w
  [ -f "$3/ardane.exe" ] || fail "Rien n'est installé dans $3."
  wine reg query "$2\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Ardane" | tr -d '\r'
  wine "$3/ardane.exe" --version | tr -d '\r'
}

# By the command that Windows is told.
uninstall() {
  wine reg query "$1\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Ardane" /v QuietUninstallString |
    tr -d '\r' | sed -n 's/.*REG_SZ *//p' | xargs wine
  wineserver -w
}

# As if nobody had ever played here.
wine reg delete 'HKEY_CURRENT_USER\Software\Mirabonde' /f >/dev/null 2>&1 || true
rm -rf "$drive"/users/*/AppData/Local/{Programs/Ardane,mirabonde} "$home"/Documents/{ARDANE.*,*.CAI}

list before
program=$home/AppData/Local/Programs/Ardane
install CurrentUser HKEY_CURRENT_USER "$program"
python3 "$here/play.py" parties "$program" "$lifeline" "$home/Documents" "$pictures/parties"
wine reg query "$key" | tr -d '\r'
wine reg query "$key" | grep -q 'Documents' || fail "Le dossier des parties n'est pas dans la base de registre."
list played
uninstall HKEY_CURRENT_USER
left=$(left_since before)
[ -z "$left" ] || fail "Il reste : $left"
[ -f "$home/Documents/Souper.CAI" ] || fail "La partie du joueur a disparu."
wine reg query "$key" >/dev/null || fail "Les réglages du joueur ont disparu."
echo "Désinstallé : $(LC_ALL=C comm -13 "$folder/now" "$folder/played" | wc -l) fichiers, clés et valeurs de moins."

# The kinds of files are tried here: this wine heeds those registered for everybody alone.
program="$drive/Program Files/Ardane"
install AllUsers HKEY_LOCAL_MACHINE "$program"
python3 "$here/play.py" doubles-clics "$program" "$lifeline" "$home/Documents" "$pictures/doubles-clics"
uninstall HKEY_LOCAL_MACHINE
left=$(left_since before)
[ -z "$left" ] || fail "Il reste de l'installation pour tous : $left"
[ -f "$home/Documents/ARDANE.SCI" ] || fail "Les scores du joueur ont disparu."
echo "Installé pour tous, et désinstallé."
