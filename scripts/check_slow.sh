# The checks that take long: they run in `check all`, or by name.

slow_checks+=(headers memcheck threads integers cppcheck coverage mutants)

# Every header of the code compiles alone.
check_headers() {
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages "$native")
  configure "$native"
  step 'headers' cmake "-DROOT=$root" -DCOMPILER=c++ "-DLIBRARIES=$root/build/$native/include" -P scripts/headers.cmake
}

# The tests with the label of that name, in valgrind: memory that is read before it is written, overruns, leaks.
check_memcheck() { labelled_tests memcheck; }

# Threads that call all methods at once, watched by ThreadSanitizer.
check_threads() { labelled_tests tsan; }

# All tests, with the plugin's integers watched: none wraps or loses bits unless it says so.
check_integers() { labelled_tests integers; }

# labelled_tests PRESET: the tests its test preset chooses.
labelled_tests() {
  prepare "$1"
  step "test $1" ctest --preset "$1" -j "$(nproc)"
  grep -E 'tests passed|Total Test time' "$logs/test_$1.log" >&2
}

# cppcheck 2.10 takes a lambda without parentheses for an array, so it gets a copy in which they have some.
check_cppcheck() {
  install cppcheck
  local copy=build/cppcheck
  rm -rf "$copy"
  mkdir -p "$copy"
  cp -r "${plugin_folders[@]}" "$copy"
  find "$copy" -type f -exec sed -i 's/= \[\] {/= []() {/' {} +
  cp scripts/cppcheck.suppressions "$copy"
  step 'cppcheck' cppcheck_in "$copy"
}

cppcheck_in() (
  cd "$1"
  cppcheck --std=c++20 --language=c++ --enable=warning,performance,portability,style -I. -D__x86_64__ --quiet \
    --suppressions-list=cppcheck.suppressions --error-exitcode=1 "${plugin_folders[@]}"
)

# Which lines and branches of the plugin the tests run. What counts is in gcovr.cfg.
check_coverage() {
  prepare coverage
  find build/coverage -name '*.gcda' -delete
  step 'test coverage' ctest --preset coverage -j "$(nproc)"
  local kernels_of_no_use=()
  grep -q avx512_vbmi2 /proc/cpuinfo || kernels_of_no_use=(--exclude '.*_avx512\.cpp')
  step 'coverage' gcovr --config gcovr.cfg --txt build/coverage/coverage.txt --html-details build/coverage/coverage.html \
    "${kernels_of_no_use[@]}" build/coverage
  tail -n 8 "$logs/coverage.log" >&2
}

# Faults put into the plugin, one at a time: the tests have to notice.
check_mutants() {
  # shellcheck disable=SC2046
  install python3 $(packages "$native")
  python3 scripts/mutants.py
}
