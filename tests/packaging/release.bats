# What an installation puts where, what desktops read of it, and the one number of the release.

bats_require_minimum_version 1.5.0

setup_file() {
  DESTDIR=$BATS_FILE_TMPDIR cmake --install "$ARDANE_BUILD" --prefix /usr >/dev/null
}

setup() {
  root=$(cd "$BATS_TEST_DIRNAME/../.." && pwd)
  there=$BATS_FILE_TMPDIR/usr
}

# configured RELEASE HEADING: configures a project of that release whose changelog has that heading first.
configured() {
  printf '# Changelog\n\n%s\n\n## 0.1.0, 2026-01-01\n' "$2" >CHANGELOG.md
  printf '%s\n' 'cmake_minimum_required(VERSION 3.25)' "project(p VERSION $1 LANGUAGES NONE)" \
    "include($root/cmake/release.cmake)" 'message(STATUS "of ${ARDANE_RELEASE_DATE}")' >CMakeLists.txt
  cmake -S . -B build 2>&1
}

@test "the program's folder looks as it does in the build, and what ships lies in share" {
  local name
  for name in aide images ardane.pts carte_ok.wav installation.txt; do
    [ -L "$there/lib/ardane/$name" ]
    [ "$(realpath "$there/lib/ardane/$name")" = "$there/share/ardane/$name" ]
    [ -e "$there/share/ardane/$name" ]
  done
  [ -f "$there/lib/ardane/ardane-son.so" ]
  [ -f "$there/lib/ardane/ardane-web.so" ]
  [ -f "$there/share/ardane/aide/contextes.txt" ]
  [ ! -e "$there/share/ardane/textes.txt" ]
}

@test "both programs are found under their names, and tell the release and the edition" {
  local release program
  release=$(sed -nE 's/^project\(ardane VERSION ([0-9.]+) .*/\1/p' "$root/CMakeLists.txt")
  for program in ardane ardane-pilote; do
    run "$there/bin/$program" --version
    [ "$status" -eq 0 ]
    [ "${lines[0]}" = "$program $release" ]
    [ "${lines[1]}" = "Version 1.00 du 24/02/2007" ]
  done
}

@test "what is installed writes nothing into its folder, not even for root" {
  local before
  before=$(find "$there" | sort)
  mkdir "$BATS_TEST_TMPDIR/parties"
  run "$there/bin/ardane-pilote" --dossier "$BATS_TEST_TMPDIR/parties" <"$root/packaging/debian/essai.pilote"
  [ "${lines[-1]}" = '{"attend":"fin","code":0}' ]
  [ -f "$BATS_TEST_TMPDIR/parties/Souper.CAI" ]
  [ "$(find "$there" | sort)" = "$before" ]
}

@test "the desktop's entry and the description for software centres are valid" {
  run desktop-file-validate "$there/share/applications/ardane.desktop"
  [ "$status" -eq 0 ]
  [ -z "$output" ]
  run appstreamcli validate --no-net "$there/share/metainfo/example.mirabonde.ardane.metainfo.xml"
  [ "$status" -eq 0 ]
}

@test "the desktop's entry opens the types that are defined" {
  local type
  for type in partie parametrage; do
    grep -q "^MimeType=.*application/x-ardane-$type;" "$there/share/applications/ardane.desktop"
    grep -q "<mime-type type=\"application/x-ardane-$type\">" "$there/share/mime/packages/ardane.xml"
  done
  python3 -c 'import sys, xml.dom.minidom; xml.dom.minidom.parse(sys.argv[1])' "$there/share/mime/packages/ardane.xml"
}

@test "every picture that the description shows lies in docs/pictures" {
  local picture
  for picture in $(grep -oE '[a-z]+\.png' "$root"/packaging/linux/*.metainfo.xml.in); do
    [ -f "$root/docs/pictures/$picture" ]
  done
}

@test "the program's sign comes in every size, and one that scales" {
  local size
  for size in 16 24 32 48 64 128 256; do
    [ -f "$there/share/icons/hicolor/${size}x$size/apps/ardane.png" ]
  done
  [ -f "$there/share/icons/hicolor/scalable/apps/ardane.svg" ]
}

@test "a changelog that begins with the release gives its day" {
  cd "$BATS_TEST_TMPDIR"
  run configured 9.8.7 "## 9.8.7, 2031-12-24"
  [ "$status" -eq 0 ]
  [[ $output == *"of 2031-12-24"* ]]
}

@test "a changelog that begins otherwise is refused" {
  cd "$BATS_TEST_TMPDIR"
  local heading
  for heading in "## 9.8.6, 2031-12-24" "## 9.8.7" "## 9.8.7, demain" "## 9.8.70, 2031-12-24"; do
    run configured 9.8.7 "$heading"
    [ "$status" -ne 0 ]
    [[ $output == *'must begin with "## 9.8.7, YEAR-MONTH-DAY"'* ]]
  done
}
