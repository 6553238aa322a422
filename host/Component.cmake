# A component is a library of its own, on a library of the system that hosts without it then do not
# need: `forme_component(hunspell ...)` makes the target Forme::hunspell, which hosts include as
# <forme-hunspell/...>, the package's component of that name and forme-hunspell.pc.
#   HEADER, SOURCES   of the folder
#   TITLE             what it is
#   NEEDS             what pkg-config calls the library of the system
#   PACKAGE           the Debian package that has it
# FORME_HUNSPELL decides: ON insists on it, AUTO builds it where the library is there.
function(forme_component name)
  cmake_parse_arguments(ARG "" "HEADER;TITLE;PACKAGE;NEEDS" "SOURCES" ${ARGN})
  string(TOUPPER ${name} NAME)
  set(FORME_${NAME} AUTO CACHE STRING "Build ${ARG_TITLE}: ON, OFF, or AUTO where ${ARG_PACKAGE} is there")
  set_property(CACHE FORME_${NAME} PROPERTY STRINGS AUTO ON OFF)
  if(NOT FORME_${NAME})
    return()
  endif()

  set(needs FORME_${NAME}_NEEDS)
  find_package(PkgConfig QUIET)
  if(PKG_CONFIG_FOUND)
    pkg_check_modules(${needs} QUIET IMPORTED_TARGET GLOBAL ${ARG_NEEDS})
  endif()
  if(NOT ${needs}_FOUND)
    if(NOT FORME_${NAME} STREQUAL "AUTO")
      message(FATAL_ERROR "FORME_${NAME} is ON, but pkg-config finds no ${ARG_NEEDS} (Debian: ${ARG_PACKAGE})")
    endif()
    message(STATUS "pkg-config finds no ${ARG_NEEDS} (Debian: ${ARG_PACKAGE}): without ${ARG_TITLE}")
    return()
  endif()

  # Hosts include the header by this path, installed or not.
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include/forme-${name} SYMBOLIC)
  install(FILES ${ARG_HEADER} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/forme-${name})

  add_library(forme_${name}_objects OBJECT ${ARG_SOURCES})
  forme_exports(forme_${name}_objects FORME_${NAME}_BUILDING)
  target_include_directories(forme_${name}_objects
    PUBLIC $<TARGET_PROPERTY:Forme::forme,INTERFACE_INCLUDE_DIRECTORIES>
    PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(forme_${name}_objects PRIVATE forme_warnings PUBLIC PkgConfig::${needs})

  forme_library(forme_${name} ${name}
    TITLE "For Forme, ${ARG_TITLE}"
    USES forme
    NEEDS PkgConfig::${needs}
    FIND "find_dependency(PkgConfig)\npkg_check_modules(${needs} QUIET IMPORTED_TARGET ${ARG_NEEDS})"
    REQUIRES ${ARG_NEEDS})
endfunction()
