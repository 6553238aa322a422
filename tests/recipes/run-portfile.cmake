# Runs the port for vcpkg where there is no vcpkg: these stand in for its functions and do what they
# are documented to do, for one build type.
#   cmake -DWORK=FOLDER -DLINKAGE=static|dynamic -P run-portfile.cmake
cmake_minimum_required(VERSION 3.25)

set(CURRENT_PORT_DIR ${CMAKE_CURRENT_LIST_DIR}/../../packaging/vcpkg)
set(CURRENT_PACKAGES_DIR ${WORK}/packages/forme)
file(REMOVE_RECURSE ${CURRENT_PACKAGES_DIR})
file(READ ${CURRENT_PORT_DIR}/vcpkg.json MANIFEST)
string(JSON PORT GET "${MANIFEST}" name)
string(JSON feature_count LENGTH "${MANIFEST}" features)
math(EXPR last "${feature_count} - 1")
foreach(index RANGE ${last})
  string(JSON feature MEMBER "${MANIFEST}" features ${index})
  list(APPEND FEATURES ${feature})
endforeach()

function(run)
  execute_process(COMMAND ${ARGV} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

function(require_file)
  if(NOT EXISTS ${ARGV0})
    message(FATAL_ERROR "The port expects ${ARGV0}")
  endif()
endfunction()

function(vcpkg_check_features)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" OUT_FEATURE_OPTIONS FEATURES)
  set(options "")
  while(ARG_FEATURES)
    list(POP_FRONT ARG_FEATURES feature option)
    if(NOT feature IN_LIST FEATURES)
      message(FATAL_ERROR "vcpkg.json has no feature ${feature}")
    endif()
    list(APPEND options -D${option}=ON)
  endwhile()
  set(${ARG_OUT_FEATURE_OPTIONS} ${options} PARENT_SCOPE)
endfunction()

function(vcpkg_find_acquire_program name)
  find_program(${name} pkg-config REQUIRED)
  set(${name} ${${name}} PARENT_SCOPE)
endfunction()

function(vcpkg_cmake_configure)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" SOURCE_PATH OPTIONS)
  string(COMPARE EQUAL ${LINKAGE} dynamic is_shared)
  run(${CMAKE_COMMAND} -S ${ARG_SOURCE_PATH} -B ${WORK}/build -G Ninja -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_UNITY_BUILD=ON -DBUILD_SHARED_LIBS=${is_shared} -DCMAKE_INSTALL_LIBDIR=lib
    -DCMAKE_INSTALL_PREFIX=${CURRENT_PACKAGES_DIR} ${ARG_OPTIONS})
endfunction()

function(vcpkg_cmake_install)
  run(${CMAKE_COMMAND} --build ${WORK}/build --target install -j2)
endfunction()

# The package moves up by one folder.
function(vcpkg_cmake_config_fixup)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" CONFIG_PATH "")
  require_file(${CURRENT_PACKAGES_DIR}/${ARG_CONFIG_PATH})
  file(MAKE_DIRECTORY ${CURRENT_PACKAGES_DIR}/share)
  file(RENAME ${CURRENT_PACKAGES_DIR}/${ARG_CONFIG_PATH} ${CURRENT_PACKAGES_DIR}/share/${PORT})
  file(REMOVE_RECURSE ${CURRENT_PACKAGES_DIR}/lib/cmake)
  file(GLOB files ${CURRENT_PACKAGES_DIR}/share/${PORT}/*.cmake)
  set(up "get_filename_component(_IMPORT_PREFIX \"\${_IMPORT_PREFIX}\" PATH)\n")
  foreach(file IN LISTS files)
    file(READ ${file} text)
    string(REPLACE "${up}${up}${up}" "${up}${up}" text "${text}")
    file(WRITE ${file} "${text}")
  endforeach()
endfunction()

function(vcpkg_fixup_pkgconfig)
  require_file(${CURRENT_PACKAGES_DIR}/lib/pkgconfig/${PORT}.pc)
endfunction()

function(vcpkg_copy_tools)
  cmake_parse_arguments(PARSE_ARGV 0 ARG AUTO_CLEAN "" TOOL_NAMES)
  foreach(tool IN LISTS ARG_TOOL_NAMES)
    require_file(${CURRENT_PACKAGES_DIR}/bin/${tool})
    file(COPY ${CURRENT_PACKAGES_DIR}/bin/${tool} DESTINATION ${CURRENT_PACKAGES_DIR}/tools/${PORT})
  endforeach()
  file(REMOVE_RECURSE ${CURRENT_PACKAGES_DIR}/bin)
endfunction()

function(vcpkg_install_copyright)
  cmake_parse_arguments(PARSE_ARGV 0 ARG "" "" FILE_LIST)
  require_file(${ARG_FILE_LIST})
  file(COPY_FILE ${ARG_FILE_LIST} ${CURRENT_PACKAGES_DIR}/share/${PORT}/copyright)
endfunction()

include(${CURRENT_PORT_DIR}/portfile.cmake)
