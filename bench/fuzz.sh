#!/usr/bin/env bash
# Builds the fuzz targets through CMake with clang's libFuzzer (build-fuzz/) and runs each for
# SECONDS (default 60), one after the other; names after SECONDS run only those targets. Findings
# (crash-*, leak-*, timeout-*, oom-*) and logs land in build-fuzz/fuzz/. Exits non-zero when a
# fuzzer found something or could not run.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
shift || true
wanted=" $* "
. scripts/setup.sh
lw_install_packages clang libclang-rt-dev cmake ninja-build

out=build-fuzz
CC=clang CXX=clang++ cmake -S . -B "$out" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DLW_FUZZ=ON >/dev/null
cmake --build "$out" --parallel "$(nproc)" --target fuzz-track-reader fuzz-settings fuzz-terrain-file fuzz-targa \
  fuzz-terragen fuzz-bitmap-reader make-fuzz-seeds make-terragen-seeds make-bitmap-seeds

dir=$out/fuzz
rm -f "$dir"/*-crash-* "$dir"/*-leak-* "$dir"/*-timeout-* "$dir"/*-oom-*
mkdir -p "$dir/corpus-track" "$dir/corpus-settings" "$dir/corpus-terrain" "$dir/corpus-targa" "$dir/corpus-terragen" \
  "$dir/corpus-bitmap"
"$dir/make-fuzz-seeds" "$dir/corpus-track" "$dir/corpus-terrain" "$dir/corpus-targa"
"$dir/make-terragen-seeds" "$dir/corpus-terragen"
"$dir/make-bitmap-seeds" "$dir/corpus-bitmap"
printf ';CorvantaLandwright\r\n\r\n[General]\r\nAskImportOverwrite=0\r\nWaterTrans=0.75\r\nRmbrViews=True\r\n[Colors]\r\nCR0=0.5\r\n[Recents]\r\nRF0=/tracks/a.cvtrack\r\n' \
  >"$dir/corpus-settings/seed.ini"

failed=0
# A reader may allocate a few times the size of the file it reads, never what a header claims: the
# inputs stay small, so any allocation over the limit is a reader trusting a size it has not checked.
run() {
  local name=$1 corpus=$2 status=0
  shift 2
  if [ "$wanted" != "  " ] && [[ "$wanted" != *" $name "* ]]; then return 0; fi
  echo "== $name for $seconds s"
  (cd "$dir" && "./$name" -max_total_time="$seconds" -malloc_limit_mb=64 -print_final_stats=1 -artifact_prefix="$name-" "$@" \
    "$corpus" >"$name.log" 2>&1) || status=$?
  grep -E 'stat::number_of_executed_units|ERROR|SUMMARY|Done' "$dir/$name.log" || true
  if [ "$status" -ne 0 ] || compgen -G "$dir/$name-*" >/dev/null; then
    echo "$name found a problem (exit $status); see $dir/$name.log and:" >&2
    ls "$dir/$name"-* 2>/dev/null >&2 || true
    failed=1
  fi
}
run fuzz-track-reader corpus-track
run fuzz-settings corpus-settings
run fuzz-terrain-file corpus-terrain
run fuzz-targa corpus-targa
run fuzz-terragen corpus-terragen
# A bitmap may not make the reader allocate far beyond what its bytes can hold: a tighter limit.
run fuzz-bitmap-reader corpus-bitmap -malloc_limit_mb=16 -max_len=4096
exit "$failed"
