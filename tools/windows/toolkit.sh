#!/usr/bin/env bash
# Builds the libraries that Debian has no Windows build of, from Debian's sources, static, once for
# each processor; what is there already is left as it is. The last line tells where they are.
#
#   toolkit.sh x86_64|i686
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
. "$here/dependencies.sh"

case "${1:-}" in
    x86_64 | i686) processor=$1 ;;
    *)
        sed -n '2,/^set/s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2
        exit 2
        ;;
esac
host=$processor-w64-mingw32
# The compiler with POSIX threads, which the standard library's threads and locks need.
compiler=$host-gcc-posix
cxx=$host-g++-posix

# Packages' sources, unpacked into the folder given; the system's own list of sources stays as it is.
fetch_source() {
    local package=$1 folder=$2 lists=$windows_cache/lists release mirror
    mkdir -p "$lists/partial" "$folder"
    release=$(. /etc/os-release && echo "$VERSION_CODENAME")
    mirror=$(debian_mirror "$release")
    [ -n "$mirror" ] || {
        echo "apt knows no source of packages for $release" >&2
        return 1
    }
    cat >"$windows_cache/debian.sources" <<SOURCES
Types: deb-src
URIs: $mirror
Suites: $release
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SOURCES
    local apt=(apt-get -qq -o "Dir::Etc::sourcelist=$windows_cache/debian.sources"
        -o Dir::Etc::sourceparts=/dev/null -o "Dir::State::lists=$lists"
        -o Dir::Cache::srcpkgcache= -o Dir::Cache::pkgcache= -o APT::Sandbox::User=root)
    "${apt[@]}" update
    (cd "$folder" && "${apt[@]}" source "$package" >/dev/null)
}

# run_logged NAME COMMAND...: quiet unless it fails
run_logged() {
    local log=$windows_cache/$processor-$1.log
    shift
    "$@" >"$log" 2>&1 && return 0
    tail -n 60 "$log" >&2
    echo "The whole of it is in $log" >&2
    return 1
}

build_wx() {
    local source=$1 target=$2
    cd "$source"
    # Only what the screen uses.
    local wx_options=(--with-msw --disable-shared --disable-debug --disable-tests
        --disable-aui --disable-ribbon --disable-stc --disable-propgrid --disable-richtext
        --disable-xrc --disable-mediactrl --disable-webview --disable-webrequest
        --disable-dbghelp --disable-debugreport --disable-sockets --disable-joystick
        --disable-sound --disable-svg --without-libpng --without-libjpeg --without-libtiff --without-zlib
        --without-expat --without-liblzma --without-regex --without-opengl --without-libxpm
        --without-libcurl --without-winhttp)
    # The window spends its time waiting for a user: a quick build counts for more.
    CC=$compiler CXX=$cxx CFLAGS=-O1 CXXFLAGS=-O1 run_logged wx-configure ./configure \
        --host="$host" --prefix="$target" "${wx_options[@]}"
    run_logged wx-build make -j"$(nproc)"
    run_logged wx-install make install
}

build_xlsxwriter() {
    local source=$1 target=$2
    run_logged xlsxwriter-configure cmake -S "$source" -B "$source/build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain-$processor.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$target" -DBUILD_SHARED_LIBS=OFF \
        -DZLIB_INCLUDE_DIR="/usr/$host/include" -DZLIB_LIBRARY="/usr/$host/lib/libz.a"
    run_logged xlsxwriter-build cmake --build "$source/build" --target install
    # Beside it there is no variant that would have to be delivered as a file of its own.
    cp "/usr/$host/lib/libz.a" "$target/lib"
}

build_minizip() {
    local source=$1 target=$2 file
    mkdir -p "$target/lib/pkgconfig" "$target/include/minizip"
    for file in ioapi unzip; do
        run_logged "minizip-$file" "$compiler" -O2 -c "$source/$file.c" -o "$source/$file.o"
    done
    "$host-ar" rcs "$target/lib/libminizip.a" "$source/ioapi.o" "$source/unzip.o"
    cp "$source/ioapi.h" "$source/unzip.h" "$target/include/minizip"
    # Beside it there is no variant that would have to be delivered as a file of its own.
    cp "/usr/$host/lib/libz.a" "$target/lib"
    cat >"$target/lib/pkgconfig/minizip.pc" <<PC
Name: minizip
Description: Reader of zip files
Version: 1.1
Libs: -L$target/lib -lminizip -lz
Cflags: -I$target/include/minizip
PC
}

build_sqlite() {
    local source=$1 target=$2
    mkdir -p "$target/lib" "$target/include"
    cd "$source"
    # The source of the library is one file, which its own scripts put together.
    run_logged sqlite-configure ./configure
    run_logged sqlite-source make sqlite3.c
    # What Debian's library has and the program may be asked for, without the loading of code.
    run_logged sqlite-compile "$compiler" -O2 -DSQLITE_THREADSAFE=1 -DSQLITE_OMIT_LOAD_EXTENSION \
        -DSQLITE_ENABLE_COLUMN_METADATA -DSQLITE_ENABLE_MATH_FUNCTIONS -DSQLITE_ENABLE_RTREE \
        -DSQLITE_ENABLE_FTS3 -DSQLITE_ENABLE_FTS3_PARENTHESIS -DSQLITE_ENABLE_FTS4 \
        -DSQLITE_ENABLE_FTS5 -DSQLITE_SOUNDEX -DSQLITE_SECURE_DELETE \
        -c sqlite3.c -o sqlite3-windows.o
    "$host-ar" rcs "$target/lib/libsqlite3.a" sqlite3-windows.o
    cp sqlite3.h "$target/include"
}

build_googletest() {
    local source=$1 target=$2
    run_logged googletest-configure cmake -S "$source" -B "$source/build" -G Ninja \
        -DCMAKE_TOOLCHAIN_FILE="$here/toolchain-$processor.cmake" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_INSTALL_PREFIX="$target"
    run_logged googletest-build cmake --build "$source/build" --target install
}

# built_once NAME SOURCE-PACKAGE FUNCTION
built_once() {
    local name=$1 package=$2 build=$3 work
    local target=$windows_cache/$processor/$name
    local recipe
    recipe=$(declare -f "$build" | sha256sum)
    [ "$(cat "$target/recipe" 2>/dev/null)" = "$recipe" ] && return 0
    echo "== building $name for $processor from Debian's source (once)" >&2
    work=$windows_cache/$processor/$name-work
    rm -rf --one-file-system "$work" "$target"
    fetch_source "$package" "$work"
    ("$build" "$(find "$work" -mindepth 1 -maxdepth 1 -type d | head -n 1)" "$target")
    rm -rf --one-file-system "$work"
    printf '%s\n' "$recipe" >"$target/recipe"
}

mkdir -p "$windows_cache/$processor"
exec 9>"$windows_cache/$processor.lock"
flock 9
built_once googletest googletest build_googletest
built_once xlsxwriter libxlsxwriter build_xlsxwriter
built_once minizip minizip build_minizip
built_once sqlite sqlite3 build_sqlite
built_once wx wxwidgets3.2 build_wx
echo "$windows_cache/$processor"
