# One check of the plugin as a DLL of Windows.
#   cmake -DCHECK=… -DFILE=… -DPROGRAM=… -DPROCESSOR=… -DVERSION=… -DNM=… -DOBJDUMP=… -P dll.cmake
include(${CMAKE_CURRENT_LIST_DIR}/expect.cmake)
run(headers ${OBJDUMP} -p ${FILE})

function(check_exports)
  string(REGEX MATCH "\\[Ordinal/Name Pointer\\] Table\n(\t\\[[^\n]*\n)*" names "${headers}")
  string(REGEX REPLACE "[^\n]* Table\n" "" names "${names}")
  string(REGEX REPLACE "\t\\[ *[0-9]+\\] " "" names "${names}")
  expect_equal("${names}" "REALPluginMain\n" "exported symbols")
endfunction()

function(check_dependencies)
  string(REGEX REPLACE "DLL Name: (KERNEL32|msvcrt)\\.dll" "found \\1" libraries "${headers}")
  expect("${libraries}" "found KERNEL32" "the system")
  expect("${libraries}" "found msvcrt" "the C runtime")
  expect_not("${libraries}" "DLL Name: [^\n]*" "more than the system and the C runtime is needed")
endfunction()

function(check_hardening)
  expect("${headers}" "DYNAMIC_BASE" "a random place in memory")
  expect("${headers}" "PE File Base Relocations" "the means to move it there")
  expect("${headers}" "NX_COMPAT" "data that is not executable")
  if(PROCESSOR STREQUAL "AMD64")
    expect("${headers}" "HIGH_ENTROPY_VA" "a random place beyond 4 GB")
  endif()
  run(symbols ${NM} ${FILE}.debug)
  expect("${symbols}" "__stack_chk_fail" "stack protection")
endfunction()

function(check_reproducibility)
  expect("${headers}" "Time/Date[ \t]+Thu Jan  1 00:00:00 1970" "a file header without the time of the build")
  expect("${headers}" "Time/Date stamp[ \t]+0\n" "an export table without the time of the build")
endfunction()

# The resource's texts are UTF-16; in a dump of its bytes each character is followed by a dot for its zero byte.
function(check_version)
  run(dump ${OBJDUMP} -s -j .rsrc ${FILE})
  string(REGEX REPLACE "\n [0-9a-f]+ [0-9a-f ]+  " "" text "${dump}")
  string(REPLACE "." "..." version "${VERSION}")
  expect("${text}" "F\\.i\\.l\\.e\\.V\\.e\\.r\\.s\\.i\\.o\\.n\\.+${version}\\.\\.\\." "the version of the file")
  expect("${text}" "S\\.t\\.r\\.i\\.n\\.g\\.P\\.l\\.u\\.g\\.i\\.n" "the name of the product")
endfunction()

function(check_streams)
  run(symbols ${NM} -C ${FILE}.debug)
  expect_no_streams("${symbols}")
endfunction()

# The command line brings a terminal's and a shell's services along, and still no library that is not the system's.
function(check_program)
  run(program ${OBJDUMP} -p ${PROGRAM})
  string(REGEX REPLACE "DLL Name: (KERNEL32|SHELL32|msvcrt)\\.dll" "" rest "${program}")
  expect_not("${rest}" "DLL Name: [^\n]*" "more than the system and the C runtime is needed")
  expect("${program}" "DYNAMIC_BASE" "a random place in memory")
  expect("${program}" "NX_COMPAT" "data that is not executable")
  expect("${program}" "Time/Date[ \t]+Thu Jan  1 00:00:00 1970" "a file header without the time of the build")
endfunction()

cmake_language(CALL check_${CHECK})
