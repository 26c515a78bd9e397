# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT

# What `cmake --install` and `cpack` put where. The targets install themselves; here is the rest.
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/quadrelbll)
install(EXPORT quadrelbllTargets NAMESPACE quadrelbll:: DESTINATION ${package_dir} COMPONENT Development)
install(EXPORT quadrellinkTargets NAMESPACE quadrelbll:: DESTINATION ${package_dir} COMPONENT Development)
configure_package_config_file(
    cmake/quadrelbllConfig.cmake.in ${PROJECT_BINARY_DIR}/quadrelbllConfig.cmake
    INSTALL_DESTINATION ${package_dir} PATH_VARS QUADRELBLL_TRANSLATIONS_DIR)
# Before 1.0 a new minor version may break what links against the one before it.
write_basic_package_version_file(
    ${PROJECT_BINARY_DIR}/quadrelbllConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/quadrelbllConfig.cmake ${PROJECT_BINARY_DIR}/quadrelbllConfigVersion.cmake
    DESTINATION ${package_dir} COMPONENT Development)

set(pkgconfig_dir ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PC_TO_PREFIX /prefix/${pkgconfig_dir} /prefix)
string(REGEX REPLACE "/$" "" PC_TO_PREFIX ${PC_TO_PREFIX})
foreach(library quadrelbll quadrellink)
    configure_file(cmake/${library}.pc.in ${PROJECT_BINARY_DIR}/${library}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/${library}.pc DESTINATION ${pkgconfig_dir} COMPONENT Development)
endforeach()

set(CPACK_PACKAGE_NAME quadrelbll)
set(CPACK_PACKAGE_VENDOR "the quadrelbll developers")
set(CPACK_PACKAGE_CONTACT "the quadrelbll developers <quadrelbll@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY ${PROJECT_DESCRIPTION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS OFF)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME quadrelbll)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# An edited settings file outlives an upgrade of the package.
set(conffiles ${PROJECT_BINARY_DIR}/package/conffiles)
file(WRITE ${conffiles} "/usr/${QUADRELBLL_TOOLS_DIR}/configWidget.ini\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${conffiles})
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION
    "The shared libraries, quadrelctl, which configures a control unit from the
 command line, and quadrelsim, a simulated control unit.")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME quadrelbll-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "quadrelbll (= ${PROJECT_VERSION}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "Headers, and what CMake and pkg-config need to link against the libraries.")
if(QUADRELBLL_DOCS)
    find_program(QUADRELBLL_DOXYGEN doxygen REQUIRED)
    add_custom_target(documents ALL COMMAND ${QUADRELBLL_DOXYGEN} ${PROJECT_BINARY_DIR}/docs/Doxyfile
        COMMENT "Making the guide and the reference" VERBATIM)
    install(DIRECTORY ${PROJECT_BINARY_DIR}/docs/html DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT Documentation)
    list(APPEND CPACK_COMPONENTS_ALL Documentation)
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_NAME quadrelbll-doc)
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SECTION doc)
    set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)
    set(CPACK_DEBIAN_DOCUMENTATION_DESCRIPTION "The guide and the reference of all classes, as HTML.")
endif()
include(CPack)
