# Sourced by the scripts of this folder: the Debian packages they need and where they keep what they
# build once.
# shellcheck shell=bash disable=SC2034  # the variables are used where this is sourced

windows_packages=(g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools
    libz-mingw-w64-dev googletest cmake ninja-build ccache make gcc tcl dpkg-dev gettext nsis
    nlohmann-json3-dev libcli11-dev libtomlplusplus-dev)
wine_packages=(wine wine64 libwine-dev unixodbc libsqliteodbc sqlite3 xvfb xauth openbox xdotool
    imagemagick fonts-dejavu-core)
# Inside of the tree of 32 bits, and what makes it.
tree_packages=(wine wine32 unixodbc libsqliteodbc fonts-dejavu-core)
tree_maker_packages=(debootstrap util-linux)

windows_cache=${CATALOGADOR_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/catalogador}/windows

# debian_mirror RELEASE: where this machine's own packages of that release come from
debian_mirror() {
    # shellcheck disable=SC2016  # the names are those of apt
    apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' \
        "Codename: $1" 'Component: main' | head -n 1
}
