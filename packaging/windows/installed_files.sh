#!/usr/bin/env bash
# Writes what the installer puts and what the uninstaller takes away, file by file: installed_files.sh FOLDER LISTS
# What a player has put into the folder himself is on no list and stays.
set -euo pipefail
folder=$1
lists=$2
backslashes() { tr / '\\'; }

(cd "$folder" && find . -mindepth 1 -type f -printf '%P\n' | LC_ALL=C sort) >"$lists/files.txt"
(cd "$folder" && find . -mindepth 1 -type d -printf '%P\n' | LC_ALL=C sort) >"$lists/folders.txt"
previous=none
while IFS= read -r file; do
  in=$(dirname "$file")
  if [ "$in" != "$previous" ]; then
    [ "$in" = . ] && echo 'SetOutPath "$INSTDIR"' || printf 'SetOutPath "$INSTDIR\\%s"\n' "$(backslashes <<<"$in")"
    previous=$in
  fi
  printf 'File "%s/%s"\n' "$folder" "$file"
done <"$lists/files.txt" >"$lists/install.nsh"
{
  while IFS= read -r file; do printf 'Delete "$INSTDIR\\%s"\n' "$(backslashes <<<"$file")"; done <"$lists/files.txt"
  LC_ALL=C sort -r "$lists/folders.txt" | while IFS= read -r in; do
    printf 'RMDir "$INSTDIR\\%s"\n' "$(backslashes <<<"$in")"
  done
} >"$lists/uninstall.nsh"
