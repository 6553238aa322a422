# An overlay port: it builds the tree that it lies in.
get_filename_component(SOURCE_PATH "${CURRENT_PORT_DIR}/../.." ABSOLUTE)

vcpkg_check_features(OUT_FEATURE_OPTIONS FEATURE_OPTIONS
  FEATURES
    html FORME_HTML
    hunspell FORME_HUNSPELL
    unicode FORME_UNICODE
    tools FORME_CLI)

# The components are found by pkg-config.
vcpkg_find_acquire_program(PKGCONFIG)

vcpkg_cmake_configure(
  SOURCE_PATH "${SOURCE_PATH}"
  OPTIONS
    ${FEATURE_OPTIONS}
    -DFORME_BUILD_STATIC=OFF
    -DFORME_TESTS=OFF
    -DFORME_TERMINAL=OFF
    -DFORME_WARNINGS_ARE_ERRORS=OFF
    "-DPKG_CONFIG_EXECUTABLE=${PKGCONFIG}")
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/Forme)
vcpkg_fixup_pkgconfig()

if("tools" IN_LIST FEATURES)
  vcpkg_copy_tools(TOOL_NAMES forme AUTO_CLEAN)
endif()
file(REMOVE_RECURSE "${CURRENT_PACKAGES_DIR}/debug/include" "${CURRENT_PACKAGES_DIR}/debug/share")
file(INSTALL "${CURRENT_PORT_DIR}/usage" DESTINATION "${CURRENT_PACKAGES_DIR}/share/${PORT}")
vcpkg_install_copyright(FILE_LIST "${SOURCE_PATH}/LICENSE")
