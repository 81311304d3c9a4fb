# SPDX-License-Identifier: GPL-3.0-or-later
# cmake -D SOURCE=<file> -D TARGET=<file> -P EmbedBytes.cmake
#
# Writes the bytes of SOURCE to TARGET as what stands between the braces of an array of char.
file(READ "${SOURCE}" bytes HEX)
string(REGEX REPLACE "(..)" "'\\\\x\\1'," bytes "${bytes}")
file(WRITE "${TARGET}" "${bytes}\n")
