# Checks of the sources: how they are formatted, what compilers, sanitizers and clang-tidy find.

plugin_folders=(plugin host memory markup codecs bytes analysis wide)

# check WHAT…: everything without WHAT.
check() {
  if [ $# -eq 0 ]; then set -- format warnings sanitizers tidy; fi
  if [ "$*" = all ]; then set -- format warnings sanitizers tidy site; fi
  local what
  for what; do
    case $what in
      format | warnings | sanitizers | tidy | site) ;;
      *) fail "no such check: $what" 2 ;;
    esac
  done
  for what; do "check_$what"; done
}

sources() { git ls-files '*.h' '*.cpp'; }

check_format() {
  install clang-format
  step 'format' format_sources
}

format_sources() { sources | xargs clang-format --dry-run --Werror; }

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
