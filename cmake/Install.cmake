# Install rules and the exported package, so a host can find_package(Win).
include(CMakePackageConfigHelpers)

install(TARGETS Win platform win_rc EXPORT WinTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/Win/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Win
        FILES_MATCHING PATTERN "*.h")
install(DIRECTORY ${PROJECT_SOURCE_DIR}/platform/include/
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Win/platform FILES_MATCHING PATTERN "*.h")
install(EXPORT WinTargets NAMESPACE Win:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Win)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/WinConfig.cmake.in
    ${PROJECT_BINARY_DIR}/WinConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Win)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/WinConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/WinConfig.cmake ${PROJECT_BINARY_DIR}/WinConfigVersion.cmake
              ${PROJECT_SOURCE_DIR}/cmake/WinResources.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Win)

# The same package for hosts that build without CMake: pkg-config --cflags --libs win.
file(RELATIVE_PATH WIN_PC_TO_PREFIX /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
string(REGEX REPLACE "/$" "" WIN_PC_TO_PREFIX "${WIN_PC_TO_PREFIX}")
configure_file(${PROJECT_SOURCE_DIR}/cmake/win.pc.in ${PROJECT_BINARY_DIR}/win.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/win.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
