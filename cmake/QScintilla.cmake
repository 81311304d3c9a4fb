# SPDX-License-Identifier: GPL-3.0-or-later
# Debian's QScintilla brings no CMake package: this finds it and makes the target QScintilla::QScintilla.
find_path(QSCINTILLA_INCLUDE_DIR Qsci/qsciscintilla.h
  HINTS ${Qt6Core_INCLUDE_DIRS} PATH_SUFFIXES qt6 REQUIRED)
find_library(QSCINTILLA_LIBRARY NAMES qscintilla2_qt6 REQUIRED)

add_library(QScintilla::QScintilla UNKNOWN IMPORTED)
set_target_properties(QScintilla::QScintilla PROPERTIES
  IMPORTED_LOCATION "${QSCINTILLA_LIBRARY}"
  INTERFACE_INCLUDE_DIRECTORIES "${QSCINTILLA_INCLUDE_DIR}"
  INTERFACE_LINK_LIBRARIES "Qt6::Widgets;Qt6::PrintSupport")
