# The platforms, what each needs, and how a preset is configured and built.

platforms=(linux-x64 linux-x86 linux-arm64 linux-armhf windows-x64 windows-x86)
common=(g++ cmake ninja-build ccache doctest-dev libcli11-dev nlohmann-json3-dev)

case $(uname -m) in
  aarch64) native=linux-arm64 ;;
  *) native=linux-x64 ;;
esac

# known PRESET: fails unless there is such a preset.
known() {
  [ -f "cmake/toolchains/$1.cmake" ] || [ "$1" = linux-x64 ] || [ "$1" = asan ] || fail "no such preset: $1" 2
}

# packages PRESET: prints what building and running it takes on Debian.
packages() {
  echo "${common[@]}"
  case $1 in
    linux-x86) echo g++-i686-linux-gnu libc6-i386 ;;
    linux-arm64) echo g++-aarch64-linux-gnu qemu-user ;;
    linux-armhf) echo g++-arm-linux-gnueabihf qemu-user ;;
    windows-x64) echo g++-mingw-w64-x86-64-posix wine wine64 ;;
    windows-x86) echo g++-mingw-w64-i686-posix wine wine64 ;;
    asan | tsan | integers) echo clang llvm libclang-rt-dev ;;
    memcheck) echo valgrind libc6-dbg ;;
    coverage) echo gcovr qemu-user ;;
  esac
}

# prepare PRESET: installs, configures and builds, each only where something is to be done.
prepare() {
  local preset=$1
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages "$preset")
  if [ "$preset" = windows-x86 ]; then install_wine32; fi
  configure "$preset"
  if ! up_to_date "$preset"; then step "build $preset" cmake --build --preset "$preset"; fi
}

up_to_date() { [ "$(ninja -n -C "build/$1" 2>/dev/null | tail -n 1)" = 'ninja: no work to do.' ]; }

# configure PRESET: anew only after the presets changed; Ninja sees to everything else.
configure() {
  local ninja=build/$1/build.ninja
  if [ -f "$ninja" ] && [ "$ninja" -nt CMakePresets.json ]; then return; fi
  step "configure $1" cmake --preset "$1"
}
