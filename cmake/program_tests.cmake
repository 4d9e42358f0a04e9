# Tests that are programs: run as they are, or through the emulator of another platform.

# Windows programs need wine's own folder, which the first of them would set up while others start.
if(WIN32 AND CMAKE_CROSSCOMPILING_EMULATOR)
  add_test(NAME wine_setup COMMAND ${CMAKE_CROSSCOMPILING_EMULATOR} wineboot --init)
  set_tests_properties(wine_setup PROPERTIES FIXTURES_SETUP wine)
endif()

# add_program_test(NAME): runs the program of that name.
function(add_program_test name)
  add_test(NAME ${name} COMMAND ${name})
  if(WIN32 AND CMAKE_CROSSCOMPILING_EMULATOR)
    # Wine may end with status 0 where it could not start the program.
    set_tests_properties(${name} PROPERTIES
      FIXTURES_REQUIRED wine PASS_REGULAR_EXPRESSION "Status: SUCCESS" FAIL_REGULAR_EXPRESSION "Status: FAILURE")
  elseif(WIN32 AND CMAKE_CROSSCOMPILING)
    set_tests_properties(${name} PROPERTIES DISABLED ON)
  endif()
endfunction()
