# Installs what a command needs and the machine lacks.

# install PACKAGE…: does nothing when all are there.
install() {
  local package missing=()
  if ! command -v apt-get >/dev/null || ! command -v dpkg-query >/dev/null; then
    say "no apt here: this needs what Debian calls $*" >&2
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
