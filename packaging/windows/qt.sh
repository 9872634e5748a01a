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
# The libraries, and of the plugins those that ship.
plugins=(platforms/windows:QWindowsIntegrationPlugin imageformats/gif:QGifPlugin
  imageformats/jpeg:QJpegPlugin styles/windowsvista:QWindowsVistaStylePlugin tls/schannel:QSchannelBackendPlugin)
with_progress '^\[[0-9]+/[0-9]+\] ' cmake --build "$build_folder" --parallel "$jobs" \
  --target Core Gui Widgets Network EntryPointImplementation DeviceDiscoverySupportPrivate FbSupportPrivate "${plugins[@]#*:}"
cd "$build_folder"
mapfile -t parts < <(find . -name cmake_install.cmake -not -path './src/plugins/*' -not -path './config.tests/*')
for plugin in "${plugins[@]%:*}"; do parts+=("src/plugins/$plugin/cmake_install.cmake"); done
for part in "${parts[@]}"; do
  cmake -DCMAKE_INSTALL_LOCAL_ONLY=1 -DCMAKE_INSTALL_DO_STRIP=1 -P "$part"
done >"$build_folder/install.log"
cd "$project"

"$windows_folder/qt_notices.sh" "$source_folder" "$qt_folder/notices"
rm -rf "$build_folder" "$source_folder"
echo "$version" >"$qt_folder/version"
