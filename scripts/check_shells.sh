# The completions, in the shells they are for.

slow_checks+=(shells)

check_shells() {
  install bash zsh fish
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages "$native")
  configure "$native"
  step 'build stringhost' cmake --build --preset "$native" --target stringhost
  step 'shells' complete_in_shells
}

# What is typed, and what a shell makes of the last word of it, among other things perhaps.
completions() {
  cat <<'END'
stringhost expl|explain
stringhost call Leven|LevenshteinDistanceZQV
stringhost help _yDecodeS|_yDecodeStringZQV
stringhost call --enc|--encoding
stringhost call EncodingToHexZQV --output j|json
END
}

complete_in_shells() {
  local shell typed expected found failed=0
  PATH=$root/build/$native/stringhost:$PATH
  for shell in bash zsh fish; do
    while IFS='|' read -r typed expected; do
      found=$("complete_in_$shell" "$typed" </dev/null)
      if grep -qE -- "(^|[[:space:]])$expected" <<<"$found"; then continue; fi
      printf '%s: "%s" has become "%s", not %s\n' "$shell" "$typed" "$found" "$expected"
      failed=1
    done < <(completions)
  done
  return $failed
}

complete_in_bash() {
  bash --norc -c '
    . stringhost/completions/stringhost.bash
    read -ra COMP_WORDS <<<"$1"
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    _stringhost
    printf "%s\n" "${COMPREPLY[@]}"' bash "$1"
}

complete_in_fish() {
  fish --no-config -c 'source stringhost/completions/stringhost.fish; complete --do-complete $argv[1]' "$1"
}

# The completions of zsh work in its line editor only: one is typed into, in a terminal of its own.
complete_in_zsh() {
  zsh -f -c '
    zmodload zsh/zpty
    zpty -b shell zsh -f -i
    zpty -w shell "PS1=; fpath=($PWD/stringhost/completions \$fpath); autoload -Uz compinit; compinit -u -D; echo re\"\"ady"
    zpty -r -m shell seen "*ready*"
    zpty -n -w shell "$1"$'\''\t'\''
    repeat 100; do
      zpty -r -t shell part && typed+=$part
      [[ $typed == *$2* ]] && break
      sleep 0.1
    done
    print -r -- "$typed"
    zpty -d shell' zsh "$1" "$(completion_of "$1")" |
    tr -d '\a\r' | sed 's/\x1B\[[0-9;?]*[A-Za-z]/ /g'
}

completion_of() { completions | sed -n "s/^$1|//p"; }
