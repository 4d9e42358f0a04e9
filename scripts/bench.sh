# The benchmarks: what they need, and the ways to run them.

bench_packages=(pkg-config libbenchmark-dev libxml2-dev libglib2.0-dev libcmark-dev libgmime-3.0-dev
  libcurl4-openssl-dev libaprutil1-dev libabsl-dev libssl-dev nettle-dev libicu-dev liburiparser-dev
  libdouble-conversion-dev cargo librust-memchr-dev librust-bytecount-dev librust-percent-encoding-dev
  librust-encoding-rs-dev librust-strsim-dev)

# bench [FILTER] | bench quick: everything, what FILTER matches, or a minute's comparison with the last commit.
bench() {
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages "$native") "${bench_packages[@]}"
  configure bench
  step 'build bench' cmake --build --preset bench
  local program=build/bench/bench/stringbench
  case ${1:-} in
    quick) bench_quick "$program" ;;
    '') "$program" --json build/bench/speed.json --page docs --costs ;;
    *) "$program" --json build/bench/speed.json "$@" ;;
  esac
}

# The figures to compare with are those that were committed; the new ones wait to be committed beside the change.
bench_quick() {
  local committed=build/bench/committed.json
  git show HEAD:bench/baseline.json >"$committed" 2>/dev/null || echo '{}' >"$committed"
  "$1" --quick --rounds 9 --seconds 0.001 --baseline "$committed" --new-baseline bench/baseline.json
}
