# Texts of gigabytes, for real: an input, its output and the host's copy of that at once, so up to 6 GiB of memory.

slow_checks+=(sizes)

check_sizes() {
  prepare "$native"
  step 'sizes' "build/$native/tests/failures/failures_sizes_tests" --no-skip --test-suite=huge
  tail -n 3 "$logs/sizes.log" >&2
}
