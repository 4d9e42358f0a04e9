# How the commands speak: a line a step on stderr, the details in a log whose end is shown when the step fails.

root=$PWD
logs=build/logs

say() { printf 'dev: %s\n' "$1" >&2; }

# fail MESSAGE [STATUS]
fail() {
  say "$1"
  exit "${2:-1}"
}

# step NAME COMMAND…: runs the command quietly and says how long it took.
step() {
  local name=$1 start=$SECONDS status=0 log
  shift
  mkdir -p "$logs"
  log=$logs/${name//[^a-z0-9-]/_}.log
  printf 'dev: %s … ' "$name" >&2
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if [ $status -eq 0 ]; then
    printf 'ok (%d s)\n' $((SECONDS - start)) >&2
    return
  fi
  printf 'FAILED (%d s)\n' $((SECONDS - start)) >&2
  tail -n 60 "$log" >&2
  fail "$name failed; all it printed is in $log" $status
}
