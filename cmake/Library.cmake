# SPDX-License-Identifier: GPL-3.0-or-later

# quillmark_library(<folder> [WINDOWS] [USES <folder>...] [LINKS <target>...])
#
# Makes the target quillmark_<folder>, with _ for /: the static library of a folder below src, or of
# one of the player's, from all its sources but main.cpp. USES names the folders whose headers it
# may include. It can't include others: each library has an include folder that leads to its own
# headers only. WINDOWS: for sources with signals or slots, or .ui files.
function(quillmark_library folder)
  cmake_parse_arguments(PARSE_ARGV 1 arg "WINDOWS" "" "USES;LINKS")
  string(REPLACE "/" "_" name "quillmark_${folder}")
  file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/*.cpp"
    "${CMAKE_CURRENT_SOURCE_DIR}/*.h")
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  add_library(${name} STATIC ${sources})
  if(arg_WINDOWS)
    set_target_properties(${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
  endif()

  set(headers "${PROJECT_BINARY_DIR}/include/${name}")
  cmake_path(GET folder PARENT_PATH above)
  file(MAKE_DIRECTORY "${headers}/${above}")
  file(CREATE_LINK "${CMAKE_CURRENT_SOURCE_DIR}" "${headers}/${folder}" SYMBOLIC)
  target_include_directories(${name} PUBLIC "${headers}")

  list(TRANSFORM arg_USES REPLACE "/" "_")
  list(TRANSFORM arg_USES PREPEND "quillmark_")
  target_link_libraries(${name} PUBLIC quillmark_options ${arg_USES} ${arg_LINKS})
endfunction()
