#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# kill.sh PROGRAM [RUNS] [SEED]: kills the program at random moments while it writes files, then looks
# whether each file is whole and starts it again. A document is its body, known to the byte, behind
# the x and line ends that were typed, so neither a half file nor a mixture of versions passes.
set -uo pipefail
. "$(dirname "$0")/window.sh"

runs=${2:-200}
RANDOM=${3:-1}
work=$home/juegos bodies=$home/cuerpos
mkdir -p "$bodies" "$QUILLMARK_HOME/QM" "$home/stick/PSP/GAME150"

installed=$(dirname "$(dirname "$program")")/share/quillmark
recent="$XDG_CONFIG_HOME/Quillmark/Accesos Recientes.conf"
documents=(uno.qmk dos.lua tres.qmk cuatro.lua)
lines=(20 3000 40000 120000) # the largest has some MB
phases=(save run generate open settings transfer fill)
for i in "${!documents[@]}"; do
    seq -f "print( %.0f ) -- ${documents[i]}" "${lines[i]}" | sed 's/$/\r/' >"$bodies/${documents[i]}"
done
cp "$bodies"/* "$work"
printf '#!/bin/sh\nexit 0\n' >"$QUILLMARK_HOME/QM/luaplayer"
chmod +x "$QUILLMARK_HOME/QM/luaplayer"
printf '[inicio]\r\nejecuciones=1\r\n[general]\r\nnuevo=no\r\n[explorador]\r\npath=E\r\n' \
    >"$QUILLMARK_HOME/config.ini"

press() { xdotool key --delay 20 "$@"; } # faster than a user
type_text() { xdotool type --delay 5 "$1"; }
alive() { kill -0 "$pid" 2>/dev/null; }
main_window_there() { xdotool search --onlyvisible --name '^Quillmark v' >/dev/null 2>&1; }

# Types into the window of that title, if it comes in front soon.
answer() { # TITLE [TEXT]
    for _ in $(seq 15); do
        if xdotool getactivewindow getwindowname 2>/dev/null | grep -q "$1"; then
            sleep 0.1
            type_text "${2:-}"
            press Return
            sleep 0.1
            return
        fi
        sleep 0.05
    done
}

# What the user does again and again, until the program is gone.
save() { type_text x; press ctrl+s; }
run() { type_text x; press F5; }
generate() {
    type_text x
    press F6
    answer '^Guardar como' "$work/generado.lua"
    answer '^Quillmark$' # the question, or the message
    answer '^Quillmark$'
}
open() {
    press ctrl+a
    answer 'Abrir archivo' "$work/${documents[RANDOM % 4]}"
}
settings() {
    press F4
    sleep 0.2
    press Tab
    type_text "$(printf '%b' "\\x$((RANDOM % 6 + 41))")"
    press Tab Tab Tab Return
}
transfer() {
    press F7
    sleep 0.3
    type_text E
    press Tab Down Down Tab Down Down Down alt+t
    sleep 0.3
    press Return Escape
}

failed=0
bad() {
    failed=$((failed + 1))
    echo "run $n, $phase: $*"
}
# FILE [TAIL]: what was typed, the body of a document and the bytes that the command adds.
whole() {
    local body size length
    for body in "$bodies"/*; do
        size=$(($(stat -c %s "$body") + $(printf "${2:-}" | wc -c)))
        length=$(($(stat -c %s "$1") - size))
        [ "$length" -ge 0 ] && [ -z "$(head -c "$length" "$1" | tr -d 'x\r\n')" ] &&
            tail -c "$size" "$1" | cmp -s - <(cat "$body"; printf "${2:-}") && return
    done
    return 1
}
check() { # FILE COMMAND...: a file that may be missing
    [ -e "$1" ] || return 0
    checked=$((checked + 1))
    "${@:2}" || bad "half file: ${1#"$home"/} ($(stat -c %s "$1") bytes)"
}
whole_temporary() { whole "$1" '\r\n' || cmp -s "$1" <(printf '\r\n'); }
whole_script() { whole "$1" || whole "$1" '\r\n'; }
whole_settings() {
    tr '\r\n' '|/' <"$1" |
        grep -qxE '\[inicio\]\|/ejecuciones=1\|/\[general\]\|/nuevo=no\|/\[explorador\]\|/path=[A-Z]*\|/'
}
# The keys from 1 on without a gap, each path once, and none gone that was there.
whole_recent() {
    grep -E '^[0-9]+=' "$1" | cut -d= -f2 | sort >"$home/ahora"
    [ "$(grep -oE '^[0-9]+' "$1" | paste -sd' ')" = "$(seq -s' ' "$(wc -l <"$home/ahora")")" ] &&
        [ -z "$(uniq -d "$home/ahora")" ] && [ -z "$(comm -23 "$home/antes" "$home/ahora")" ] &&
        cp "$home/ahora" "$home/antes"
}
check_files() {
    local file
    for file in "${documents[@]}"; do
        [ -e "$work/$file" ] || bad "lost: $file"
        check "$work/$file" whole "$work/$file"
    done
    for file in "$work/generado.lua" "$home"/stick/PSP/GAME150/*/script.lua; do
        check "$file" whole_script "$file"
    done
    check "$QUILLMARK_HOME/temp.lua" whole_temporary "$QUILLMARK_HOME/temp.lua"
    check "$QUILLMARK_HOME/config.ini" whole_settings "$QUILLMARK_HOME/config.ini"
    check "$recent" whole_recent "$recent"
    while read -r file; do
        bad "a stray file: $file"
    done < <(cd "$work" && find . -type f ! -name '.quillmark-*' | grep -vxE './(uno.qmk|dos.lua|tres.qmk|cuatro.lua|generado.lua)')
    for file in "$home"/stick/PSP/GAME150/*/EBOOT.PBP; do
        check "$file" cmp -s "$file" "$installed/data/EBOOT3.PBP"
    done
    while read -r file; do
        check "$QUILLMARK_HOME/$file" cmp -s "$QUILLMARK_HOME/$file" "$installed/$file"
    done < <(cd "$installed" && find . -type f ! -name config.ini)
}

# The moment is counted from the start of the program in the phase "fill", which finds its data
# missing, otherwise from the first command of the phase. What is begun in a phase goes on with saves.
start() { # DOCUMENT
    "$program" "$work/$1" 2>/dev/null &
    pid=$!
}
wait_for_window() {
    for _ in $(seq 400); do
        main_window_there && sleep 0.7 && return
        alive || break
        sleep 0.1
    done
    bad "the program doesn't start"
    return 1
}
drive() { # PHASE
    while alive; do
        "$1"
        sleep 0.1
        "$1"
        save
    done
}
die_in() { # MILLISECONDS
    sleep "$(printf '%d.%03d' $(($1 / 1000)) $(($1 % 1000)))"
    alive || bad "the program ended by itself"
    kill -9 "${pid:-}" 2>/dev/null
    wait "$pid" 2>/dev/null
}

declare -A kills half
checked=0
touch "$home/antes"
report() {
    kill -9 "${pid:-}" 2>/dev/null
    kill $display_pids
    printf '%-10s %6s %6s\n' phase kills faults
    for phase in "${phases[@]}"; do
        printf '%-10s %6d %6d\n' "$phase" "${kills[$phase]:-0}" "${half[$phase]:-0}"
    done
    echo "$checked files looked at; what is left beside them:"
    (cd "$home" && find . -name '.quillmark-*' -o -name '*.new' -o -name '*.lock' -o -name '*.conf.*') |
        sed -E 's/[0-9]+/N/g; s/\.[A-Za-z]{6}$/.XXXXXX/' | sort | uniq -c
    rm -rf "$home"
}
trap report EXIT

for n in $(seq "$runs"); do
    phase=${phases[RANDOM % ${#phases[@]}]}
    document=${documents[RANDOM % 4]}
    before=$failed
    if [ "$phase" = fill ]; then
        rm -rf "$QUILLMARK_HOME"/{Code,data,Update,pspantalla,Skin.bmp}
        start "$document"
        die_in $((RANDOM % 1000))
    else
        start "$document"
        wait_for_window || break
        xdotool mousemove $((60 + RANDOM % 300)) $((120 + RANDOM % 60))
        press ctrl+F4 # the explorer
        drive "$phase" 2>/dev/null &
        driver=$!
        die_in $((RANDOM % 3000))
        wait "$driver"
    fi
    kills[$phase]=$((${kills[$phase]:-0} + 1))
    check_files
    half[$phase]=$((${half[$phase]:-0} + failed - before))
done
start "${documents[0]}"
phase=end
wait_for_window && die_in 0
[ "$failed" -eq 0 ]
