# What the reference shows of other languages, run by their interpreters.

slow_checks+=(languages)

check_languages() {
  install php-cli python3 nodejs
  step 'languages' python3 scripts/languages.py docs/methods/*.md
  tail -n 1 "$logs/languages.log"
}
