# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -D SOURCE=<file> -D TARGET=<file> -P EmbedBytes.cmake
#
# Writes the bytes of SOURCE to TARGET as initialisers of a char array, to be included in braces.
file(READ "${SOURCE}" bytes HEX)
string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
file(WRITE "${TARGET}" "${bytes}\n")
