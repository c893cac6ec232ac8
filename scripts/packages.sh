# Sourced by ./run, ./test and the scripts: which Debian packages each job needs, and their
# installation. Asks for no rights when nothing is missing.

packages_to_build="g++ cmake ninja-build qt6-base-dev qt6-svg-dev libqt6svg6 qt6-translations-l10n
    libsqlite3-dev libicu-dev libxml2-dev mdbtools-dev pkg-config fonts-inconsolata fonts-crosextra-carlito"
packages_for_virtual_screen="xvfb openbox xdotool imagemagick x11-utils"
packages_to_test="clang-14 lld-14 libclang-rt-14-dev llvm-14 clang-tidy-14 clang-format-14
    g++-mingw-w64-x86-64-posix libbenchmark-dev ccache git at-spi2-core dbus-daemon poppler-utils
    appstream desktop-file-utils gtk-update-icon-cache libglib2.0-bin libxml2-utils man-db
    shared-mime-info shellcheck xdg-utils"
packages_for_the_tar="xz-utils"
packages_to_check_the_tar="debootstrap"
packages_for_windows="g++-mingw-w64-x86-64-posix dpkg-dev zip icoutils icu-devtools tcl
    qt6-base-private-dev qt6-base-dev-tools fonts-dejavu-core"
packages_to_check_windows="wine wine64 unzip poppler-utils"

# need_packages REASON PACKAGE... : installs what is missing, after saying what and why.
need_packages() {
    local reason=$1 package missing=()
    shift
    for package in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] ||
            missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    echo "Needed $reason and missing here: ${missing[*]}"
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Neither root nor sudo. As root, run:" >&2
            echo "  apt-get update && apt-get install -y --no-install-recommends ${missing[*]}" >&2
            exit 1
        fi
        as_root=(sudo)
    fi
    "${as_root[@]}" apt-get update
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}"
}
