#!/usr/bin/env bash
# clang-tidy with the repository's .clang-tidy (bugprone and performance checks) over the program's
# own sources, using the compile commands of a configured build folder.
#   scripts/tidy.sh [BUILD]            every .cpp of src/ and tools/
#   scripts/tidy.sh BUILD FILE...      only these files (for example those a change touches)
# Exits non-zero when any check reports.
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
shift || true
if [ $# -gt 0 ]; then
  files=("$@")
else
  mapfile -t files < <(find src tools -name '*.cpp' | sort)
fi
[ -f "$build/compile_commands.json" ] || { echo "no $build/compile_commands.json: configure the build first" >&2; exit 2; }
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p "$build" --quiet 2>/dev/null
