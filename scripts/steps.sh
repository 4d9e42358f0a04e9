# How the commands speak: one line a step, the details in a log that is shown when the step fails.

root=$PWD
logs=build/logs

say() { printf 'dev: %s\n' "$1"; }

# fail MESSAGE [STATUS]
fail() {
  say "$1" >&2
  exit "${2:-1}"
}

# step NAME COMMAND…: runs the command quietly; says how long it took, or shows the end of what it printed.
step() {
  local name=$1 start=$SECONDS status=0 log
  shift
  mkdir -p "$logs"
  log=$logs/${name//[^a-z0-9-]/_}.log
  printf 'dev: %s … ' "$name"
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if [ $status -eq 0 ]; then
    printf 'ok (%d s)\n' $((SECONDS - start))
    return
  fi
  printf 'FAILED (%d s)\n' $((SECONDS - start))
  tail -n 60 "$log" >&2
  fail "$name failed; all it printed is in $log" $status
}
