# The kinds of library that are built: what BUILD_SHARED_LIBS chooses, and with FORME_BUILD_STATIC the
# static one besides.
set(FORME_KINDS "")
if(BUILD_SHARED_LIBS)
  list(APPEND FORME_KINDS shared)
endif()
if(FORME_BUILD_STATIC OR NOT BUILD_SHARED_LIBS)
  list(APPEND FORME_KINDS static)
endif()

set(FORME_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Forme)
set(FORME_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

# Below 1.0 every middle number is an interface of its own.
set(FORME_SOVERSION ${PROJECT_VERSION_MAJOR})
if(PROJECT_VERSION_MAJOR EQUAL 0)
  set(FORME_SOVERSION 0.${PROJECT_VERSION_MINOR})
endif()

# Where nothing is shared, nothing is exported either.
function(forme_exports objects building)
  target_compile_definitions(${objects} PRIVATE $<IF:$<BOOL:${BUILD_SHARED_LIBS}>,${building},FORME_STATIC>)
endfunction()

# A library of every kind, all of the objects in `TARGET_objects`. The shared one is the target
# Forme::NAME, the static one Forme::NAME_static; where there is no shared one, both names mean that.
#   USES       the library of this project that its headers include
#   NEEDS      targets of other libraries, of which hosts see nothing
#   FIND       the commands by which a host that links statically finds these
#   REQUIRES   the modules by which pkg-config knows them
#   LIBS       what the linker is given besides
function(forme_library target name)
  cmake_parse_arguments(ARG "" "TITLE;USES;FIND;LIBS" "NEEDS;REQUIRES" ${ARGN})
  string(REPLACE "_" "-" output ${target})
  foreach(kind IN LISTS FORME_KINDS)
    set(suffix "")
    if(kind STREQUAL "static")
      set(suffix _static)
    endif()
    forme_library_of_kind(${kind} ${target} ${name} ${output} "${suffix}")
    target_link_libraries(${target}${suffix} PRIVATE ${ARG_NEEDS})
    if(ARG_USES)
      target_link_libraries(${target}${suffix} PUBLIC Forme::${ARG_USES}${suffix})
    endif()
  endforeach()
  if(NOT TARGET Forme::${name})
    add_library(Forme::${name} ALIAS ${target}_static)
  endif()

  if("static" IN_LIST FORME_KINDS)
    file(WRITE ${PROJECT_BINARY_DIR}/Forme-${name}-needs.cmake "${ARG_FIND}\n")
    install(FILES ${PROJECT_BINARY_DIR}/Forme-${name}-needs.cmake DESTINATION ${FORME_CMAKE_DIR})
  endif()
  forme_pkg_config(${output})
endfunction()

function(forme_library_of_kind kind target name output suffix)
  string(TOUPPER ${kind} KIND)
  add_library(${target}${suffix} ${KIND} $<TARGET_OBJECTS:${target}_objects>)
  add_library(Forme::${name}${suffix} ALIAS ${target}${suffix})
  target_compile_features(${target}${suffix} INTERFACE cxx_std_20)
  target_include_directories(${target}${suffix} INTERFACE
    $<BUILD_INTERFACE:${PROJECT_BINARY_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
  if(kind STREQUAL "static")
    target_compile_definitions(${target}${suffix} INTERFACE FORME_STATIC)
  endif()
  set_target_properties(${target}${suffix} PROPERTIES OUTPUT_NAME ${output} EXPORT_NAME ${name}${suffix}
    VERSION ${PROJECT_VERSION} SOVERSION ${FORME_SOVERSION} INSTALL_RPATH $ORIGIN)
  install(TARGETS ${target}${suffix} EXPORT Forme-${name}-${kind})
  install(EXPORT Forme-${name}-${kind} NAMESPACE Forme:: DESTINATION ${FORME_CMAKE_DIR})
endfunction()

# OUTPUT.pc, with the arguments of forme_library. Paths are relative to the file, so that an installed
# tree can be moved. What only static linking needs is told under `--static`, or always where nothing
# else is installed.
function(forme_pkg_config output)
  file(RELATIVE_PATH from_pkgconfig /prefix/${FORME_PKGCONFIG_DIR} /prefix)
  string(REGEX REPLACE "/$" "" from_pkgconfig ${from_pkgconfig})
  set(cflags -I\${includedir})
  if(ARG_USES)
    set(uses "${ARG_USES} = ${PROJECT_VERSION}")
  else()
    string(APPEND cflags " -I\${includedir}/${output}")
  endif()
  list(JOIN ARG_REQUIRES ", " needs)
  if(BUILD_SHARED_LIBS)
    set(private "Requires.private: ${needs}\nLibs.private: ${ARG_LIBS}\nCflags.private: -DFORME_STATIC\n")
  else()
    string(APPEND uses " ${needs}")
    string(APPEND cflags " -DFORME_STATIC")
    set(libs " ${ARG_LIBS}")
  endif()
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/${output}.pc @ONLY CONTENT [=[
prefix=${pcfiledir}/@from_pkgconfig@
includedir=${prefix}/@CMAKE_INSTALL_INCLUDEDIR@
libdir=${prefix}/@CMAKE_INSTALL_LIBDIR@

Name: @output@
Description: @ARG_TITLE@
Version: @PROJECT_VERSION@
Requires: @uses@
Cflags: @cflags@
Libs: -L${libdir} -l@output@@libs@
@private@]=])
  install(FILES ${PROJECT_BINARY_DIR}/${output}.pc DESTINATION ${FORME_PKGCONFIG_DIR})
endfunction()
