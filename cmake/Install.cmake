# What an application that uses the libraries needs, as find_package(Panelix) finds it.
include(CMakePackageConfigHelpers)

get_property(_libraries GLOBAL PROPERTY PANELIX_LIBRARIES)
get_property(_programs GLOBAL PROPERTY PANELIX_PROGRAMS)

if(_libraries)
  install(TARGETS ${_libraries} EXPORT PanelixTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  set(_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Panelix)
  install(EXPORT PanelixTargets NAMESPACE Panelix:: DESTINATION ${_package_dir})
  configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/PanelixConfig.cmake.in ${CMAKE_BINARY_DIR}/PanelixConfig.cmake
    INSTALL_DESTINATION ${_package_dir})
  write_basic_package_version_file(${CMAKE_BINARY_DIR}/PanelixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${CMAKE_BINARY_DIR}/PanelixConfig.cmake ${CMAKE_BINARY_DIR}/PanelixConfigVersion.cmake
    DESTINATION ${_package_dir})
endif()

if(_programs)
  install(TARGETS ${_programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()
if(PANELIX_RUNTIME_DLLS)
  install(FILES ${PANELIX_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# Headers keep their paths below the repository's root, which is how they include each other.
foreach(_folder arbora fanout src/platform)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/${_folder}/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${_folder}
    FILES_MATCHING PATTERN "*.h" PATTERN "*_linux.h" EXCLUDE PATTERN "*_win.h" EXCLUDE)
endforeach()
foreach(_folder arbora fanout Panelix)
  install(DIRECTORY ${PANELIX_GENERATED_DIR}/${_folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} OPTIONAL
    FILES_MATCHING PATTERN "*.h")
endforeach()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} OPTIONAL)
# ARBORAHOME names the folder that holds data/.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data DESTINATION ${CMAKE_INSTALL_DATADIR}/panelix)
