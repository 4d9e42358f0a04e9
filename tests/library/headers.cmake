# Every header compiles alone.
#   cmake -DROOT=… -DCOMPILER=… -DLIBRARIES=… -P headers.cmake
cmake_minimum_required(VERSION 3.25)

file(GLOB folders RELATIVE ${ROOT} ${ROOT}/*)
list(REMOVE_ITEM folders build)
foreach(folder IN LISTS folders)
  file(GLOB_RECURSE found ${ROOT}/${folder}/*.h)
  list(APPEND headers ${found})
endforeach()

execute_process(RESULT_VARIABLE status
  COMMAND ${COMPILER} -std=c++20 -w -fsyntax-only -I${ROOT} -isystem ${LIBRARIES} -x c++ ${headers})
if(NOT status EQUAL 0)
  message(FATAL_ERROR "a header doesn't compile alone")
endif()
