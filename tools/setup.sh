# shellcheck shell=bash disable=SC2034
# Sourced by ./run, ./test and .ci/run: installs what a build lacks, then builds.

build_packages=(g++ cmake ninja-build qt6-base-dev libcurl4-gnutls-dev libxcb1-dev
                fonts-dejavu-core)
test_packages=(libgtest-dev libbenchmark-dev xvfb openssl poppler-utils at-spi2-core dbus-daemon
               openbox python3-pyatspi x11-utils xdotool sway wtype wl-clipboard qt6-wayland
               cups-daemon cups-filters-core-drivers)
package_packages=(appstream build-essential debhelper desktop-file-utils dpkg-dev faketime file
                  gir1.2-glib-2.0 hicolor-icon-theme lintian locales man-db x11-utils)
lock_patience=300  # seconds

as_root() {
  if ((EUID == 0)); then "$@"; else sudo "$@"; fi
}

# Runs apt-get. While another program holds the package manager's lock, says so and tries again.
apt_get() {
  local said='' end=$((SECONDS + lock_patience))
  until apt_complaint=$(as_root env LC_ALL=C DEBIAN_FRONTEND=noninteractive \
    apt-get -qq --no-install-recommends --no-remove "$@" 2>&1 >/dev/null); do
    [[ $apt_complaint == *"Could not get lock"* ]] && ((SECONDS < end)) || return 1
    [[ -n $said ]] || echo "Another program is installing packages; waiting for it to end." >&2
    said=1
    sleep 3
  done
}

# Fetches the packages first, which may be interrupted; from then on all that is needed is here, and
# what is begun is brought to its end.
apt_install() {
  if ! apt_get install --download-only "$@"; then  # the package lists may be absent or out of date
    [[ $apt_complaint != *"Could not get lock"* ]] || return 1
    apt_get update || echo "$apt_complaint" >&2
    apt_get install --download-only "$@" || return 1
  fi
  local status=0
  trap '' INT HUP
  apt_get install --no-download "$@" || status=1
  trap - INT HUP
  return "$status"
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
  if ((EUID != 0)) && ! command -v sudo >/dev/null; then
    echo "Packages are missing, and only root may install them. Please ask an administrator for:" >&2
    echo "  ${missing[*]}" >&2
    return 1
  fi
  echo "Installing from Debian's packages: ${missing[*]}" >&2
  apt_install "${missing[@]}" && return
  echo "$apt_complaint" >&2
  echo "The packages could not be installed: ${missing[*]}" >&2
  return 1
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
