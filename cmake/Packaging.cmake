# SPDX-License-Identifier: GPL-3.0-or-later
# The Debian package that CPack makes of an installation.

# Debian wants texts packed with gzip -9n: without a time or a name in them.
find_program(GZIP gzip REQUIRED)
set(QUILLMARK_PACKER "${GZIP}" -9nc)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillmark)
set(CPACK_PACKAGE_VENDOR "The Quillmark developers")
set(CPACK_PACKAGE_CONTACT "The Quillmark developers <developers@quillmark.example>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "development environment for a handheld console's Lua scripts")
set(CPACK_PACKAGE_DESCRIPTION
"Quillmark is an editor for Lua scripts that run on a handheld console under a
Lua player, with a catalogue of the player's calls, a colour mixer, the
console's screen to measure positions on, a player for the desktop, the
transfer to the memory stick, a file explorer and printing. Its texts are
Spanish.")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/../packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
  GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION devel)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n, libqscintilla2-qt6-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "desktop-file-utils, fonts-dejavu-core, shared-mime-info, xdg-utils")
include(CPack)
