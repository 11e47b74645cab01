# The compiler's runtime libraries, beside the programs. They stay shared: the layers are several DLLs that pass C++
# objects and catch each other's types, which a runtime linked into each of them would tell apart.
foreach(_dll libstdc++-6.dll libgcc_s_seh-1.dll libwinpthread-1.dll)
  execute_process(
    COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${_dll}
    OUTPUT_VARIABLE _path
    OUTPUT_STRIP_TRAILING_WHITESPACE)
  if(NOT EXISTS ${_path})
    find_file(PANELIX_RUNTIME_${_dll} ${_dll} PATHS /usr/x86_64-w64-mingw32/lib /usr/x86_64-w64-mingw32/bin
      NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    set(_path ${PANELIX_RUNTIME_${_dll}})
  endif()
  file(COPY ${_path} DESTINATION ${CMAKE_RUNTIME_OUTPUT_DIRECTORY})
  list(APPEND PANELIX_RUNTIME_DLLS ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${_dll})
endforeach()
