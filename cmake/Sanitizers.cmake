# Sanitizers apply to the whole tree: a library without them would hide what a caller does to its memory.
if(PANELIX_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(PANELIX_BUILD_FUZZERS)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "The fuzzers need clang's libFuzzer")
  endif()
  # Coverage feedback in the libraries; only the fuzzers themselves link libFuzzer's main.
  add_compile_options(-fsanitize=fuzzer-no-link)
  add_link_options(-fsanitize=fuzzer-no-link)
endif()
