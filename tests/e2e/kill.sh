#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# kill.sh PROGRAM [RUNS [SEED]]: kills the program with SIGKILL at random moments of opening,
# editing, saving, test runs, generated files and settings, and looks at each file afterwards: it
# must be one of the whole versions that it can be. Prints how often a write was cut short, which
# the hidden file beside the target tells. Fails at the first half file.
set -uo pipefail
. "$(dirname "$0")/window.sh"

runs=${2:-200}
RANDOM=${3:-1}
declare -A kills cut
settings='[inicio]\r\nejecuciones=1\r\n[general]\r\nnuevo=no\r\n[explorador]\r\npath=%s\r\n'
recent="$XDG_CONFIG_HOME/Quillmark/Accesos Recientes.conf"

# Every version of a text is x, once or more or never, before its first one.
whole() { # FILE FIRST-VERSION
    local typed=$(($(stat -c %s "$1") - $(stat -c %s "$2")))
    [ $typed -ge 0 ] && cmp -s <(tail -c +$((typed + 1)) "$1") "$2" &&
        [ -z "$(head -c $typed "$1" | tr -d x)" ]
}
whole_or_missing() { [ ! -e "$1" ] || whole "$1" "$2"; }
# A line end stands behind the text, and alone before the first test run.
whole_temp() {
    [ ! -e "$QUILLMARK_HOME/temp.lua" ] || cmp -s "$QUILLMARK_HOME/temp.lua" <(printf '\r\n') ||
        { (cat "$home/primero" && printf '\r\n') >"$home/temporal" &&
            whole "$QUILLMARK_HOME/temp.lua" "$home/temporal"; }
}
whole_settings() {
    cmp -s "$QUILLMARK_HOME/config.ini" <(printf "$settings" "$1") ||
        cmp -s "$QUILLMARK_HOME/config.ini" <(printf "$settings" "$2")
}
# Names of a section, or entries that end in a name of ours.
whole_recent() { [ ! -e "$recent" ] || ! grep -qvE '^(\[[^]]+\]|[^=]+=.*\.(qmk|lua)"?|[^=]+=[0-9]*|)$' "$recent"; }
cut_writes() {
    find "$home/juegos" "$QUILLMARK_HOME" "$home/nueva" \( -name '.quillmark-*.tmp' -o -name '*.new' \)
}

soon() { # COMMAND...
    for _ in $(seq 40); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.05
    done
}
guardar() { press x ctrl+s; }
ejecutar() { press x F5; }
generar() {
    press x F6
    soon on_top '^Guardar como'
    type_text "$home/juegos/generado.lua"
    press Return
    for _ in 1 2; do # the question about the file that is there, the message
        soon on_top '^Quillmark$'
        sleep 0.1
        press Return
    done
    soon main_window
}
configurar() {
    press F4 Tab
    type_text "$((RANDOM % 2))"
    press Tab Tab Tab Return
}
abrir() { sleep 1; }
llenar() { sleep 1; }

look() { # MODE FILE
    whole "$2" "$home/primero" || fail "$1: half a document"
    whole_temp || fail "$1: half a temp.lua"
    whole_or_missing "$home/juegos/generado.lua" "$home/primero" || fail "$1: half a generated file"
    whole_settings 0 1 || fail "$1: half the settings"
    whole_recent || fail "$1: half a recent list"
}
# The folder of a fresh user must hold whole files only; what was being copied has another name.
look_filled() {
    local file
    find "$home/nueva" -type f -not -name '*.new' | while read -r file; do
        cmp -s "$file" "$share/${file#"$home/nueva/"}" || fail "llenar: half of $file"
    done || exit 1
}

share=$(dirname "$program")/../share/quillmark
modes=(guardar guardar guardar guardar guardar ejecutar ejecutar generar generar configurar configurar abrir llenar)
sizes=(1 2000 400000 400000) # lines: some bytes, 40 KB, 8 MB
mkdir "$home/nueva"
mkdir "$QUILLMARK_HOME/QM"
printf '#!/bin/sh\n' >"$QUILLMARK_HOME/QM/luaplayer" && chmod +x "$QUILLMARK_HOME/QM/luaplayer"
printf "$settings" 0 >"$QUILLMARK_HOME/config.ini"

for run in $(seq "$runs"); do
    mode=${modes[RANDOM % ${#modes[@]}]}
    seq -f 'print("línea %g")' "${sizes[RANDOM % ${#sizes[@]}]}" | sed 's/$/\r/' | iconv -t WINDOWS-1252 >"$home/primero"
    file=$home/juegos/juego$((RANDOM % 30)).$([ $((RANDOM % 2)) = 0 ] && echo lua || echo qmk)
    rm -f "$QUILLMARK_HOME/temp.lua" "$home/juegos"/*
    cp "$home/primero" "$file"
    case $mode in
    llenar)
        rm -rf "$home/nueva"
        QUILLMARK_HOME=$home/nueva "$program" "$file" 2>/dev/null &
        pid=$!
        sleep "0.$((RANDOM % 40 + 10))"
        ;;
    abrir)
        "$program" "$file" 2>/dev/null &
        pid=$!
        sleep "$((5 + RANDOM % 3)).$((RANDOM % 10))"
        ;;
    *)
        start "$file" 2>/dev/null
        close_explorer
        (while :; do "$mode"; done) &
        driver=$!
        sleep "$((RANDOM % 3)).$((RANDOM % 1000))"
        ;;
    esac
    kill -9 "$pid"
    [ -n "${driver:-}" ] && kill "$driver" && wait "$driver" 2>/dev/null
    driver=
    wait "$pid" 2>/dev/null
    kills[$mode]=$((${kills[$mode]:-0} + 1))
    cut[$mode]=$((${cut[$mode]:-0} + $(cut_writes | wc -l)))
    look "$mode" "$file"
    if [ "$mode" = llenar ]; then look_filled; fi
    cut_writes | xargs -r -d '\n' rm
done
for mode in "${!kills[@]}"; do
    echo "$mode: ${kills[$mode]} kills, ${cut[$mode]} in the middle of a write"
done
echo "kill: no half file in $runs runs"
