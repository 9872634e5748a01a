#!/bin/sh
# The desktop rows of the table of speeds, on virtual displays: of 1280 x 1024, of 800 x 600 for scrolling, and of
# 1920 x 1080 and 3840 x 2160 for the real window at its scales.
#
#     bench/desktop.sh BUILD_FOLDER
set -eu
programs=$(cd "$1/programme" && pwd)
on_display() {
  size=$1
  shift
  xvfb-run -a -s "-screen 0 ${size}x24 -nolisten tcp" "$@"
}
start() {
  size=$1
  shift
  on_display $size "$programs/desktop_start" "$programs/desktop_empty_window" "$programs/ardane" "$@" 2>/dev/null
}
start 1280x1024 --sans-cadre
start 1280x1024
start 1920x1080 --echelle 1.5
start 3840x2160 --echelle 2
on_display 1280x1024 "$programs/desktop_figures"
for scale in 1 1.4; do on_display 1920x1080 "$programs/window_figures" $scale; done
for scale in 1.5 2 3; do on_display 3840x2160 "$programs/window_figures" $scale; done
on_display 800x600 "$programs/desktop_figures" | grep scroll
