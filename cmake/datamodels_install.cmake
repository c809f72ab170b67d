# Installs both libraries, their headers and the config package behind find_package(datamodels).
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/datamodels)

install(TARGETS datamodels datamodels_host EXPORT datamodels_targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS datamodels_image_formats LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}/datamodels)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/src/datamodels ${PROJECT_SOURCE_DIR}/src/host
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
install(EXPORT datamodels_targets NAMESPACE datamodels:: DESTINATION ${package_dir})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/datamodels-config.cmake.in
                              ${PROJECT_BINARY_DIR}/datamodels-config.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/datamodels-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/datamodels-config.cmake
              ${PROJECT_BINARY_DIR}/datamodels-config-version.cmake DESTINATION ${package_dir})
