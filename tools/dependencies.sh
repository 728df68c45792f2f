# Sourced by run.sh and test.sh: installs the Debian packages that are missing, by name.
# shellcheck shell=bash disable=SC2034  # the lists are used where this is sourced

build_packages=(g++ cmake ninja-build ccache pkg-config libsqlite3-dev unixodbc-dev libsqliteodbc
    libxlsxwriter-dev libminizip-dev libcairo2-dev libpango1.0-dev
    libgtk-3-dev libwxgtk3.2-dev wx3.2-i18n gettext nlohmann-json3-dev libcli11-dev libtomlplusplus-dev libgtest-dev
    libgmock-dev iso-codes)
screen_packages=(xvfb xauth openbox xdotool x11-utils x11-xkb-utils xclip imagemagick
    fonts-dejavu-core adwaita-icon-theme librsvg2-common librsvg2-bin python3-openpyxl libreoffice-calc-nogui
    poppler-utils dbus at-spi2-core python3-pyatspi gir1.2-atspi-2.0)
check_packages=(clang-format python3 util-linux locales)
lint_packages=(clang-tidy)
fuzz_packages=(clang libpg-query-dev)
coverage_packages=(gcovr)

is_installed() {
    [ "$(dpkg-query -W -f='${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

# install_missing PACKAGE...
install_missing() {
    local package missing=() as_root=()
    for package in "$@"; do
        is_installed "$package" || missing+=("$package")
    done
    [ "${#missing[@]}" -eq 0 ] && return 0
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "These packages are missing and only root can install them: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "== installing: ${missing[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}"
}
