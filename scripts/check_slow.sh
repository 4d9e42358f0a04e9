# The checks that take long: they run in `check all`, or by name.

slow_checks+=(memcheck threads integers coverage mutants)

# The tests of kernels and methods in valgrind: memory that is read before it is written, overruns, leaks.
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

# Which lines and branches of the plugin the tests run. What counts is in gcovr.cfg.
check_coverage() {
  prepare coverage
  find build/coverage -name '*.gcda' -delete
  step 'test coverage' ctest --preset coverage -j "$(nproc)"
  local kernels_of_no_use=()
  if [ "$native" = linux-x64 ]; then
    step 'test coverage without avx2' qemu-x86_64 -cpu Nehalem build/coverage/tests/methods/methods_tests
  fi
  grep -q avx512_vbmi2 /proc/cpuinfo || kernels_of_no_use=(--exclude '.*_avx512\.cpp')
  mkdir -p build/coverage/report
  step 'coverage' gcovr --config gcovr.cfg --txt build/coverage/coverage.txt --print-summary \
    --html-details build/coverage/report/index.html "${kernels_of_no_use[@]}" build/coverage
  tail -n 4 build/coverage/coverage.txt >&2
}

# Faults put into the plugin, one at a time: the tests have to notice.
check_mutants() {
  # shellcheck disable=SC2046
  install python3 $(packages "$native")
  python3 scripts/mutants.py
}
