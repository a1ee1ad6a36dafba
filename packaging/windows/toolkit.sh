# shellcheck shell=bash
# Sourced by packaging/windows/build and check, and by packaging/release: the toolkit and libcurl for
# Windows, built once, outside the tree, from the distribution's source packages of the very versions
# that the host has.

cache=${XDG_CACHE_HOME:-$HOME/.cache}/peakwright-windows
toolchain=$PWD/packaging/windows/mingw-w64.cmake
host_cmake=/usr/lib/$(gcc -dumpmachine)/cmake
windows_packages=(cmake ninja-build g++-mingw-w64-x86-64-posix qt6-base-dev-tools
                  libcurl4-gnutls-dev dpkg-dev icoutils python3 zip)

# What the program has no use for; tablets and the Direct2D platform would also need headers that
# are not free.
left_out=(sql dbus vulkan testlib xml concurrent tabletevent direct2d1_1
          graphicsview wizard lcdnumber dial toolbox splashscreen undoview columnview
          datawidgetmapper colordialog fontdialog errormessage systemtrayicon
          keysequenceedit fontcombobox tablewidget textodfwriter textmarkdownreader
          textmarkdownwriter gif ico jpeg http dtls ocsp localserver networkdiskcache gssapi sspi
          topleveldomain commandlineparser)
qt_options=(-DINPUT_opengl=no -DFEATURE_schannel=ON -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF
            -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host_cmake")
for feature in "${left_out[@]}"; do qt_options+=("-DFEATURE_$feature=OFF"); done
curl_options=(-DBUILD_CURL_EXE=OFF -DBUILD_TESTING=OFF -DENABLE_MANUAL=OFF -DHTTP_ONLY=ON
              -DCURL_USE_SCHANNEL=ON -DENABLE_UNICODE=ON -DCURL_TARGET_WINDOWS_VERSION=0x0A00
              -DCURL_USE_LIBSSH2=OFF -DCURL_ZLIB=OFF -DUSE_LIBIDN2=OFF)

# Of what comes with the toolkit, what is linked into the program.
linked_parts=(corelib/text corelib/tools gui/painting gui/text
              3rdparty/{blake2,double-conversion,easing,freetype,harfbuzz-ng,icc,libpng,pcre2}
              3rdparty/{rfc6234,sha3,tinycbor,zlib})

source_version() { dpkg-query -W -f='${source:Version}' "$1" 2>/dev/null; }

# has_toolkit: whether it is there; tells its place in $toolkit, and in $qt_source and $curl_source
# the names of the packages that it is made of, with their versions.
has_toolkit() {
  local recipe
  qt_source=qt6-base_$(source_version qt6-base-dev-tools)
  curl_source=curl_$(source_version libcurl4-gnutls-dev)
  recipe=$(echo "$qt_source" "$curl_source" "${qt_options[@]}" "${curl_options[@]}" |
    cat - "$toolchain" | sha256sum)
  toolkit=$cache/toolkit-${recipe:0:12}
  [[ -e $toolkit/complete ]]
}

# own_apt COMMAND...: apt with lists and sources of its own, from where the host has its packages.
own_apt() {
  apt-get -qq -o Dir::Etc::SourceList="$cache/apt/sources.list" -o Dir::Etc::SourceParts=/dev/null \
    -o Dir::State::Lists="$cache/apt/lists" -o Dir::Cache="$cache/apt/cache" \
    -o APT::Sandbox::User=root "$@"
}

# fetch_sources PACKAGE_VERSION...: unpacks these source packages, with the distribution's patches,
# in folders of $cache/sources that are called as they are, and leaves what was fetched beside them.
fetch_sources() {
  local source folder
  mkdir -p "$cache/sources" "$cache"/apt/{lists,cache}
  # shellcheck disable=SC2016  # the fields are apt's
  apt-get indextargets --format 'deb-src $(REPO_URI) $(RELEASE) $(COMPONENT)' \
    'Created-By: Packages' 'Origin: Debian' | sort -u >"$cache/apt/sources.list"
  own_apt update
  for source in "$@"; do
    folder=$cache/sources/$source
    [[ ! -e $folder ]] || continue
    (cd "$cache/sources" && own_apt --download-only --only-source source "${source/_/=}" &&
      dpkg-source --no-check --extract "$source.dsc" "$folder.new") >/dev/null
    mv "$folder.new" "$folder"
  done
}

# build_library SOURCE OPTION...: builds and installs an unpacked source package. Nothing in it tells
# where and when that was.
build_library() {
  local source=$cache/sources/$1 work=$cache/build-$1 date=1640692800 flags
  shift
  flags="-fstack-protector-strong -ffile-prefix-map=$source=toolkit"
  flags+=" -ffile-prefix-map=$work=toolkit"
  rm -rf "$work"
  cmake -G Ninja -S "$source" -B "$work" --log-level=WARNING \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_INSTALL_PREFIX=/nonexistent \
    -DCMAKE_C_FLAGS="$flags" -DCMAKE_CXX_FLAGS="$flags" \
    -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=OFF "$@" >"$work.log"
  SOURCE_DATE_EPOCH=$date QT_RCC_SOURCE_DATE_OVERRIDE=$date ninja -C "$work" >&2
  cmake --install "$work" --prefix "$toolkit" >/dev/null
  rm -rf "$work"
}

build_toolkit() {
  unset CMAKE_CXX_COMPILER_LAUNCHER  # Precompiled headers save more, and the two don't go together.
  fetch_sources "$qt_source" "$curl_source"
  rm -rf "$toolkit"
  build_library "$curl_source" "${curl_options[@]}"
  build_library "$qt_source" "${qt_options[@]}"
  # A hook for debuggers, which each program would offer to all others.
  x86_64-w64-mingw32-objcopy --remove-section .drectve "$toolkit/lib/libQt6Core.a"
  touch "$toolkit/complete"
}

# source_sums: checksum and name of each file of the source packages, as their own lists have them.
source_sums() {
  local source
  for source in "$qt_source" "$curl_source"; do
    (cd "$cache/sources" && sha256sum "$source.dsc")
    sed -n '/^Checksums-Sha256:/,/^[^ C]/s/^ \([0-9a-f]\{64\}\) [0-9]* /\1  /p' \
      "$cache/sources/$source.dsc"
  done
}

# copy_licences FOLDER: the texts of all that is linked into the program beside its own sources.
copy_licences() {
  local part file sources=$cache/sources/$qt_source
  cp "$sources/LICENSES/LGPL-3.0-only.txt" "$sources/LICENSES/GPL-3.0-only.txt" "$1/"
  cp "$sources/debian/copyright" "$1/toolkit.txt"
  for part in "${linked_parts[@]}"; do
    for file in "$sources/src/$part"/{*LICEN[CS]E*,COPYING*}; do
      [[ ! -f $file ]] || { printf '\n===== %s\n\n' "$part/${file##*/}"; cat "$file"; }
    done
  done >"$1/libraries-in-the-toolkit.txt"
  cp "$cache/sources/$curl_source/COPYING" "$1/curl.txt"
  cp /usr/share/doc/gcc-mingw-w64-base/copyright "$1/compiler-libraries.txt"
  cp /usr/share/doc/mingw-w64-common/copyright "$1/system-libraries.txt"
}

# configure_for_windows TREE [cmake option...]: the program alone, with that toolkit.
configure_for_windows() {
  cmake -G Ninja -S . -B "$@" --log-level=WARNING -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_FIND_ROOT_PATH="$toolkit" \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR="$host_cmake" \
    -DCMAKE_CXX_FLAGS="-ffile-prefix-map=$PWD=." \
    -DPEAKWRIGHT_TESTS=OFF -DPEAKWRIGHT_BENCH=OFF >/dev/null
}
