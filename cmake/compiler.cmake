# Language, warnings and code generation shared by every target.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(compiler_options INTERFACE)
target_include_directories(compiler_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(compiler_options INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  -ffp-contract=off)  # a fused multiply-add would change the distances from platform to platform
