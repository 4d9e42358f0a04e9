# Installs the library, moves it elsewhere, and builds and runs the example with it.
#   cmake -DWAY=cmake|pkg_config -DBUILD=… -DEXAMPLE=… -DSCRATCH=… … -P package.cmake

# run(WHAT COMMAND…): the command's output in `output`.
function(run what)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${SCRATCH} RESULT_VARIABLE status OUTPUT_VARIABLE printed
    ERROR_VARIABLE errors)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${what} failed:\n${printed}${errors}")
  endif()
  set(output "${printed}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${SCRATCH})
file(MAKE_DIRECTORY ${SCRATCH})
run("installing" ${CMAKE_COMMAND} --install ${BUILD} --component stringkernels --prefix ${SCRATCH}/first)
file(RENAME ${SCRATCH}/first ${SCRATCH}/installed)
file(COPY ${EXAMPLE}/ DESTINATION ${SCRATCH}/example)

if(WAY STREQUAL "cmake")
  run("configuring" ${CMAKE_COMMAND} -S example -B build -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_PREFIX_PATH=${SCRATCH}/installed)
  run("building" ${CMAKE_COMMAND} --build build)
  run("running" build/stringkernels_example)
else()
  set(ENV{PKG_CONFIG_PATH} ${SCRATCH}/installed/${LIBRARIES}/pkgconfig)
  run("asking pkg-config" ${PKG_CONFIG} --cflags --libs stringkernels)
  separate_arguments(options UNIX_COMMAND "${output}")
  run("building" ${COMPILER} -std=c++17 example/main.cpp -o example/program ${options})
  run("running" example/program)
endif()

set(expected [[
Jerom&eacute; &lt;jerome@example.org&gt;
Jérôme
a+b%2Bc
4A 65 72 6F 6D C3 A9 20 3C 6A 65 72 6F 6D 65 40
65 78 61 6D 70 6C 65 2E 6F 72 67 3E            
]])
if(NOT output STREQUAL expected)
  message(FATAL_ERROR "the example printed\n${output}instead of\n${expected}")
endif()
