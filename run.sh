#!/usr/bin/env bash
# Installs what is missing, builds, and runs CorvantaLandwright on TRACK (default: the demo track).
# Until the editor window lands this prints the track's summary with landwright-cli.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/setup.sh

lw_install_packages "${LW_PACKAGES[@]}"
lw_build build -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null

track=${1:-build/bin/tracks/Demo.cvtrack}
exec build/bin/landwright-cli info "$track"
