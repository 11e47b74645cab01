# Header-only libraries. /usr/include itself must not become an include folder of a cross build (it would shadow the
# target's own system headers), so a private folder holds links to just the folders that are wanted.
set(_thirdparty_dir ${CMAKE_BINARY_DIR}/thirdparty)
file(MAKE_DIRECTORY ${_thirdparty_dir})
foreach(_entry glm:glm/glm.hpp stb:stb/stb_image_write.h CLI:CLI/CLI.hpp)
  string(REPLACE ":" ";" _entry ${_entry})
  list(GET _entry 0 _name)
  list(GET _entry 1 _header)
  find_path(PANELIX_${_name}_ROOT ${_header} PATHS /usr/include /usr/local/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  file(CREATE_LINK ${PANELIX_${_name}_ROOT}/${_name} ${_thirdparty_dir}/${_name} SYMBOLIC)
endforeach()

add_library(arbora_thirdparty INTERFACE)
target_include_directories(arbora_thirdparty SYSTEM INTERFACE ${_thirdparty_dir})

# The OpenGL loader, generated offline from the description that the generator's package ships. The generator is a
# system package, so the system's Python must run it: another Python first in PATH would not find it.
find_program(PANELIX_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)
set(_glad_dir ${PANELIX_GENERATED_DIR}/glad)
if(NOT EXISTS ${_glad_dir}/src/gl.c)
  execute_process(
    COMMAND ${PANELIX_PYTHON} -m glad --reproducible --quiet --api gl:compatibility=3.3 --extensions "" --out-path
            ${_glad_dir} c --loader
    RESULT_VARIABLE _glad_result
    ERROR_VARIABLE _glad_messages)
  if(NOT _glad_result EQUAL 0)
    message(FATAL_ERROR "The OpenGL loader could not be generated:\n${_glad_messages}")
  endif()
endif()
add_library(arbora_glad STATIC ${_glad_dir}/src/gl.c)
target_include_directories(arbora_glad SYSTEM PUBLIC ${_glad_dir}/include)
target_compile_options(arbora_glad PRIVATE -w)
target_link_libraries(arbora_glad PUBLIC ${CMAKE_DL_LIBS})

# What a Linux build takes from the system; on Windows it is all part of the system libraries.
if(NOT WIN32)
  find_package(Freetype REQUIRED)
  find_package(Fontconfig REQUIRED)
  find_package(OpenGL REQUIRED COMPONENTS OpenGL EGL)
  find_package(glfw3 REQUIRED)
endif()
