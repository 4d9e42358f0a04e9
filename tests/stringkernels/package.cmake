# Installs the library, moves it elsewhere, and builds and runs the example with it.
#   cmake -DWAY=cmake|pkg_config -DBUILD=… -DEXAMPLE=… -DSCRATCH=… … -P package.cmake

include(${CMAKE_CURRENT_LIST_DIR}/../library/expect.cmake)

file(REMOVE_RECURSE ${SCRATCH})
run(installed ${CMAKE_COMMAND} --install ${BUILD} --component stringkernels --prefix ${SCRATCH}/first)
file(RENAME ${SCRATCH}/first ${SCRATCH}/installed)

# On Linux no name but the public ones is there for programs to clash with.
if(CMAKE_HOST_SYSTEM_NAME STREQUAL "Linux")
  run(symbols ${NM} --extern-only --defined-only ${SCRATCH}/installed/${LIBRARIES}/libstringkernels.a)
  expect("${symbols}" " T stringkernels_free\n" "a public function")
  string(REGEX REPLACE "[^\n]* (_ZN13stringkernels|stringkernels_)[^\n]*\n" "" others "${symbols}")
  expect_not("${others}" "[^\n]* [A-Za-z] [^\n]+" "a global name")
endif()

file(COPY ${EXAMPLE}/ DESTINATION ${SCRATCH}/example)

set(build ${SCRATCH}/build)
if(WAY STREQUAL "cmake")
  run(configured ${CMAKE_COMMAND} -S ${SCRATCH}/example -B ${build} -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_PREFIX_PATH=${SCRATCH}/installed)
  run(built ${CMAKE_COMMAND} --build ${build})

  file(COPY ${EXAMPLE}/in_c.c DESTINATION ${SCRATCH}/c_alone)
  file(WRITE ${SCRATCH}/c_alone/CMakeLists.txt [[
cmake_minimum_required(VERSION 3.25)
project(c_alone LANGUAGES C)
find_package(stringkernels 1 REQUIRED)
add_executable(c_alone in_c.c)
target_link_libraries(c_alone PRIVATE stringkernels::stringkernels)
]])
  run(configured ${CMAKE_COMMAND} -S ${SCRATCH}/c_alone -B ${build}/c_alone -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${SCRATCH}/installed)
  run(built ${CMAKE_COMMAND} --build ${build}/c_alone)
  run(output ${build}/c_alone/c_alone "a b")
  expect_equal("${output}" "a%20b\n" "what a project in C alone prints")
else()
  file(MAKE_DIRECTORY ${build})
  set(ENV{PKG_CONFIG_PATH} ${SCRATCH}/installed/${LIBRARIES}/pkgconfig)
  run(options ${PKG_CONFIG} --cflags --libs stringkernels)
  separate_arguments(options UNIX_COMMAND "${options}")
  execute_process(COMMAND ${COMPILER} -std=c++17 ${SCRATCH}/example/main.cpp -o ${build}/stringkernels_example ${options}
    COMMAND_ERROR_IS_FATAL ANY)
  execute_process(COMMAND cc ${SCRATCH}/example/in_c.c -o ${build}/stringkernels_in_c ${options}
    COMMAND_ERROR_IS_FATAL ANY)
endif()
run(output ${build}/stringkernels_example)

set(expected [[
Jerom&eacute; &lt;jerome@example.org&gt;
Jérôme
a+b%2Bc
4A 65 72 6F 6D C3 A9 20 3C 6A 65 72 6F 6D 65 40
65 78 61 6D 70 6C 65 2E 6F 72 67 3E            
]])
expect_equal("${output}" "${expected}" "what the example prints")

run(output ${build}/stringkernels_in_c "a b" "é")
expect_equal("${output}" "a%20b\n%C3%A9\n" "what the example in C prints")
