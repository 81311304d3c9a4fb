# SPDX-License-Identifier: GPL-3.0-or-later
# To be sourced. install_packages LIST... installs what is missing of the package lists;
# start_display gives the shell a virtual screen with a window manager.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo "$@"; fi
}

install_packages() {
    local wanted missing=() package
    wanted=$(cd "$root/scripts" && sed -e 's/#.*//' "$@")
    for package in $wanted; do
        dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "Installing: ${missing[*]}" >&2
    as_root apt-get update -q >/dev/null
    as_root env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -q --no-install-recommends "${missing[@]}" >/dev/null
}

# The screen ends with the shell. Takes its size in pixels, such as 1366x850.
start_display() {
    local number
    number=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "$1x24" -nolisten tcp 3>"$number" 2>/dev/null &
    display_pids="$!"
    for _ in $(seq 100); do [ -s "$number" ] && break; sleep 0.1; done
    DISPLAY=":$(cat "$number")"
    export DISPLAY
    rm -f "$number"
    openbox >/dev/null 2>&1 &
    display_pids="$display_pids $!"
    trap 'kill $display_pids 2>/dev/null' EXIT
    sleep 0.5
}
