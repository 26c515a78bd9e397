# SPDX-FileCopyrightText: the quadrelbll authors
# SPDX-License-Identifier: MIT

# What `cmake --install` puts where. The targets install themselves; here is the rest.
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
