#!/usr/bin/env bash
# Builds the fuzz targets with clang's libFuzzer and runs each for SECONDS (default 60), one after
# the other. Findings (crash-*, leak-*, timeout-*) and logs land in build-fuzz/.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
. scripts/setup.sh
lw_install_packages clang libclang-rt-dev

out=build-fuzz
mkdir -p "$out/corpus-track" "$out/corpus-settings"
flags=(-std=c++20 -O1 -g -fsanitize=fuzzer,address,undefined -fno-sanitize-recover=undefined -Isrc/core)
core=(src/core/*.cpp)

clang++ "${flags[@]}" bench/fuzz/FuzzTrackReader.cpp "${core[@]}" -o "$out/fuzz-track-reader"
clang++ "${flags[@]}" bench/fuzz/FuzzSettings.cpp "${core[@]}" -o "$out/fuzz-settings"

# Seeds: small demo tracks, and a settings file in the editor's own layout.
clang++ -std=c++20 -O1 -Isrc/core -Itools/demo bench/fuzz/make-seeds.cpp tools/demo/*.cpp "${core[@]}" \
  -o "$out/make-seeds"
"$out/make-seeds" "$out/corpus-track"
printf ';CorvantaLandwright\r\n\r\n[General]\r\nAskImportOverwrite=0\r\nWaterTrans=0.75\r\nRmbrViews=True\r\n[Colors]\r\nCR0=0.5\r\n[Recents]\r\nRF0=/tracks/a.cvtrack\r\n' \
  >"$out/corpus-settings/seed.ini"

run() {
  local name=$1 corpus=$2
  echo "== $name for $seconds s"
  (cd "$out" && "./$name" -max_total_time="$seconds" -print_final_stats=1 -artifact_prefix="$name-" \
    "$corpus" 2>&1 | tee "$name.log" | grep -E 'stat::|ERROR|SUMMARY|Done' || true)
}
run fuzz-track-reader corpus-track
run fuzz-settings corpus-settings
