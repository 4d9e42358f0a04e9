# Tests that are programs: run as they are, or through the emulator of another platform.

# Windows programs need wine's own folder, which the first of them would set up while others start.
if(WIN32 AND CMAKE_CROSSCOMPILING_EMULATOR)
  add_test(NAME wine_setup COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} wineboot --init)
  set_tests_properties(wine_setup PROPERTIES FIXTURES_SETUP wine)
endif()

# add_skipped_test(NAME WHY): stands in the list of tests for one that has no means here.
function(add_skipped_test name why)
  add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -E echo "skipped here: ${name}: ${why}")
  set_tests_properties(${name} PROPERTIES SKIP_REGULAR_EXPRESSION "skipped here")
endfunction()

# add_program_test(NAME): runs the program of that name.
function(add_program_test name)
  add_test(NAME ${name} COMMAND ${name})
  if(WIN32 AND CMAKE_CROSSCOMPILING_EMULATOR)
    # Wine may end with status 0 where it could not start the program.
    set_tests_properties(${name} PROPERTIES
      FIXTURES_REQUIRED wine PASS_REGULAR_EXPRESSION "Status: SUCCESS" FAIL_REGULAR_EXPRESSION "Status: FAILURE")
  elseif(WIN32 AND CMAKE_CROSSCOMPILING)
    set_tests_properties(${name} PROPERTIES DISABLED ON)  # built, and nothing here that runs it
  endif()
endfunction()

# add_test_without_neon(NAME): runs the program once more on a 32-bit ARM CPU that traps NEON instructions.
function(add_test_without_neon name)
  if(CMAKE_SYSTEM_PROCESSOR STREQUAL "armv7l" AND CMAKE_CROSSCOMPILING_EMULATOR)
    add_test(NAME ${name}_without_neon COMMAND ${name})
    set_tests_properties(${name}_without_neon PROPERTIES ENVIRONMENT QEMU_CPU=cortex-a9,neon=off)
    set_tests_properties(${name} ${name}_without_neon PROPERTIES RESOURCE_LOCK ${name})  # for the files it writes
  endif()
endfunction()
