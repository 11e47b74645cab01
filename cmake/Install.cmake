# What an application that uses the libraries needs, as find_package(Panelix) finds it. Nothing that is installed names
# the place where it is: the folder can be moved.
include(CMakePackageConfigHelpers)

get_property(_libraries GLOBAL PROPERTY PANELIX_LIBRARIES)
get_property(_programs GLOBAL PROPERTY PANELIX_PROGRAMS)
set(_include_dir ${CMAKE_INSTALL_INCLUDEDIR}/panelix)
set(_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Panelix)
set(_data_dir ${CMAKE_INSTALL_DATADIR}/panelix)

install(TARGETS ${_libraries} EXPORT PanelixTargets
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${_include_dir})
install(EXPORT PanelixTargets NAMESPACE Panelix:: DESTINATION ${_package_dir})
set(PANELIX_SKINS_DIR ${_data_dir}/data/Panelix/skins)
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/PanelixConfig.cmake.in ${CMAKE_BINARY_DIR}/PanelixConfig.cmake
  INSTALL_DESTINATION ${_package_dir}
  PATH_VARS PANELIX_SKINS_DIR)
write_basic_package_version_file(${CMAKE_BINARY_DIR}/PanelixConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/PanelixConfig.cmake ${CMAKE_BINARY_DIR}/PanelixConfigVersion.cmake
  DESTINATION ${_package_dir})

install(TARGETS ${_programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
if(PANELIX_RUNTIME_DLLS)
  install(FILES ${PANELIX_RUNTIME_DLLS} DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

# Headers keep their paths below the repository's root, which is how they include each other, in a folder of their own.
# Those of one system are no interface, but for the windowless stand-in of the window system.
set(_private_headers PATTERN "*_linux.h" EXCLUDE PATTERN "*_win.h" EXCLUDE)
if(WIN32)
  list(APPEND _private_headers PATTERN "Windowless*" EXCLUDE)
endif()
foreach(_folder arbora fanout src/platform)
  install(DIRECTORY ${CMAKE_SOURCE_DIR}/${_folder}/ DESTINATION ${_include_dir}/${_folder}
    FILES_MATCHING PATTERN "*.h" ${_private_headers})
endforeach()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/include/Panelix DESTINATION ${_include_dir})
foreach(_folder arbora fanout Panelix)
  install(DIRECTORY ${PANELIX_GENERATED_DIR}/${_folder} DESTINATION ${_include_dir}
    FILES_MATCHING PATTERN "*.h")
endforeach()

# ARBORAHOME names the folder that holds data/.
install(DIRECTORY ${CMAKE_SOURCE_DIR}/data DESTINATION ${_data_dir})
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/panelix)
