#!/usr/bin/env bash
# Copies the licences of Qt, and of what it contains of others: qt_notices.sh SOURCE FOLDER, called by qt.sh.
set -euo pipefail
source_folder=$1
notices=$2

# The folders of Qt's source that are in what ships; each tells in "qt_attribution.json" whose work it is.
contained=(3rdparty/{blake2,double-conversion,easing,freetype,harfbuzz-ng,icc,libjpeg,libpng,libpsl,md4,md4c,md5}
  3rdparty/{pcre2,pixman,rfc6234,sha1,sha3,tinycbor,zlib} corelib/{text,tools} gui/{painting,text} network/kernel)

rm -rf "$notices"
mkdir -p "$notices/contenus"
cp "$source_folder/debian/copyright" "$source_folder"/LICENSES/{LGPL-3.0-only,GPL-3.0-only}.txt "$notices/"
for part in "${contained[@]}"; do
  folder=$source_folder/src/$part
  name=$notices/contenus/${part//\//-}
  cp "$folder/qt_attribution.json" "$name.json"
  for text in $(sed -nE 's/.*"LicenseFiles?"://p' "$folder/qt_attribution.json" | tr '[],"' ' '); do
    cp "$folder/$text" "$name-$(basename "$text" .txt).txt"
  done
done
