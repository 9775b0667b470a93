#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the full build, then the display-free
# libraries again under AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/setup.sh

lw_install_packages "${LW_PACKAGES[@]}"
lw_prepare_comma_locale

lw_build build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DLW_WERROR=ON
# Widget and GL tests need a display: the whole run goes under a virtual X server.
xvfb-run -a -s "-screen 0 1280x1024x24" ctest --test-dir build --output-on-failure --parallel "$(nproc)"

lw_build build-asan -DCMAKE_BUILD_TYPE=Debug -DLW_SANITIZE=ON -DLW_PURE_ONLY=ON -DLW_WERROR=ON
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
  ctest --test-dir build-asan --output-on-failure --parallel "$(nproc)"

echo "All tests passed."
