#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Walks through the keys of the editor in the program given, on a Spanish keyboard, and looks at
# what the file holds after each of them.
set -uo pipefail
. "$(dirname "$0")/window.sh"
setxkbmap es

script=$home/juegos/paseo.lua
# WHAT, the bytes of the file as printf writes them: what the keys before have made of the text.
saved() {
    press ctrl+s
    wait_for "$1" content "$script" "$2"
}
undo_to_start() {
    for _ in $(seq 40); do echo ctrl+z; done | xargs xdotool key --delay 15
    saved "back to the start" "$start"
    press ctrl+Home
}

start='local uno = 1\nfunction f(a)\n  return a\nend\nf(uno)\n'
printf "$start" >"$script"
printf 'uno()\n-- otro uno\n' >"$home/juegos/otro.lua"
sed -i 's/.*nuevo=.*/nuevo=no/' "$QUILLMARK_HOME/config.ini" 2>/dev/null ||
    printf '[inicio]\r\nejecuciones=1\r\n[general]\r\nnuevo=no\r\n' >"$QUILLMARK_HOME/config.ini"
cd "$home/juegos"
start paseo.lua
close_explorer

# Find: what is found is selected when the bar has gone. Replace: all of it at once.
press ctrl+f
type_text 'uno'
press Return Escape
type_text 'dos'
saved "found word" 'local uno = 1\nfunction f(a)\n  return a\nend\nf(dos)\n'
undo_to_start
press ctrl+h
type_text 'uno'
press Tab
type_text 'dos'
press alt+t Escape
saved "all replaced" 'local dos = 1\nfunction f(a)\n  return a\nend\nf(dos)\n'
undo_to_start

# Lines.
press ctrl+k
saved "comment" "-- $start"
press ctrl+k ctrl+d
saved "doubled line" "local uno = 1\n$start"
press ctrl+shift+k
saved "line gone" "$start"
press ctrl+Home alt+Down
saved "moved line" 'function f(a)\nlocal uno = 1\n  return a\nend\nf(uno)\n'
press alt+Up
saved "moved back" "$start"

# To a line, to the end of its block, to a function, to a sign.
press ctrl+g
type_text '2:1'
press Return ctrl+b
type_text 'x'
saved "other end of the block" 'local uno = 1\nfunction f(a)\n  return a\nxend\nf(uno)\n'
undo_to_start
press End ctrl+F2 ctrl+End ctrl+shift+o
type_text 'f'
press Return
type_text 'y'
saved "function of the list" 'local uno = 1\nfunction yf(a)\n  return a\nend\nf(uno)\n'
press BackSpace alt+Prior
type_text 'z'
saved "signed line" "z$start"
undo_to_start

# Writing: the list, the brackets, the indentation.
press ctrl+End
type_text 'if unp'
press Tab
type_text ' then'
press Return
type_text 'screen:cl'
press Tab
type_text '('
press End Return
type_text 'end'
saved "written block" "${start}if unpack then\n  screen:clear()\nend"
undo_to_start

# The error is gone to; what is folded is saved whole; size, help and lists change nothing.
press ctrl+End
type_text 'x = = 2'
sleep 1
press ctrl+Home F8
type_text 'y'
saved "place of the error" "${start}x = y= 2"
undo_to_start
press Down ctrl+m ctrl+shift+m ctrl+shift+m ctrl+plus ctrl+minus ctrl+0 shift+F1 Escape
press ctrl+space Escape ctrl+shift+space Escape ctrl+F3 ctrl+shift+F3 Escape
saved "looks" "$start"

# The folder: the line of another script opens and is written in.
press ctrl+shift+f
type_text 'otro uno'
press Return
sleep 1
press Down Return
sleep 0.5
type_text 'x'
script=$home/juegos/otro.lua
saved "line of another script" 'uno()\nx-- otro uno\n'
leave
echo "e2e: the editor's keys all did what they should"
