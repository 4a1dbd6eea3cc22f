# Install rules: libraries, headers, the qor tools, a CMake package and a
# pkg-config file, so both find_package(Qor) and pkg-config qor work from a prefix.
include(CMakePackageConfigHelpers)

get_property(qor_libs GLOBAL PROPERTY QOR_LIBRARIES)
install(TARGETS ${qor_libs} EXPORT QorTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/qor/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qor
        FILES_MATCHING PATTERN "*.h")
install(EXPORT QorTargets NAMESPACE Qor:: DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Qor)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QorConfig.cmake.in
  ${PROJECT_BINARY_DIR}/QorConfig.cmake INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Qor)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QorConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QorConfig.cmake ${PROJECT_BINARY_DIR}/QorConfigVersion.cmake
              ${PROJECT_SOURCE_DIR}/cmake/QorDeps.cmake ${PROJECT_SOURCE_DIR}/cmake/QorEmbedResource.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/Qor)

set(QOR_PC_LIBS "")
foreach(lib IN ITEMS licensing host settings comm task core)
  string(APPEND QOR_PC_LIBS " -lqor_${lib}")
endforeach()
configure_file(${PROJECT_SOURCE_DIR}/cmake/qor.pc.in ${PROJECT_BINARY_DIR}/qor.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qor.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
