# Warnings and sanitizers, shared by every target through varnisto_options.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

add_library(varnisto_options INTERFACE)
target_compile_options(varnisto_options INTERFACE -Wall -Wextra -Wconversion -Wshadow -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlaps in joined texts where there are none.
  target_compile_options(varnisto_options INTERFACE -Wno-restrict)
endif()
target_include_directories(varnisto_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(VARNISTO_SANITIZE)
  target_compile_options(varnisto_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    -fno-omit-frame-pointer)
  target_link_options(varnisto_options INTERFACE -fsanitize=address,undefined)
endif()
if(VARNISTO_FUZZ)
  target_compile_options(varnisto_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined
                                                    -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(varnisto_options INTERFACE -fsanitize=address,undefined)
endif()

# One library a folder of src/. A folder sees only what it names here, so that a wrong include does not link.
function(varnisto_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(varnisto_${name} STATIC ${ARG_SOURCES})
  target_link_libraries(varnisto_${name} PUBLIC varnisto_options ${ARG_USES})
endfunction()
