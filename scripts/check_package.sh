# Whether packages are reproducible: the sources, copied elsewhere and built from nothing there, give the same bytes.

slow_checks+=(package)

# check_package [PRESET…]: of every platform without PRESET.
check_package() {
  local elsewhere=$root/build/elsewhere/a-longer-path/sources name different=()
  SOURCE_DATE_EPOCH=$(git log -1 --format=%ct)
  export SOURCE_DATE_EPOCH
  package "$@"
  rm -rf "$elsewhere"
  mkdir -p "$elsewhere"
  git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$elsewhere"
  # Kept object files would hide that a compiler wrote others.
  (cd "$elsewhere" && umask 077 && CCACHE_DISABLE=1 TZ=Asia/Tokyo LC_ALL=C ./dev package "$@")
  while read -r _ name; do
    cmp "$archives/$name" "$elsewhere/$archives/$name" || different+=("$name")
  done <"$archives/SHA256SUMS"
  [ ${#different[@]} -eq 0 ] || fail "built elsewhere, these have other bytes: ${different[*]}"
  say "built elsewhere, $(wc -l <"$archives/SHA256SUMS") archives have the same bytes"
  rm -rf "$elsewhere"
}
