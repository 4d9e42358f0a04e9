# Language, warnings and code generation shared by every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
if(NOT EMSCRIPTEN)  # whose modules are never moved
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
endif()

# SANITIZE: what -fsanitize= gets; every target is built with it, and stops at the first finding.
set(SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

# FUZZERS: only what is shipped is sanitized and reports what it covers; what judges it runs as fast as it can.
option(FUZZERS "Build the fuzzers" OFF)
option(COVERAGE "Count which lines and branches of the plugin's own folders are run" OFF)

# A build that watches itself is not the one that ships.
set(INSTRUMENTED FALSE)
if(SANITIZE OR COVERAGE)
  set(INSTRUMENTED TRUE)
endif()

if(COVERAGE)
  set(CMAKE_CXX_FLAGS_RELEASE "-O0")
elseif(SANITIZE AND NOT FUZZERS)
  set(CMAKE_CXX_FLAGS_RELEASE "-O1")
else()
  set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
endif()

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(compiler_options INTERFACE)
target_include_directories(compiler_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(compiler_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  -ffp-contract=off  # a fused multiply-add would change the distances from platform to platform
  -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)  # the same bytes, wherever the sources lie

if(EMSCRIPTEN)
  # Constants and functions that choose a wide kernel stand idle where there is none, as do handles of libraries.
  target_compile_options(compiler_options INTERFACE
    -Wno-unused-const-variable -Wno-unused-function -Wno-unused-private-field)
elseif(WIN32)
  # Everything runs without the compiler's own libraries at hand.
  target_link_options(compiler_options INTERFACE -static)
elseif(CMAKE_CROSSCOMPILING)
  target_link_options(compiler_options INTERFACE -static-libstdc++ -static-libgcc)
endif()

add_library(sanitizer_options INTERFACE)
if(SANITIZE)
  target_compile_options(sanitizer_options INTERFACE
    -fsanitize=${SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  target_compile_definitions(sanitizer_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(sanitizer_options INTERFACE -fsanitize=${SANITIZE})
  if(SANITIZE MATCHES "unsigned-integer-overflow")
    set(ignored ${PROJECT_SOURCE_DIR}/cmake/integers.ignored)
    target_compile_options(sanitizer_options INTERFACE -fsanitize-ignorelist=${ignored})
  endif()
endif()
if(NOT FUZZERS)
  target_link_libraries(compiler_options INTERFACE sanitizer_options)
endif()

if(COVERAGE)
  target_link_options(compiler_options INTERFACE --coverage)
endif()
