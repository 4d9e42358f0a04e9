# The fuzzers: one program, told the name of the method.

# fuzz [MINUTES] [METHOD]: every method in turn, or one, for as long altogether. New inputs gather in build/fuzz/found.
# fuzz corpus: a bounded number of executions instead.
fuzz() {
  if [ "${1:-}" = corpus ]; then fuzz_corpus && return; fi
  local minutes=${1:-10} only=${2:-}
  [[ $minutes =~ ^[0-9]+$ ]] || fail "fuzz [MINUTES] [METHOD]: $minutes is no number of minutes" 2
  prepare_fuzz
  local methods method number=0 total=0
  if [ -n "$only" ]; then methods=("$only"); else mapfile -t methods < <(fuzz_methods); fi
  [ -d "fuzz/corpus/${methods[0]}" ] || fail "no such method: $only" 2
  local seconds=$((minutes * 60 / ${#methods[@]}))
  for method in "${methods[@]}"; do
    number=$((number + 1))
    fuzz_one "$method" -max_total_time=$((seconds > 0 ? seconds : 1)) &
    fuzz_progress $! "$number/${#methods[@]}" "$method"
    total=$((total + $(fuzz_executions "$method")))
  done
  say "$total executions, nothing found"
}

# fuzz_corpus: a bounded number of executions of every method from the kept inputs. Takes about a minute.
fuzz_corpus() {
  local method total=0
  prepare_fuzz
  for method in $(fuzz_methods); do
    fuzz_one "$method" -runs=2000 -seed=1 || fuzz_failed "$method"
    total=$((total + $(fuzz_executions "$method")))
  done
  say "$total executions from the kept inputs, nothing found"
}

prepare_fuzz() {
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages asan)
  configure fuzz
  step 'build fuzz' cmake --build --preset fuzz
}

fuzz_methods() { ls fuzz/corpus; }

fuzz_log() { echo "$logs/fuzz-$1.log"; }

# fuzz_one METHOD OPTION…
fuzz_one() {
  local method=$1 found=build/fuzz/found/$1
  shift
  mkdir -p "$found" "$logs"
  nice build/fuzz/fuzz/stringfuzz "--method=$method" -max_len=400 -timeout=20 -rss_limit_mb=3000 -print_final_stats=1 \
    -dict=fuzz/tokens.dict -artifact_prefix="$found-" "$@" "$found" "fuzz/corpus/$method" \
    >"$(fuzz_log "$method")" 2>&1
}

# fuzz_progress PROCESS PLACE METHOD: a line that keeps up with the fuzzer, and its end.
fuzz_progress() {
  local status=0 line
  while kill -0 "$1" 2>/dev/null; do
    sleep 1
    line=$(grep -oE '^#[0-9]+.* exec/s: [0-9]+' "$(fuzz_log "$3")" | tail -n 1 | grep -oE '^#[0-9]+|[0-9]+$' | xargs) || true
    if [ -t 2 ]; then printf '\r\033[Kdev: fuzz %s %s: %s a second' "$2" "$3" "${line:-starting}" >&2; fi
  done
  wait "$1" || status=$?
  if [ -t 2 ]; then printf '\r\033[K' >&2; fi
  [ $status -eq 0 ] || fuzz_failed "$3"
  say "fuzz $2 $3: $(fuzz_executions "$3") executions, $(fuzz_figure average_exec_per_sec "$3") a second"
}

fuzz_failed() {
  tail -n 40 "$(fuzz_log "$1")" >&2
  fail "the fuzzer of $1 found something; the input lies in build/fuzz/found"
}

fuzz_figure() { sed -n "s/^stat::$1: *//p" "$(fuzz_log "$2")"; }
fuzz_executions() { fuzz_figure number_of_executed_units "$1"; }
