# The fuzzers: one program, told the name of the method.

# fuzz [MINUTES] [METHOD]: every method in turn, or one, for as long altogether. New inputs gather in build/fuzz/found.
# fuzz COUNTx [METHOD]: each that many times instead, whatever it takes.
# fuzz corpus: a bounded number of executions of every method from the kept inputs. Takes about a minute.
fuzz() {
  local extent=${1:-10} only=${2:-} amount
  if [ "$extent" = corpus ]; then extent=5000x; fi
  [[ $extent =~ ^[0-9]+x?$ ]] || fail "fuzz [MINUTES | COUNTx] [METHOD]: $extent is neither minutes nor a count" 2
  prepare_fuzz
  local methods method number=0 total=0
  if [ -n "$only" ]; then methods=("$only"); else mapfile -t methods < <(fuzz_methods); fi
  [ -d "fuzz/corpus/${methods[0]}" ] || fail "no such method: $only" 2
  local seconds=$((${extent%x} * 60 / ${#methods[@]}))
  if [[ $extent = *x ]]; then amount=--each=${extent%x}; else amount=-max_total_time=$((seconds > 0 ? seconds : 1)); fi
  for method in "${methods[@]}"; do
    number=$((number + 1))
    fuzz_one "$method" "$amount" &
    fuzz_progress $! "$number/${#methods[@]}" "$method"
    total=$((total + $(fuzz_executions "$method")))
  done
  say "$total executions, nothing found"
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
    -entropic=0 -reload=0 -dict=fuzz/tokens.dict -artifact_prefix="$found-" "$@" "$found" "fuzz/corpus/$method" \
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
  say "fuzz $2 $3: $(fuzz_executions "$3") executions, $(fuzz_figure average_exec_per_sec "$3") a second$(fuzz_rarest "$3")"
}

fuzz_failed() {
  tail -n 40 "$(fuzz_log "$1")" >&2
  fail "the fuzzer of $1 found something; the input lies in build/fuzz/found"
}

# fuzz_rarest METHOD: where there are overloads, how often the one that was called least.
fuzz_rarest() {
  sed -n 's/^calls \([0-9]*\) .*/\1/p' "$(fuzz_log "$1")" | sort -n |
    awk 'NR == 1 { least = $1 } END { if (NR > 1) printf "; %d overloads, each at least %d times", NR, least }'
}

fuzz_figure() { sed -n "s/^stat::$1: *//p" "$(fuzz_log "$2")"; }
fuzz_executions() { fuzz_figure number_of_executed_units "$1"; }
