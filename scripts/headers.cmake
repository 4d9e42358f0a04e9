# Every header of the code compiles alone.
#   cmake -DROOT=… -DCOMPILER=… -DLIBRARIES=… -P headers.cmake
cmake_minimum_required(VERSION 3.25)

# comes_first(HEADER RESULT): whether a source of the same name begins with it, so that the build has shown it already.
function(comes_first header result)
  set(${result} FALSE PARENT_SCOPE)
  string(REGEX REPLACE "\\.h$" ".cpp" source ${header})
  if(EXISTS ${ROOT}/${source})
    file(STRINGS ${ROOT}/${source} first LIMIT_COUNT 1 REGEX "^#include")
    if(first STREQUAL "#include \"${header}\"")
      set(${result} TRUE PARENT_SCOPE)
    endif()
  endif()
endfunction()

file(GLOB folders RELATIVE ${ROOT} ${ROOT}/*)
list(REMOVE_ITEM folders build tests)
foreach(folder IN LISTS folders)
  file(GLOB_RECURSE found RELATIVE ${ROOT} ${ROOT}/${folder}/*.h)
  foreach(header IN LISTS found)
    comes_first(${header} shown)
    if(NOT shown)
      list(APPEND headers ${header})
    endif()
  endforeach()
endforeach()

execute_process(WORKING_DIRECTORY ${ROOT} RESULT_VARIABLE status
  COMMAND ${COMPILER} -std=c++20 -w -fsyntax-only -I. -isystem ${LIBRARIES} -x c++ ${headers})
if(NOT status EQUAL 0)
  message(FATAL_ERROR "a header doesn't compile alone")
endif()
