# How the commands speak: a line a step on stderr, the details in a log whose end is shown when the step fails.

root=$PWD
logs=build/logs

say() { printf 'dev: %s\n' "$1" >&2; }

# fail MESSAGE [STATUS]
fail() {
  say "$1"
  exit "${2:-1}"
}

# step NAME COMMAND…: runs the command quietly and says how long it took; on a terminal also how far it is.
step() {
  local name=$1 start=$SECONDS status=0 log follower=
  shift
  mkdir -p "$logs"
  log=$logs/${name//[^a-z0-9-]/_}.log
  printf 'dev: %s … ' "$name" >&2
  if [ -t 2 ]; then
    follow "$name" "$log" &
    follower=$!
    disown "$follower"  # nobody wants to hear that it was ended
  fi
  "$@" >"$log" 2>&1 </dev/null || status=$?
  if [ -n "$follower" ]; then kill "$follower"; fi
  if [ $status -eq 0 ]; then
    printf 'ok (%d s)\n' $((SECONDS - start)) >&2
    return
  fi
  printf 'FAILED (%d s)\n' $((SECONDS - start)) >&2
  tail -n 60 "$log" >&2
  fail "$name failed; all it printed is in $log" $status
}

# follow NAME LOG: keeps saying which of its parts the build in LOG has come to.
follow() {
  local place
  while sleep 0.5 && kill -0 $$ 2>/dev/null; do
    place=$(tail -c 4096 "$2" | grep -oE '^\[[0-9]+/[0-9]+\]' | tail -n 1) || continue
    printf '\r\033[Kdev: %s … %s ' "$1" "$place" >&2
  done
}
