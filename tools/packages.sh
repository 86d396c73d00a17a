# The Debian packages by name, the same in Debian 12 and 13, and what installs those that are missing. Read in by run and test.
# shellcheck shell=bash disable=SC2034

build_packages=(g++ cmake ninja-build pkg-config ccache mold python3
    qt6-base-dev qt6-svg-dev qt6-l10n-tools unixodbc-dev libtomlplusplus-dev libxlsxwriter-dev
    libcsv-dev libexpected-dev libsystemd-dev zlib1g-dev libminizip-dev)
run_packages=(libsqliteodbc dbus-daemon qt6-qpa-plugins qt6-translations-l10n fonts-dejavu-core)
test_packages=(libgtest-dev libgmock-dev libsqliteodbc dbus-daemon qt6-qpa-plugins
    fonts-dejavu-core python3 python3-openpyxl poppler-utils chromium clang-format systemd)
server_packages=(postgresql odbc-postgresql mariadb-server-core mariadb-client-core odbc-mariadb openssl)
package_packages=(dpkg-dev file)
try_packages=(iproute2 lintian devscripts appstream desktop-file-utils mmdebstrap)
tidy_packages=(clang clang-tidy)
bench_packages=(libbenchmark-dev sqlite3 xvfb xauth nftables)

# Prints those of the named packages that are not installed.
missing_packages() {
    local package
    for package in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Abbrev}' "$package" 2>/dev/null)" = "ii " ] || echo "$package"
    done
}

as_root() {
    if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0 "$@" </dev/null
}

# Installs what is missing of the named packages; asks for root only when something is.
require_packages() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    if [ ${#missing[@]} = 0 ]; then
        return
    fi
    if ! command -v apt-get >/dev/null; then
        echo "This needs Debian 12 or 13 with the packages ${missing[*]}" >&2
        exit 1
    fi
    if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
        echo "Packages are missing, and there is neither root nor sudo to install them. As root:" >&2
        echo "    apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    echo "Installing ${missing[*]}"
    apt_get update || echo "The package lists could not be refreshed; going on with the old ones." >&2
    without_servers apt_get install -y --no-install-recommends "${missing[@]}"
}

# Runs a command while no package may start a server or make a database of its own: the tests start
# the servers that they need in a folder of theirs, and end them.
without_servers() {
    local policy=/usr/sbin/policy-rc.d
    local clusters=/etc/postgresql-common/createcluster.d/tollbrook.conf
    local made=("$clusters") result=0
    as_root mkdir -p "${clusters%/*}"
    echo 'create_main_cluster = false' | as_root tee "$clusters" >/dev/null
    if [ ! -e "$policy" ]; then
        made+=("$policy")
        printf '#!/bin/sh\nexit 101\n' | as_root tee "$policy" >/dev/null
        as_root chmod 755 "$policy"
    fi
    "$@" || result=$?
    as_root rm -f "${made[@]}"
    return "$result"
}
