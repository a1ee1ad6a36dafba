# shellcheck shell=bash disable=SC2034
# Sourced by ./run, ./test and .ci/run: installs what a build lacks, then builds.

build_packages=(g++ cmake ninja-build qt6-base-dev libgtest-dev libbenchmark-dev fonts-dejavu-core)
test_packages=(xvfb openssl poppler-utils at-spi2-core dbus-daemon openbox python3-pyatspi xdotool)

as_root() {
  if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

apt_install() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get install -qq --no-install-recommends "$@" >/dev/null
}

# Installs those of the named Debian packages that the machine lacks. Elsewhere than on Debian and
# its kin the tools are the user's own affair, and CMake tells which are missing.
ensure_packages() {
  local package missing=()
  command -v dpkg-query >/dev/null || return 0
  for package in "$@"; do
    [[ $(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null) == installed* ]] ||
      missing+=("$package")
  done
  ((${#missing[@]})) || return 0
  echo "Installing from Debian's packages: ${missing[*]}" >&2
  apt_install "${missing[@]}" 2>/dev/null ||  # the package lists may be absent or out of date
    { as_root apt-get update -qq && apt_install "${missing[@]}"; }
}

if command -v ccache >/dev/null; then
  export CMAKE_CXX_COMPILER_LAUNCHER=ccache
fi

# configure PRESET [cmake option...]
configure() {
  cmake --preset "$@" --log-level=WARNING >/dev/null
}

# build PRESET [target...]: brings the targets, or everything, up to date; silent when they are.
build() {
  local tree=build/$1
  shift
  [[ $(ninja -C "$tree" -n "$@") == *"no work to do"* ]] || ninja -C "$tree" "$@" >&2
}
