# Lines of tests against lines of code: those that are neither blank nor a comment alone.

code_folders=(plugin host memory markup codecs bytes analysis wide stringkernels standin stringhost bench fuzz site)

loc() {
  local code tests
  code=$(lines "${code_folders[@]}")
  tests=$(lines tests)
  awk -v code="$code" -v tests="$tests" 'BEGIN {
    printf "code   %6d\ntests  %6d  %.0f%% of the code\n", code, tests, code ? 100 * tests / code : 0
  }'
}

# lines FOLDER…
lines() { git ls-files -z -- "$@" | xargs -0 -r cat | grep -cvE '^[[:space:]]*(//.*)?$' || true; }
