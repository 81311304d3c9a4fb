# SPDX-License-Identifier: GPL-3.0-or-later
# What an installation holds.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DOCDIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/quillmark)

install(TARGETS quillmark DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS luaplayer DESTINATION ${CMAKE_INSTALL_LIBEXECDIR}/quillmark/QM)
install(DIRECTORY data/ DESTINATION ${CMAKE_INSTALL_DATADIR}/quillmark)

install(FILES packaging/quillmark.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/quillmark.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
configure_file(packaging/org.quillmark.quillmark.metainfo.xml.in
  org.quillmark.quillmark.metainfo.xml @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/org.quillmark.quillmark.metainfo.xml"
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

# Installs a text with the version put into it, packed if a packer is given.
function(install_text source folder name)
  set(text "${PROJECT_BINARY_DIR}/texts/${folder}/${name}")
  configure_file(${source} "${text}" @ONLY)
  if(QUILLMARK_PACKER)
    execute_process(COMMAND ${QUILLMARK_PACKER} "${text}"
      OUTPUT_FILE "${text}.gz" COMMAND_ERROR_IS_FATAL ANY)
    string(APPEND text .gz)
  endif()
  install(FILES "${text}" DESTINATION "${folder}")
endfunction()
install_text(packaging/debian/changelog.in ${CMAKE_INSTALL_DOCDIR} changelog)
install_text(packaging/man/quillmark.1.in ${CMAKE_INSTALL_MANDIR}/man1 quillmark.1)
install_text(packaging/man/quillmark.es.1.in ${CMAKE_INSTALL_MANDIR}/es/man1 quillmark.1)
