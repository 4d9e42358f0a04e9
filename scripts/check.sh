# Checks of the sources: how they are formatted, what compilers, sanitizers and clang-tidy find.

plugin_folders=(plugin host memory markup codecs bytes analysis wide)

# The parts, a function check_PART each. Those that take long are added to the second list by the files they are in.
usual_checks=(format headers warnings sanitizers cppcheck tidy)
slow_checks=()

# check WHAT…: the usual parts without WHAT, every part for `all`.
check() {
  if [ $# -eq 0 ]; then set -- "${usual_checks[@]}"; fi
  if [ "$*" = all ]; then set -- "${usual_checks[@]}" "${slow_checks[@]}"; fi
  local what start number=0 all=$SECONDS
  for what; do
    [[ " ${usual_checks[*]} ${slow_checks[*]} " == *" $what "* ]] || fail "no such check: $what" 2
  done
  for what; do
    number=$((number + 1)) start=$SECONDS
    say "check $number/$#: $what"
    "check_$what"
    say "check $number/$#: $what took $((SECONDS - start)) s"
  done
  say "checked ${*} in $((SECONDS - all)) s"
}

sources() { git ls-files '*.h' '*.cpp'; }

check_format() {
  install clang-format
  step 'format' format_sources
}

format_sources() { sources | xargs clang-format --dry-run --Werror; }

# Every header of the code compiles alone.
check_headers() {
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages "$native")
  configure "$native"
  step 'headers' cmake "-DROOT=$root" -DCOMPILER=c++ "-DLIBRARIES=$root/build/$native/include" -P scripts/headers.cmake
}

# Both compilers, warnings as errors.
check_warnings() {
  prepare "$native"
  prepare asan
}

check_sanitizers() {
  prepare asan
  step 'sanitizers' ctest --preset asan -j "$(nproc)"
  tail -n 4 "$logs/sanitizers.log"
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

check_tidy() {
  install clang-tidy python3
  configure_for_tidy
  step 'tidy' tidy_sources
}

configure_for_tidy() {
  # shellcheck disable=SC2046
  install $(packages asan)
  configure asan
}

tidy_sources() {
  run-clang-tidy -quiet -p build/asan -j "$(nproc)" "$root/(${folders_pattern})/.*\.cpp"
}

folders_pattern=$(IFS='|'; echo "${plugin_folders[*]}")
