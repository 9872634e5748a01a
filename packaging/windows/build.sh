#!/usr/bin/env bash
# Builds everything for Windows: Qt once, the program, the zip and the installer. What comes out lies in
# build/windows/paquets/. Packages that are missing are installed first.
set -euo pipefail
source "$(dirname "$0")/common.sh"
cd "$project"
source packaging/build.sh

install_missing $packages_for_windows
"$windows_folder/qt.sh"
build windows

version=$(sed -nE 's/^project\(ardane VERSION ([0-9.]+).*/\1/p' CMakeLists.txt)
folder=build/windows/programme-a-livrer
packages=build/windows/paquets
rm -rf "$folder" "$packages"
mkdir -p "$folder"/{plugins/{platforms,imageformats,styles,tls},translations,licences} "$packages"
cmake --install build/windows --prefix "$folder" --strip >/dev/null

# What the program runs on. Qt stays beside it as libraries that a player may replace.
cp "$qt_folder"/bin/Qt6{Core,Gui,Widgets,Network}.dll "$folder/"
for plugin in platforms/qwindows imageformats/qgif imageformats/qjpeg styles/qwindowsvistastyle tls/qschannelbackend; do
  cp "$qt_folder/plugins/$plugin.dll" "$folder/plugins/$(dirname $plugin)/"
done
cp /usr/share/qt6/translations/qtbase_fr.qm "$folder/translations/"
for library in libgcc_s_seh-1 libstdc++-6 libwinpthread-1; do
  cp "$(x86_64-w64-mingw32-g++-posix -print-file-name=$library.dll)" "$folder/"
done
x86_64-w64-mingw32-strip "$folder"/lib*.dll
printf '[Paths]\r\nPrefix = .\r\n' >"$folder/qt.conf"

# The notices of what is in there.
cp -r "$qt_folder/notices" "$folder/licences/qt"
cp /usr/share/doc/gcc-mingw-w64-base/copyright "$folder/licences/gcc.txt"
cp /usr/share/doc/mingw-w64-common/copyright "$folder/licences/mingw-w64.txt"
cp /usr/share/doc/nlohmann-json3-dev/copyright "$folder/licences/nlohmann-json.txt"
cp /usr/share/common-licenses/GPL-3 "$folder/licences/GPL-3.txt"
mv "$folder/licences/qt/copyright" "$folder/licences/qt/copyright.txt"
sed "s/@QT@/$(cat "$qt_folder/version")/" "$windows_folder/LISEZ-MOI.txt.in" | sed 's/$/\r/' >"$folder/licences/LISEZ-MOI.txt"

name=ardane-$version-windows
ln -sfn programme-a-livrer "build/windows/$name"
rm -f "$packages/$name.zip"
(cd build/windows && zip -q -9 -X -r "paquets/$name.zip" "$name/")
rm "build/windows/$name"

"$windows_folder/installed_files.sh" "$PWD/$folder" build/windows
makensis -V2 -INPUTCHARSET UTF8 -DVERSION="$version" -DFOLDER="$PWD/$folder" -DLISTS="$PWD/build/windows" \
  -DSIGN="$PWD/build/windows/ardane.ico" -DOUTPUT="$PWD/$packages/ardane-$version-installation.exe" \
  "$windows_folder/installer.nsi"

ls -l "$packages"
