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

# Which lines and branches of the plugin the tests run. What counts is in gcovr.cfg. On x86 the CPU has to have AVX2;
# where it has no AVX-512, the kernels for that don't count.
check_coverage() {
  [ "$native" != linux-x64 ] || grep -q avx2 /proc/cpuinfo || fail 'coverage takes a CPU with AVX2'
  prepare coverage
  forget_old_counts build/coverage
  step 'test coverage' ctest --preset coverage -j "$(nproc)"
  local kernels_of_no_use=()
  grep -q avx512_vbmi2 /proc/cpuinfo || kernels_of_no_use=(--exclude '.*_avx512\.(cpp|h)')
  mkdir -p build/coverage/report
  step 'coverage' gcovr --config gcovr.cfg --txt build/coverage/coverage.txt --print-summary \
    --html-details build/coverage/report/index.html "${kernels_of_no_use[@]}" build/coverage
  tail -n 3 "$logs/coverage.log" >&2
}

# forget_old_counts BUILD: what was counted before, and the compiler's notes on sources that are gone since.
forget_old_counts() {
  local notes
  find "$1" -name '*.gcda' -delete
  ninja -C "$1" -t cleandead >/dev/null
  while IFS= read -r notes; do
    if [ ! -f "${notes%.gcno}.o" ]; then rm "$notes"; fi
  done < <(find "$1" -name '*.gcno')
}

# Faults put into the plugin, one at a time: the tests have to notice.
check_mutants() {
  # shellcheck disable=SC2046
  install python3 $(packages "$native")
  python3 scripts/mutants.py
}
