# Installation: headers under the same names as in the tree, the libraries, and a package that
# find_package(Sparlow) reads. Component core stands alone, on a machine without Qt too.

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Sparlow)

foreach(folder platform/base platform/paint axis data view)
  get_filename_component(parent ${folder} DIRECTORY)
  install(DIRECTORY sparlow/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/sparlow/${parent}
          COMPONENT core FILES_MATCHING PATTERN "*.h")
endforeach()
install(TARGETS sparlow-core EXPORT SparlowCoreTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT core)
install(EXPORT SparlowCoreTargets NAMESPACE Sparlow:: DESTINATION ${package_dir} COMPONENT core)

if(TARGET sparlow)
  # A program that links the static library links its Qt modules too.
  get_target_property(qt_modules sparlow LINK_LIBRARIES)
  list(FILTER qt_modules INCLUDE REGEX "^Qt6::")
  list(TRANSFORM qt_modules REPLACE "^Qt6::" "")
  list(JOIN qt_modules " " SPARLOW_QT_MODULES)

  install(DIRECTORY sparlow/platform/window DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/sparlow/platform
          COMPONENT sparlow FILES_MATCHING PATTERN "*.h")
  install(FILES sparlow/platform/qt/Application.h
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/sparlow/platform/qt COMPONENT sparlow)
  install(DIRECTORY sparlow/graph sparlow/multi sparlow/ui
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/sparlow
          COMPONENT sparlow FILES_MATCHING PATTERN "*.h")
  install(FILES sparlow/sparlow.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/sparlow
          COMPONENT sparlow)
  install(TARGETS sparlow-graphs sparlow EXPORT SparlowTargets
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT sparlow)
  install(EXPORT SparlowTargets NAMESPACE Sparlow:: DESTINATION ${package_dir} COMPONENT sparlow)
endif()

configure_package_config_file(cmake/SparlowConfig.cmake.in
                              ${PROJECT_BINARY_DIR}/SparlowConfig.cmake
                              INSTALL_DESTINATION ${package_dir}
                              NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/SparlowConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/SparlowConfig.cmake
              ${PROJECT_BINARY_DIR}/SparlowConfigVersion.cmake
        DESTINATION ${package_dir} COMPONENT core)
