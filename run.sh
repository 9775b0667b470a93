#!/usr/bin/env bash
# Installs what is missing, builds the editor, and starts CorvantaLandwright on TRACK (default:
# the demo track). TRACK may be relative to the folder you run this from. Without a display the
# editor runs under a virtual X server and saves a screenshot of its window to
# build/screenshot.png instead; a message box it shows on the way is pictured beside it
# (screenshot-box1.png, ...) and answered by its default.
#
# LANDWRIGHT_BUILD names another build folder (relative to the repository); an existing one is
# built as it was configured.
set -euo pipefail
here=$PWD
cd "$(dirname "$0")"
. scripts/setup.sh

track=${1:-}
if [ -n "$track" ]; then
  case $track in
    /*) ;;
    *) track=$here/$track ;;
  esac
  if [ ! -f "$track" ]; then
    echo "run.sh: no track file $1 (looked for $track)" >&2
    exit 2
  fi
fi

build=${LANDWRIGHT_BUILD:-build}
lw_install_packages "${LW_PACKAGES[@]}"
if [ ! -f "$build/build.ninja" ]; then
  cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
fi
# The editor and what it opens beside it: the demo tracks, the textures and the manual.
cmake --build "$build" --parallel "$(nproc)" --target CorvantaLandwright demo_tracks textures help_pages

track=${track:-$build/bin/tracks/Demo.cvtrack}
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec "$build/bin/CorvantaLandwright" "$track"
fi
shot=$build/screenshot.png
rm -f "$shot" "$build"/screenshot-box*.png
status=0
xvfb-run -a -s "-screen 0 1280x1024x24" "$build/bin/CorvantaLandwright" "$track" --screenshot "$shot" || status=$?
if [ ! -f "$shot" ]; then
  echo "run.sh: the editor ended with status $status and left no picture" >&2
  exit $((status == 0 ? 1 : status))
fi
echo "No display: the editor ran under Xvfb; its window is pictured in $shot"
for box in "$build"/screenshot-box*.png; do
  [ -f "$box" ] && echo "A message box it showed is pictured in $box"
done
exit "$status"
