# SPDX-License-Identifier: GPL-3.0-or-later
# What an installation holds, and the Debian package that CPack makes of it.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/quillmark)

install(TARGETS quillmark DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS luaplayer DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quillmark/QM)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quillmark)

install(FILES packaging/quillmark.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/quillmark.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES packaging/org.quillmark.quillmark.metainfo.xml
  DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
set(theme ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES packaging/icons/quillmarkaplication.svg
  DESTINATION ${theme}/scalable/apps RENAME quillmark.svg)
foreach(size 16 32 48 256)
  install(FILES packaging/icons/quillmark-${size}.png
    DESTINATION ${theme}/${size}x${size}/apps RENAME quillmark.png)
endforeach()

install(FILES docs/manual.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs/ejemplos docs/pictures DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES packaging/debian/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})

# Installs a text packed as Debian wants it: hard, and without a time or a name in it.
find_program(GZIP gzip REQUIRED)
function(install_packed source folder name)
  set(packed "${CMAKE_BINARY_DIR}/packed/${folder}/${name}.gz")
  get_filename_component(packed_folder "${packed}" DIRECTORY)
  file(MAKE_DIRECTORY "${packed_folder}")
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${source}")
  execute_process(COMMAND "${GZIP}" -9nc "${CMAKE_SOURCE_DIR}/${source}"
    OUTPUT_FILE "${packed}" COMMAND_ERROR_IS_FATAL ANY)
  install(FILES "${packed}" DESTINATION "${folder}")
endfunction()
install_packed(packaging/debian/changelog ${CMAKE_INSTALL_DOCDIR} changelog)
install_packed(packaging/man/quillmark.1 ${CMAKE_INSTALL_MANDIR}/man1 quillmark.1)
install_packed(packaging/man/quillmark.es.1 ${CMAKE_INSTALL_MANDIR}/es/man1 quillmark.1)

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
