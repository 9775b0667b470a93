#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test: the full build, then everything again under
# AddressSanitizer and UndefinedBehaviorSanitizer.
set -euo pipefail
cd "$(dirname "$0")"
. scripts/setup.sh

lw_install_packages "${LW_PACKAGES[@]}"
lw_prepare_comma_locale
lw_check_format

lw_build build -DCMAKE_BUILD_TYPE=RelWithDebInfo -DLW_WERROR=ON
# The bugprone and performance checks of .clang-tidy over every source file.
scripts/tidy.sh build
# Widget and GL tests need a display: the whole run goes under a virtual X server.
xvfb-run -a -s "-screen 0 1280x1024x24" ctest --test-dir build --output-on-failure --parallel "$(nproc)"

# The whole program again under AddressSanitizer and UndefinedBehaviorSanitizer. Leaks are looked for
# in the display-free tests; the window and GL tests run without leak detection, because the GL
# driver and the session bus keep memory for the life of the process in libraries we do not build.
lw_build build-asan -DCMAKE_BUILD_TYPE=Debug -DLW_SANITIZE=ON -DLW_PURE_ONLY=OFF -DLW_WERROR=ON
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 ctest --test-dir build-asan --output-on-failure --parallel "$(nproc)" -LE ui
ASAN_OPTIONS=detect_leaks=0:abort_on_error=1 xvfb-run -a -s "-screen 0 1280x1024x24" \
  ctest --test-dir build-asan --output-on-failure --parallel "$(nproc)" -L ui

echo "All tests passed."
