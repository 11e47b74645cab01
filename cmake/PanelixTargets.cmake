# How every library, program and test of the tree is made.

include(GenerateExportHeader)

# panelix_glob(OUT FOLDER...): the sources in and below the folders, less those of the other systems (NAME_win.cpp,
# NAME_linux.cpp).
function(panelix_glob out)
  set(files)
  foreach(folder ${ARGN})
    file(GLOB_RECURSE found CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${folder}/*.cpp)
    list(APPEND files ${found})
  endforeach()
  if(WIN32)
    list(FILTER files EXCLUDE REGEX "_linux\\.cpp$")
  else()
    list(FILTER files EXCLUDE REGEX "_win\\.cpp$")
  endif()
  set(${out} ${files} PARENT_SCOPE)
endfunction()

# panelix_missing(OUT TARGET...): the first of the project's own targets that does not exist, empty if all do.
function(panelix_missing out)
  set(${out} "" PARENT_SCOPE)
  foreach(target ${ARGN})
    if(NOT TARGET ${target})
      set(${out} ${target} PARENT_SCOPE)
      return()
    endif()
  endforeach()
endfunction()

function(panelix_report_left_out name missing)
  if(missing)
    message(STATUS "${name}: left out, as ${missing} is")
  else()
    message(STATUS "${name}: left out, no sources yet")
  endif()
endfunction()

# panelix_library(NAME EXPORT_MACRO macro EXPORT_HEADER path FOLDERS folder... [LAYERS target...] [LINKS lib...])
# One layer: a shared library of the sources in FOLDERS. LAYERS are the layers below, which its headers may include;
# LINKS are what only its sources use. A layer without sources, or above a layer without any, is left out.
# Other projects know it by its name without the D that ends all of them.
function(panelix_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "EXPORT_MACRO;EXPORT_HEADER" "FOLDERS;LAYERS;LINKS")
  panelix_glob(sources ${arg_FOLDERS})
  panelix_missing(missing ${arg_LAYERS})
  if(NOT sources OR missing)
    panelix_report_left_out(${name} "${missing}")
    return()
  endif()
  add_library(${name} SHARED ${sources})
  string(REGEX REPLACE "D$" "" export_name ${name})
  add_library(Panelix::${export_name} ALIAS ${name})
  panelix_set_warnings(${name})
  generate_export_header(${name} BASE_NAME ${arg_EXPORT_MACRO} EXPORT_MACRO_NAME ${arg_EXPORT_MACRO}
    EXPORT_FILE_NAME ${PANELIX_GENERATED_DIR}/${arg_EXPORT_HEADER})
  target_compile_features(${name} PUBLIC cxx_std_20)
  target_include_directories(${name} PUBLIC
    $<BUILD_INTERFACE:${CMAKE_SOURCE_DIR}> $<BUILD_INTERFACE:${PANELIX_GENERATED_DIR}>)
  target_link_libraries(${name} PUBLIC ${arg_LAYERS} PRIVATE ${arg_LINKS})
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT WIN32)
    # Nobody replaces a library's own functions from outside, so its calls to itself may be direct and inlined.
    target_compile_options(${name} PRIVATE -fno-semantic-interposition)
  endif()
  # A symbol that is nowhere is an error here, as it is on Windows. Sanitizers leave theirs to the program.
  if(NOT PANELIX_SANITIZE AND NOT PANELIX_BUILD_FUZZERS)
    target_link_options(${name} PRIVATE -Wl,--no-undefined)
  endif()
  # The same file name on every system, as the modules know each other by it.
  if(WIN32)
    set_target_properties(${name} PROPERTIES PREFIX "")
  endif()
  set_target_properties(${name} PROPERTIES EXPORT_NAME ${export_name} INSTALL_RPATH "$ORIGIN")
  set_property(GLOBAL APPEND PROPERTY PANELIX_LIBRARIES ${name})
endfunction()

# panelix_program(NAME FOLDERS folder... LAYERS target... [LINKS lib...] [NO_INSTALL])
function(panelix_program name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "NO_INSTALL" "" "FOLDERS;LAYERS;LINKS")
  panelix_glob(sources ${arg_FOLDERS})
  panelix_missing(missing ${arg_LAYERS})
  if(NOT sources OR missing)
    panelix_report_left_out(${name} "${missing}")
    return()
  endif()
  add_executable(${name} ${sources})
  panelix_set_warnings(${name})
  target_link_libraries(${name} PRIVATE ${arg_LAYERS} ${arg_LINKS})
  set_target_properties(${name} PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
  if(NOT arg_NO_INSTALL)
    set_property(GLOBAL APPEND PROPERTY PANELIX_PROGRAMS ${name})
  endif()
endfunction()
