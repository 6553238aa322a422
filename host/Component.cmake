# A component is a library of its own, on a library of the system that hosts without it then do not
# need: `forme_component(hunspell ...)` makes the target Forme::hunspell, which hosts include as
# <forme-hunspell/...>, the package's component of that name and forme-hunspell.pc.
#   HEADER, SOURCES   of the folder
#   TITLE             what it is
#   NEEDS             the header and the names of the library of the system
#   PACKAGE           the Debian package that has both
# FORME_HUNSPELL decides: ON insists on it, AUTO builds it where the library is there.
function(forme_component name)
  cmake_parse_arguments(ARG "" "HEADER;TITLE;PACKAGE" "SOURCES;NEEDS;INCLUDE_SUFFIXES" ${ARGN})
  string(TOUPPER ${name} NAME)
  set(FORME_${NAME} AUTO CACHE STRING "Build ${ARG_TITLE}: ON, OFF, or AUTO where ${ARG_PACKAGE} is there")
  set_property(CACHE FORME_${NAME} PROPERTY STRINGS AUTO ON OFF)
  if(NOT FORME_${NAME})
    return()
  endif()

  list(POP_FRONT ARG_NEEDS header)
  find_path(${NAME}_INCLUDE_DIR ${header} PATH_SUFFIXES ${ARG_INCLUDE_SUFFIXES})
  find_library(${NAME}_LIBRARY NAMES ${ARG_NEEDS})
  mark_as_advanced(${NAME}_INCLUDE_DIR ${NAME}_LIBRARY)
  if(NOT ${NAME}_INCLUDE_DIR OR NOT ${NAME}_LIBRARY)
    if(NOT FORME_${NAME} STREQUAL "AUTO")
      message(FATAL_ERROR "FORME_${NAME} is ON, but what it needs is not there (Debian: ${ARG_PACKAGE})")
    endif()
    message(STATUS "${ARG_PACKAGE} is not there: without ${ARG_TITLE}")
    return()
  endif()

  # Hosts include the header by this path, installed or not.
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/include/forme-${name} SYMBOLIC)

  # The object library is what tests link, as with the library itself.
  add_library(forme_${name}_objects OBJECT ${ARG_SOURCES})
  target_compile_definitions(forme_${name}_objects PRIVATE FORME_${NAME}_BUILDING)
  target_include_directories(forme_${name}_objects
    PUBLIC $<TARGET_PROPERTY:forme,INTERFACE_INCLUDE_DIRECTORIES>
    PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_include_directories(forme_${name}_objects SYSTEM PRIVATE ${${NAME}_INCLUDE_DIR})
  target_link_libraries(forme_${name}_objects PRIVATE forme_warnings PUBLIC ${${NAME}_LIBRARY})

  add_library(forme_${name} SHARED $<TARGET_OBJECTS:forme_${name}_objects>)
  add_library(Forme::${name} ALIAS forme_${name})
  target_link_libraries(forme_${name} PUBLIC Forme::forme PRIVATE ${${NAME}_LIBRARY})
  target_include_directories(forme_${name} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  set_target_properties(forme_${name} PROPERTIES EXPORT_NAME ${name} OUTPUT_NAME forme-${name}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH $ORIGIN)

  install(TARGETS forme_${name} EXPORT Forme-${name})
  install(FILES ${ARG_HEADER} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/forme-${name})
  install(EXPORT Forme-${name} NAMESPACE Forme:: FILE Forme-${name}.cmake DESTINATION ${FORME_CMAKE_DIR})
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/forme-${name}.pc @ONLY CONTENT [=[
prefix=${pcfiledir}/@FORME_PREFIX_FROM_PKGCONFIG@
includedir=${prefix}/@CMAKE_INSTALL_INCLUDEDIR@
libdir=${prefix}/@CMAKE_INSTALL_LIBDIR@

Name: Forme @name@
Description: For Forme, @ARG_TITLE@
Version: @PROJECT_VERSION@
Requires: forme = @PROJECT_VERSION@
Cflags: -I${includedir}
Libs: -L${libdir} -lforme-@name@
]=])
  install(FILES ${PROJECT_BINARY_DIR}/forme-${name}.pc DESTINATION ${FORME_PKGCONFIG_DIR})
endfunction()
