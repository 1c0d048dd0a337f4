# Installation: headers, the libraries, a CMake package and a pkg-config file.
include(CMakePackageConfigHelpers)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/iocv DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")
if(IOCV_PLATFORM STREQUAL "bundled")
  install(TARGETS iocv_platform EXPORT iocv LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(TARGETS iocv EXPORT iocv LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT iocv NAMESPACE iocv:: FILE iocv-targets.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/iocv)

configure_package_config_file(cmake/iocv-config.cmake.in ${PROJECT_BINARY_DIR}/iocv-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/iocv)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/iocv-config-version.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/iocv-config.cmake ${PROJECT_BINARY_DIR}/iocv-config-version.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/iocv)

# The prefix as seen from the file itself, so that the installation can be moved.
file(RELATIVE_PATH IOCV_PC_TO_PREFIX "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
configure_file(cmake/iocv.pc.in ${PROJECT_BINARY_DIR}/iocv.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/iocv.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

if(TARGET iocv_tool)
  install(TARGETS iocv_tool RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/docs/man/iocv.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/man/iocv-layout.5 DESTINATION ${CMAKE_INSTALL_MANDIR}/man5)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/completion/iocv.bash RENAME iocv
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/completion/_iocv
          DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
