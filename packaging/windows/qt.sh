#!/usr/bin/env bash
# Builds Qt for Windows from Debian's source of the Qt that is installed, once, into the cache (common.sh).
set -euo pipefail
source "$(dirname "$0")/common.sh"

version=$(dpkg-query -W -f '${source:Version}' qt6-base-dev)
if [ "$(cat "$qt_folder/version" 2>/dev/null)" = "$version" ]; then exit; fi

# What the game does not use. Everything from outside is the copy that Qt brings along.
off=(sql dbus testlib concurrent xml printsupport icu glib zstd brotli vulkan tabletevent openssl cups
  system_zlib system_pcre2 system_png system_jpeg system_freetype system_harfbuzz system_doubleconversion
  system_libb2 system_textmarkdownreader system_proxies)
# What draws is Qt's own raster engine.
options=(-DFEATURE_opengl=OFF -DINPUT_opengl=no -DINPUT_openssl=no -DFEATURE_schannel=ON)
for feature in "${off[@]}"; do options+=("-DFEATURE_$feature=OFF"); done

# What Qt contains of others, by the folders of its source.
contained=(blake2 double-conversion easing freetype harfbuzz-ng icc libpng md4 md4c md5 pcre2 pixman rfc6234 sha1 sha3
  tinycbor zlib)

source_folder=$cache/qt-source
build_folder=$cache/qt-build
"$windows_folder/debian_source.sh" qt6-base-dev "$source_folder"
rm -rf "$build_folder" "$qt_folder"
cmake -S "$source_folder" -B "$build_folder" -G Ninja \
  -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DQT_QMAKE_TARGET_MKSPEC=win32-g++ \
  -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE="-O2 -DNDEBUG" -DCMAKE_C_FLAGS_RELEASE="-O2 -DNDEBUG" \
  -DCMAKE_INSTALL_PREFIX="$qt_folder" -DBUILD_SHARED_LIBS=ON \
  -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="/usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)/cmake" \
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF "${options[@]}"
# What ships, and nothing else of the libraries.
targets=(Core Gui Widgets Network EntryPointImplementation
  QWindowsIntegrationPlugin QGifPlugin QWindowsVistaStylePlugin QSchannelBackendPlugin)
with_progress '^\[[0-9]+/[0-9]+\] ' cmake --build "$build_folder" --parallel "$jobs" --target "${targets[@]}"
for folder in . src src/corelib src/gui src/widgets src/network src/entrypoint \
  src/plugins/platforms/windows src/plugins/imageformats/gif src/plugins/styles/windowsvista src/plugins/tls/schannel; do
  cmake -DCMAKE_INSTALL_LOCAL_ONLY=1 -DCMAKE_INSTALL_DO_STRIP=1 -P "$build_folder/$folder/cmake_install.cmake"
done >"$build_folder/install.log"
# The licences go with the libraries, and so do those of what they contain.
mkdir -p "$qt_folder/notices/contenus"
cp "$source_folder/debian/copyright" "$source_folder"/LICENSES/{LGPL-3.0-only,GPL-3.0-only}.txt "$qt_folder/notices/"
for part in "${contained[@]}"; do
  for text in "$source_folder/src/3rdparty/$part"/{LICENSE,LICENSE.txt,LICENCE,COPYING,COPYRIGHT,FTL.TXT}; do
    [ ! -f "$text" ] || cp "$text" "$qt_folder/notices/contenus/$part-$(basename "$text" .txt).txt"
  done
done
rm -rf "$build_folder" "$source_folder"
echo "$version" >"$qt_folder/version"
