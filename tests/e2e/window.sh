# SPDX-License-Identifier: GPL-3.0-or-later
# To be sourced by what drives the program in a real window; $1 is the program. Gives the shell a
# fresh home and a virtual screen, and the steps that every such run is made of.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/setup.sh"

program=$(realpath "$1")
home=$(mktemp -d)
export HOME=$home QUILLMARK_HOME=$home/programa XDG_CONFIG_HOME=$home/.config XDG_RUNTIME_DIR=$home/run
export XDG_DATA_HOME=$home/.local/share QUILLMARK_DRIVES=E=$home/stick
export LC_ALL=C.UTF-8
unset XDG_CURRENT_DESKTOP DESKTOP_SESSION KDE_FULL_SESSION KDE_SESSION_VERSION QT_QPA_PLATFORM
mkdir -p "$home/juegos" "$home/programa" && mkdir -m 700 "$home/run"
start_display 1366x850
trap 'kill ${pid:-} $display_pids 2>/dev/null; rm -rf "$home"' EXIT

fail() {
    echo "FAILED: $*" >&2
    import -window root "${TMPDIR:-/tmp}/quillmark-e2e.png"
    exit 1
}
wait_for() { # WHAT COMMAND...
    local what=$1
    shift
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return
        kill -0 "$pid" 2>/dev/null || [ "$what" = "end of the program" ] || fail "$what: the program ended"
        sleep 0.1
    done
    fail "$what"
}
content() { cmp -s <(printf -- "$2") "$1"; } # FILE, the bytes as printf writes them
ended() { ! kill -0 "$pid" 2>/dev/null; }
on_top() { xdotool getactivewindow getwindowname | grep -q "$1"; }
nothing_on_top() { ! on_top .; }
# Visible, too: a new window can have the number of the last active one before it is shown.
main_window() { xdotool search --onlyvisible --name '^Quillmark v' && on_top '^Quillmark v'; }
start() {
    start_by "$program" "$@"
}
start_by() { # COMMAND...
    "$@" &
    pid=$!
    wait_for "main window" main_window
    sleep 0.5
}
press() { xdotool key --delay 60 "$@"; }
type_text() { xdotool type --delay 15 "$1"; }
# A new script comes with the explorer in front of it, which is closed again.
close_explorer() {
    sleep 0.5
    press ctrl+F4
    sleep 0.3
}
leave() {
    press ctrl+q
    wait_for "question before the end" on_top '^Quillmark$'
    sleep 0.3
    press Return
    wait_for "end of the program" ended
    wait_for "end of the program" nothing_on_top
}
