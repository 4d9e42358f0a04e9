# Every header compiles alone.
#   cmake -DROOT=… -DCOMPILER=… -DLIBRARIES=… -P headers.cmake
file(GLOB_RECURSE headers RELATIVE ${ROOT} ${ROOT}/*.h)
list(FILTER headers EXCLUDE REGEX "^build/")
execute_process(WORKING_DIRECTORY ${ROOT} RESULT_VARIABLE status
  COMMAND ${COMPILER} -std=c++20 -w -fsyntax-only -I${ROOT} -isystem ${LIBRARIES} -x c++ ${headers})
if(headers STREQUAL "" OR NOT status EQUAL 0)
  message(FATAL_ERROR "a header doesn't compile alone")
endif()
