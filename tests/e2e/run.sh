#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Drives the program given as a user would: keys in a real window, real files. Each step waits for
# what it expects to see and fails if that doesn't come.
set -uo pipefail
. "$(dirname "$0")/window.sh"

is_default() { [ "$(xdg-mime query default "$1")" = "$2" ]; } # MIME type, desktop entry
begins() { printf "$2" | cmp -s -n "$(printf "$2" | wc -c)" - "$1"; }
back() { press "$@" && wait_for "main window again" main_window; } # KEY..., which close a dialog
pick() { # TITLE FILE: in the file dialog of that title
    wait_for "file dialog" on_top "$1"
    type_text "$2"
    press Return
}
# FILE, which holds a z: the program has opened it, and so what is typed before that is saved there.
is_edited() {
    close_explorer
    type_text 'hola '
    press ctrl+s
    wait_for "edited file $1" content "$1" 'hola z'
    leave
}

# The terminal is answered without a display, as far as these stand alone.
[[ $(env -u DISPLAY "$program" --version) =~ ^Quillmark\ [0-9.]+$ ]] || fail "--version"
env -u DISPLAY "$program" --help | grep -q 'quillmark --imprimir \[ARCHIVO\]' || fail "--help"

# The first run opens the configuration and no script. Both types of files are registered there.
mkdir "$QUILLMARK_HOME/QM"
printf '#!/bin/sh\necho "$PWD $1" >"$HOME/visto"\ncp "$1" "$HOME/copia.lua"\n' >"$QUILLMARK_HOME/QM/luaplayer"
chmod +x "$QUILLMARK_HOME/QM/luaplayer"
printf '[inicio]\r\nejecuciones=0\r\n[general]\r\nnuevo=no\r\n' >"$QUILLMARK_HOME/config.ini"
start
wait_for "mark of the first run" grep -q 'ejecuciones=1' "$QUILLMARK_HOME/config.ini"
press space Tab
type_text 'E'
press Tab Return Tab Return
wait_for "player of .lua" is_default text/x-lua quillmark-lua.desktop
wait_for "program of .qmk" is_default text/x-quillmark-qmk quillmark-qmk.desktop
press Tab Return
wait_for "settings" content "$QUILLMARK_HOME/config.ini" \
    '[inicio]\r\nejecuciones=1\r\n[general]\r\nnuevo=si\r\n[explorador]\r\npath=E\r\n'
leave

# The second one begins with a blank script; it is typed in and saved under a name.
start
close_explorer
type_text 'print(1)'
press Return ctrl+s
pick '^Guardar como' "$home/juegos/nuevo.qmk"
wait_for "saved script" begins "$home/juegos/nuevo.qmk" 'print(1)\r\nwhile true do\rscreen:clear()\r\n'

# What is in the editor runs, saved or not.
type_text '2'
press F5
wait_for "test run" begins "$home/copia.lua" 'print(1)\r\n2while true'
content "$home/visto" "$QUILLMARK_HOME $QUILLMARK_HOME/temp.lua\n" || fail "folder or argument of the player"

# The .lua file is written, and replaced after a question.
press F6
pick '^Guardar como' "$home/juegos/juego.lua"
wait_for "message" on_top '^Quillmark$'
begins "$home/juegos/juego.lua" 'print(1)\r\n2while true' || fail "generated file"
back Return
type_text '3'
press F6
pick '^Guardar como' "$home/juegos/juego.lua"
wait_for "question" on_top '^Quillmark$'
sleep 0.3
press Return
wait_for "generated file" begins "$home/juegos/juego.lua" 'print(1)\r\n23while true'
sleep 0.5
back Return
press ctrl+s

# Calls of three tabs go to the caret of the script made with Nuevo, and typing goes on there.
press ctrl+n
close_explorer
press F1
sleep 0.5
press Tab Down Return F1 ctrl+Tab Tab Down Down Return F1 ctrl+Tab ctrl+Tab ctrl+Tab Tab Down Return
type_text 'x'
press F5
wait_for "snippets" begins "$home/copia.lua" \
    'screen.flip()Image:save( filename )while ___ do     --cambia ___ por la comparaci\xf3n que deses usar\r\n\r\nendxwhile true'

# A file of another encoding and mixed line ends is opened, changed at its head and saved.
printf 'a\xf1o\n\rfin' >"$home/juegos/viejo.lua"
press ctrl+a
pick 'Abrir archivo' "$home/juegos/viejo.lua"
wait_for "main window again" main_window
sleep 1
type_text 'x'
press ctrl+z ctrl+y ctrl+s
wait_for "changed file" content "$home/juegos/viejo.lua" 'xa\xf1o\n\rfin'

# Closing asks; the answer is no.
type_text 'basura'
press ctrl+F4
wait_for "question about changes" on_top '^viejo.lua$'
back Right Return
content "$home/juegos/viejo.lua" 'xa\xf1o\n\rfin' || fail "the file changed although it wasn't saved"

# The script goes to the memory stick with its loader and drivers.
mkdir -p "$home/stick/PSP/GAME150"
press ctrl+n
close_explorer
eval "$(xdotool getactivewindow getwindowgeometry --shell)"
for height in 26 32 38 44 50; do # one of them is on the strip above the text
    xdotool mousemove $((X + 200)) $((Y + height))
    sleep 0.2
done
type_text '1'
press F7
sleep 0.5
type_text 'E'
press Tab Down Down Tab Down Down Down alt+t
project="$home/stick/PSP/GAME150/Nuevo scri"
wait_for "last driver" cmp "$project/LPHMDRIVER/syslib.prx" "$QUILLMARK_HOME/data/syslib.prx"
cmp "$project/EBOOT.PBP" "$QUILLMARK_HOME/data/EBOOT3.PBP" || fail "loader"
begins "$project/script.lua" '1while true' || fail "script on the stick"
press Escape

# The recent list lives on, and its entry opens the file.
leave
start
grep -q 'viejo.lua' "$XDG_CONFIG_HOME/Quillmark/Accesos Recientes.conf" || fail "recent list"
press F10
sleep 1
press Up Up Right Return
sleep 2
type_text 'y'
press ctrl+s
wait_for "file from the recent list" content "$home/juegos/viejo.lua" 'yxa\xf1o\n\rfin'
leave

# A file on the command line, its name with a blank, relative to where the program was started.
printf 'z' >"$home/juegos/dos palabras.lua"
sed -i 's/nuevo=si/nuevo=no/' "$QUILLMARK_HOME/config.ini"
cd "$home/juegos"
start dos palabras.lua
is_edited "dos palabras.lua"

# The desktop opens a registered file with the program.
printf 'z' >"$home/juegos/mi juego.qmk"
start_by xdg-open "$home/juegos/mi juego.qmk"
is_edited "$home/juegos/mi juego.qmk"

# So does one that is named as an option is, by its path.
printf 'z' >./--help
start ./--help
is_edited ./--help

# The print window comes with its file and has the focus at its first button.
printf '{\\rtf1 hola}' >carta.rtf
start --imprimir carta.rtf
press space
wait_for "dialog of the print window" on_top '^Abrir$'
back Escape
leave

# One that isn't there is told, and the program stands.
"$program" "no hay.lua" 2>"$home/errores" &
pid=$!
wait_for "error" grep -q 'no hay.lua' "$home/errores"
sleep 1
press Return
wait_for "main window" main_window
leave
echo "e2e: all steps passed"
