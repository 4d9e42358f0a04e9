# The archives: one per platform, and one with all of them. The same sources give the same bytes, wherever and whenever
# they are packed.

archives=build/package

# What an archive holds: for which platforms, in which of its folders, which files. BUILD stands for the platform's
# build folder, NATIVE for this machine's, SITE for the site's, NOTICES for that of others' licences; a pattern that
# fits no file adds nothing. What is for all platforms stands once in an archive of several, beside a folder for each.
archive_contents() {
  cat <<'END'
each    .            BUILD/StringPlugin.so BUILD/StringPlugin.dll BUILD/StringPlugin.dylib
each    .            BUILD/stringhost/stringhost BUILD/stringhost/stringhost.exe
all     .            docs/archive/README.md LICENSE CHANGELOG.md
all     licences     NOTICES/libcli11-dev NOTICES/nlohmann-json3-dev NOTICES/emscripten
windows licences     NOTICES/mingw-w64-common
all     docs         docs/platforms.md docs/stringhost.md
all     docs/methods docs/methods/*.md
all     site         SITE/*
all     site/speed   SITE/speed/*
linux   man/man1     NATIVE/stringhost/*.1
linux   completions  stringhost/completions/*
END
}

# package [PRESET…]: every platform without PRESET, and then the one archive with all too.
package() {
  local presets=("$@") preset number=0 version
  if [ $# -eq 0 ]; then presets=("${platforms[@]}"); fi
  for preset in "${presets[@]}"; do known "$preset"; done
  SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}
  export SOURCE_DATE_EPOCH
  install zip help2man
  for preset in "${presets[@]}"; do
    number=$((number + 1))
    build_shipped "$preset" "$number of ${#presets[@]}"
  done
  build_manual_pages
  site
  gather_notices "${presets[@]}"
  version=$(project_version "build/${presets[0]}")
  rm -rf "$archives"
  for preset in "${presets[@]}"; do pack "StringPlugin-$version-$preset" "$archives" build "$preset"; done
  if [ $# -eq 0 ]; then pack "StringPlugin-$version" "$archives" build "${presets[@]}"; fi
  (cd "$archives" && sha256sum -- *.zip >SHA256SUMS && stat --format='%10s bytes  %n' -- *.zip >&2)
  say "packed into $archives"
}

# build_shipped PRESET PLACE: what is shipped for a platform, without its tests.
build_shipped() {
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(toolchain "$1")
  configure "$1"
  step "build $1, $2" cmake --build --preset "$1" --target StringPlugin stringhost
}

# Their date is that of the sources, so they are made anew.
build_manual_pages() {
  if [ ! -d "build/$native" ]; then build_shipped "$native" 'for the manual pages'; fi
  if ! grep -q '^build manual_pages:' "build/$native/build.ninja"; then
    step "configure $native" cmake --preset "$native"  # it was configured before there was help2man
  fi
  rm -f "build/$native"/stringhost/*.1
  step 'manual pages' cmake --build --preset "$native" --target manual_pages
}

# gather_notices PRESET…: the licences of what others wrote and the files contain, as Debian keeps them, by package.
gather_notices() {
  local packages=(libcli11-dev nlohmann-json3-dev emscripten) package notice
  if [[ $* = *windows* ]]; then packages+=(mingw-w64-common); fi
  rm -rf build/notices
  mkdir -p build/notices
  for package in "${packages[@]}"; do
    notice=/usr/share/doc/$package/copyright
    [ -f "$notice" ] || fail "the licence of $package, which has to be packed, is not in $notice"
    cp "$notice" "build/notices/$package"
  done
}

project_version() { sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$1/CMakeCache.txt"; }

# pack NAME INTO BUILDS PRESET…: INTO/NAME.zip from the presets' folders in BUILDS. It needs SOURCE_DATE_EPOCH.
pack() {
  local name=$1 into=$2 builds=$3 stage preset where
  shift 3
  stage=$(mktemp -d)
  for preset; do
    where=$stage/$name
    if [ $# -gt 1 ]; then where=$where/$preset; fi
    stage_files "$stage/$name" "$where" "$builds" "$preset"
    compgen -G "$where/StringPlugin.*" >/dev/null || fail "no plugin built for $preset"
  done
  (cd "$stage/$name" && files_in_order | xargs -d '\n' sha256sum >"$stage/sums")
  command install -m 644 "$stage/sums" "$stage/$name/SHA256SUMS"
  rm "$stage/sums"
  find "$stage" -exec touch --date="@$SOURCE_DATE_EPOCH" {} +
  mkdir -p "$into"
  rm -f "$into/$name.zip"
  # Times in an archive are those of a wall clock: that of UTC.
  (cd "$stage" && files_in_order | TZ=UTC zip --quiet -9 -X "$name.zip" -@)
  mv "$stage/$name.zip" "$into/"
  rm -rf "$stage"
}

files_in_order() { find . -type f -printf '%P\n' | LC_ALL=C sort; }

# stage_files TOP OWN BUILDS PRESET: the files that are for all go into TOP, the platform's own into OWN.
stage_files() {
  local whose folder patterns file target
  while read -r whose folder patterns; do
    case $whose:$4 in
      each:*) target=$2/$folder ;;
      all:* | linux:linux-* | windows:windows-*) target=$1/$folder ;;
      *) continue ;;
    esac
    patterns=${patterns//BUILD/$3/$4}
    patterns=${patterns//NATIVE/$3/$native}
    patterns=${patterns//NOTICES/$3/notices}
    for file in $(files_of "${patterns//SITE/$3/site}"); do
      if [ -x "$file" ]; then command install -D -m 755 "$file" "$target/${file##*/}"
      else command install -D -m 644 "$file" "$target/${file##*/}"; fi
    done
  done < <(archive_contents)
}

# files_of PATTERNS: the files there are.
files_of() {
  local file
  for file in $1; do
    if [ -f "$file" ]; then echo "$file"; fi
  done
}
