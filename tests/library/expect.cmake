# What the scripts that inspect files share: running a tool, and saying what is wrong with what it printed.
cmake_minimum_required(VERSION 3.25)

# run(RESULT COMMAND...): what the command prints; it has to succeed and to print something.
function(run result)
  execute_process(COMMAND ${ARGN} OUTPUT_VARIABLE output ERROR_VARIABLE errors RESULT_VARIABLE status)
  if(NOT status EQUAL 0 OR output STREQUAL "")
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "${command}: status ${status}, printed \"${output}\"\n${errors}")
  endif()
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

# expect(TEXT PATTERN WHAT)
function(expect text pattern what)
  if(NOT text MATCHES "${pattern}")
    message(SEND_ERROR "missing: ${what} (${pattern})")
  endif()
endfunction()

# expect_not(TEXT PATTERN WHAT)
function(expect_not text pattern what)
  if(text MATCHES "${pattern}")
    message(SEND_ERROR "${what}: ${CMAKE_MATCH_0}")
  endif()
endfunction()

# expect_equal(ACTUAL EXPECTED WHAT)
function(expect_equal actual expected what)
  if(NOT actual STREQUAL expected)
    message(SEND_ERROR "${what}: \"${actual}\", expected \"${expected}\"")
  endif()
endfunction()

# A third of the file are the tables for writing doubles; it is not to grow unnoticed.
function(check_size)
  file(SIZE ${FILE} size)
  message("${size} bytes")
  if(size GREATER 600000)
    message(SEND_ERROR "${size} bytes")
  endif()
endfunction()

# expect_no_streams(SYMBOLS): the demangled names of everything that was linked.
function(expect_no_streams symbols)
  expect("${symbols}" "REALPluginMain" "the entry point among the symbols")
  expect_not("${symbols}" "[^\n]*std::(__cxx11::)?(ios_base|locale|basic_[a-z]*(stream|streambuf))[^\n]*"
    "code of streams or locales was linked")
endfunction()
