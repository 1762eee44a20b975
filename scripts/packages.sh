# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by ./run and ./test. Package names are those that Debian 12 and its successors share.

packages_to_run="g++ cmake ninja-build qt6-base-dev libsqlite3-dev libsdl2-dev libcdio-dev libical-dev libxcb1-dev libsystemd-dev libasio-dev libcups2-dev pkg-config qt6-translations-l10n fonts-monapo tzdata"
packages_to_look="xvfb xauth xdotool maim"
packages_to_test="$packages_to_run $packages_to_look ccache clang clang-format clang-tidy lld libclang-rt-dev devscripts python3 python3-gi python3-pil
    python3-xlib python3-dbusmock python3-ephem python3-erfa locales dbus at-spi2-core orca openbox xfwm4 sway xwayland grim wtype kwin-x11 xfce4-panel trayer playerctl pulseaudio pulseaudio-utils x11-utils x11-apps x11-session-utils x11-xserver-utils xclip libx11-dev libxdamage-dev libxfixes-dev
    cups-daemon cups-client cups-filters poppler-utils valgrind
    python3-icalendar python3-dateutil khal calcurse gir1.2-ecal-2.0 gir1.2-ical-3.0
    dpkg-dev lintian appstream desktop-file-utils man-db"

# need PACKAGE…: installs the missing packages and prints their names in one line; prints nothing if none is missing.
need() {
    missing=""
    for package in "$@"; do
        dpkg-query --show --showformat '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
            missing="$missing $package"
    done
    [ -n "$missing" ] || return 0
    echo "Installing$missing"
    as_root=""
    [ "$(id -u)" -eq 0 ] || as_root="sudo"
    export DEBIAN_FRONTEND=noninteractive DEBCONF_NOWARNINGS=yes
    # shellcheck disable=SC2086
    $as_root apt-get -qq update >/dev/null &&
        $as_root apt-get -qq install --yes --no-install-recommends $missing >/dev/null ||
        { echo "Could not install$missing" >&2; return 1; }
}
