# Installs everything, moves it elsewhere, and runs the program there.
#   cmake -DBUILD=… -DSCRATCH=… -P install.cmake
include(${CMAKE_CURRENT_LIST_DIR}/../library/expect.cmake)

file(REMOVE_RECURSE ${SCRATCH})
run(installed ${CMAKE_COMMAND} --install ${BUILD} --prefix ${SCRATCH}/first)
file(RENAME ${SCRATCH}/first ${SCRATCH}/second)
run(printed ${SCRATCH}/second/bin/stringhost call EncodingToHexZQV x)
expect_equal("${printed}" "78" "a call of the installed plugin")
file(GLOB_RECURSE files RELATIVE ${SCRATCH}/second ${SCRATCH}/second/*)
foreach(file
    bash-completion/completions/stringhost zsh/site-functions/_stringhost fish/vendor_completions.d/stringhost.fish
    doc/StringPlugin/docs/methods/codecs.md doc/StringPlugin/LICENSE)
  if(NOT share/${file} IN_LIST files)
    message(SEND_ERROR "not installed: share/${file}")
  endif()
endforeach()
