#!/bin/sh
# The desktop rows of the table of speeds, on a virtual display of 1280 x 1024 and, for scrolling, of 800 x 600.
#
#     bench/desktop.sh BUILD_FOLDER
set -eu
programs=$(cd "$1/programme" && pwd)
on_display() {
  size=$1
  shift
  xvfb-run -a -s "-screen 0 ${size}x24 -nolisten tcp" "$@"
}
on_display 1280x1024 "$programs/desktop_start" "$programs/desktop_empty_window" "$programs/ardane"
on_display 1280x1024 "$programs/desktop_figures"
on_display 800x600 "$programs/desktop_figures" | grep scroll
