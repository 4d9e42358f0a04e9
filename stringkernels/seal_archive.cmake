# Leaves the public functions alone global in an installed archive, so that no other name in it can clash with one of
# the program that it is linked into; and takes debug information out.
#   cmake -DARCHIVE=… -DCOMPILER=… -DOBJCOPY=… -DNM=… -DAR=… -P seal_archive.cmake

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

set(whole ${ARCHIVE}.o)
# Groups of sections are dissolved: their names become local too, but linkers would still match them.
run(${COMPILER} -r -nostdlib -Wl,--force-group-allocation -Wl,--whole-archive ${ARCHIVE} -Wl,--no-whole-archive
  -o ${whole})
# Names that are unique in a process can't be made local in one step, so they become weak first.
execute_process(COMMAND ${NM} --defined-only ${whole} OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " u [^\n]+" unique "${symbols}")
list(TRANSFORM unique REPLACE " u " "--weaken-symbol=")
run(${OBJCOPY} --strip-debug ${unique} ${whole})
run(${OBJCOPY} --wildcard --keep-global-symbol=stringkernels_* --keep-global-symbol=_ZN13stringkernels* ${whole})
run(${OBJCOPY} --strip-unneeded ${whole})
file(REMOVE ${ARCHIVE})
run(${AR} rcD ${ARCHIVE} ${whole})
file(REMOVE ${whole})
