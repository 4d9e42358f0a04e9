# Installs what a command needs and the machine lacks.

# install PACKAGE…: does nothing when all are there.
install() {
  local package missing=()
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    say "no apt here: this needs what Debian calls $*"
    return
  fi
  for package; do installed "$package" || missing+=("$package"); done
  if [ ${#missing[@]} -eq 0 ]; then return; fi
  step "install ${missing[*]}" apt_install "${missing[@]}"
}

installed() {
  [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]
}

apt_install() {
  local get=(as_root env DEBIAN_FRONTEND=noninteractive apt-get -o Acquire::Retries=3 -o DPkg::Lock::Timeout=300)
  # A mirror in the middle of its own update hands out an index that doesn't fit; a moment later it does.
  "${get[@]}" update || { sleep 5 && "${get[@]}" update; }
  "${get[@]}" install -y --no-install-recommends "$@"
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null; then
    sudo "$@"
  else
    echo "neither root nor sudo: install these yourself" >&2
    return 1
  fi
}

# The libraries that let a 64-bit wine run 32-bit programs are in a package of the architecture i386. They are fetched
# into the build folder, so that the system need not take in that architecture.
install_wine32() {
  if has_wine32; then return; fi
  rm -f build/windows-x86/build.ninja  # it was configured to run nothing
  step 'fetch the 32-bit libraries of wine' fetch_wine32
}

has_wine32() { [ -d build/wine32/i386-windows ]; }

fetch_wine32() {
  local folder=$root/build/wine32
  local get=(apt-get -o APT::Architectures::=amd64 -o APT::Architectures::=i386
    -o Dir::State::lists="$folder/lists" -o Dir::Cache="$folder/cache" -o APT::Sandbox::User="$(id -un)")
  mkdir -p "$folder/lists/partial" "$folder/cache/archives/partial"
  "${get[@]}" update || true  # other sources may not have this architecture; the download tells
  (cd "$folder/cache" && "${get[@]}" download libwine:i386 && dpkg-deb -x libwine_*_i386.deb .)
  mv "$folder/cache/usr/lib/i386-linux-gnu/wine/i386-windows" "$folder/"
  rm -rf "$folder/cache" "$folder/lists"
}
