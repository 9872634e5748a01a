#!/usr/bin/env bash
# Unpacks the source of an installed Debian package, as Debian patched it and in the very version that is installed:
#   packaging/windows/debian_source.sh PACKAGE FOLDER
# Nothing of the machine's own apt is changed: the archives it takes packages from are asked for sources in an apt of
# this script's own. No root is needed.
set -euo pipefail
[ $# -eq 2 ] || { sed -n '2,3s/^# \{0,1\}//p' "$0" >&2; exit 2; }
package=$1
folder=$(realpath -m "$2")

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$scratch"/{lists/partial,archives/partial,parts}
apt-get indextargets "Created-By: Packages" "Origin: Debian" --format \
  'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $(REPO_URI) $(RELEASE) $(COMPONENT)' |
  sort -u >"$scratch/sources.list"
[ -s "$scratch/sources.list" ] || { echo "apt ne connaît aucune archive de Debian : apt-get update ?" >&2; exit 1; }
options=(-q -o "Dir::Etc::SourceList=$scratch/sources.list" -o "Dir::Etc::SourceParts=$scratch/parts"
  -o "Dir::State::Lists=$scratch/lists" -o "Dir::Cache=$scratch" -o "Dir::Cache::Archives=$scratch/archives"
  -o "APT::Sandbox::User=$(id -un)")

name=$(dpkg-query -W -f '${source:Package}' "$package")
version=$(dpkg-query -W -f '${source:Version}' "$package")
apt-get "${options[@]}" update
mkdir "$scratch/source"
cd "$scratch/source"
apt-get "${options[@]}" source "$name=$version"
rm -rf "$folder"
mkdir -p "$(dirname "$folder")"
mv "$scratch"/source/*/ "$folder"
