# Shared by run.sh and test.sh: installs the Debian packages the build needs, then configures and
# builds one build folder. Source it; it defines functions only.

LW_PACKAGES=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev libqt6opengl6-dev libglu1-mesa-dev libgl1-mesa-dri
  xvfb xauth
  googletest libgtest-dev libgmock-dev libbenchmark-dev
  locales clang-format clang-tidy
)

lw_missing_packages() {
  local pkg
  for pkg in "$@"; do
    dpkg-query -W -f='${Status}' "$pkg" 2>/dev/null | grep -q "install ok installed" || echo "$pkg"
  done
}

lw_install_packages() {
  local missing
  missing=$(lw_missing_packages "$@")
  [ -z "$missing" ] && return 0
  echo "Installing missing packages:" $missing
  local sudo=""
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install as root: $missing" >&2; return 1; }
    sudo="sudo"
  fi
  # shellcheck disable=SC2086
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -q
  # shellcheck disable=SC2086
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends $missing
}

# lw_build FOLDER [cmake options...]
lw_build() {
  local folder=$1
  shift
  cmake -S . -B "$folder" -G Ninja "$@"
  cmake --build "$folder" --parallel "$(nproc)"
}

# A locale with a decimal comma, so the tests can show that files are written with "." whatever the
# user's regional settings. Made only when missing and when we may.
lw_prepare_comma_locale() {
  locale -a 2>/dev/null | grep -qi '^de_DE\.utf-\?8$' && return 0
  local sudo=""
  [ "$(id -u)" -ne 0 ] && { command -v sudo >/dev/null || return 0; sudo="sudo -n"; }
  $sudo localedef -i de_DE -f UTF-8 de_DE.UTF-8 2>/dev/null || echo "note: no de_DE.UTF-8 locale; the decimal-comma test will be skipped"
}

# Every C++ file of the repository laid out as .clang-format says; a difference fails with the
# file and line.
lw_check_format() {
  find src tests bench tools -name '*.cpp' -o -name '*.h' | sort | xargs clang-format --dry-run --Werror
}
