# The warnings of the project's own code, in one place.
function(panelix_set_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(CMAKE_CXX_COMPILER_ID MATCHES Clang)
    # Only clang counts these as part of -Wconversion; g++ leaves indexing by int alone, and both must agree.
    target_compile_options(${target} PRIVATE -Wno-sign-conversion)
  endif()
  if(PANELIX_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
