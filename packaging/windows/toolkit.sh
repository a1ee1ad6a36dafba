# shellcheck shell=bash
# Sourced by packaging/windows/build and check: the toolkit for Windows, built once, outside the
# tree, from the distribution's source package of the very version that the host's tools have.

cache=${XDG_CACHE_HOME:-$HOME/.cache}/peakwright-windows
toolchain=$PWD/packaging/windows/mingw-w64.cmake
host_cmake=/usr/lib/$(gcc -dumpmachine)/cmake

# What the program has no use for; tablets and the Direct2D platform would also need headers that
# are not free.
left_out=(sql dbus vulkan testlib xml concurrent tabletevent direct2d1_1)

# toolkit_version: names the toolkit's folders; empty where the host has no tools yet.
toolkit_version() { dpkg-query -W -f='${Version}' qt6-base-dev-tools 2>/dev/null; }

# has_toolkit: whether it is there; tells its place in $toolkit, and that of its sources in $sources.
has_toolkit() {
  local version
  version=$(toolkit_version)
  toolkit=$cache/qt-$version
  sources=$cache/source-$version
  [[ -n $version && -e $toolkit/complete ]]
}

# own_apt COMMAND...: apt with lists and sources of its own, from where the host has its packages.
own_apt() {
  apt-get -qq -o Dir::Etc::SourceList="$cache/apt/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o Dir::State::Lists="$cache/apt/lists" -o Dir::Cache="$cache/apt/cache" "$@"
}

# fetch_sources: unpacks the toolkit's source package, with the distribution's patches, in $sources.
fetch_sources() {
  [[ -e $sources/complete ]] && return
  rm -rf "$cache/unpacked" "$sources"
  mkdir -p "$cache/unpacked" "$cache"/apt/{lists,cache}
  # shellcheck disable=SC2016  # the fields are apt's
  apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | sort -u >"$cache/apt/sources.list"
  own_apt update
  (cd "$cache/unpacked" && own_apt --only-source source "qt6-base=$(toolkit_version)" >/dev/null)
  mv "$cache"/unpacked/*/ "$sources"
  rm -rf "$cache/unpacked"
  touch "$sources/complete"
}

build_toolkit() {
  local feature work=$cache/build options=()
  for feature in "${left_out[@]}"; do options+=("-DFEATURE_$feature=OFF"); done
  fetch_sources
  cmake -G Ninja -S "$sources" -B "$work" --log-level=WARNING \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_INSTALL_PREFIX="$toolkit" \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF -DINPUT_opengl=no -DFEATURE_schannel=ON \
    "${options[@]}" \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host_cmake" >"$cache/configure.log"
  ninja -C "$work" >&2
  cmake --install "$work" >/dev/null
  rm -rf "$work"
  touch "$toolkit/complete"
}

# copy_licences FOLDER: the texts of all that is linked into the program beside its own sources.
copy_licences() {
  cp "$sources/LICENSES/LGPL-3.0-only.txt" "$sources/LICENSES/GPL-3.0-only.txt" "$1/"
  cp "$sources/debian/copyright" "$1/toolkit-and-libraries-in-it.txt"
  cp /usr/share/doc/gcc-mingw-w64-base/copyright "$1/compiler-libraries.txt"
  cp /usr/share/doc/mingw-w64-common/copyright "$1/system-headers.txt"
}

# configure_for_windows TREE [cmake option...]: the program alone, with that toolkit.
configure_for_windows() {
  cmake -G Ninja -S . -B "$@" --log-level=WARNING -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_FIND_ROOT_PATH="$toolkit" \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host_cmake" \
    -DPEAKWRIGHT_TESTS=OFF -DPEAKWRIGHT_BENCH=OFF >/dev/null
}
