# The platforms, what each needs, and how a preset is configured and built.

platforms=(linux-x64 linux-x86 linux-arm64 linux-armhf windows-x64 windows-x86)
common=(g++ cmake ninja-build ccache doctest-dev libcli11-dev nlohmann-json3-dev help2man pkg-config)

case "$(uname -s) $(uname -m)" in
  Darwin*) native=macos-universal ;;
  *aarch64) native=linux-arm64 ;;
  *) native=linux-x64 ;;
esac

# known PRESET: fails unless there is such a preset.
known() {
  [ -f "cmake/toolchains/$1.cmake" ] || [ "$1" = "$native" ] || [ "$1" = linux-x64 ] || [ "$1" = asan ] || fail "no such preset: $1" 2
}

# toolchain PRESET: prints what building it takes on Debian.
toolchain() {
  echo "${common[@]}"
  case $1 in
    "$native") ;;
    linux-x86) echo g++-i686-linux-gnu ;;
    linux-arm64) echo g++-aarch64-linux-gnu ;;
    linux-armhf) echo g++-arm-linux-gnueabihf ;;
    windows-x64) echo g++-mingw-w64-x86-64-posix ;;
    windows-x86) echo g++-mingw-w64-i686-posix ;;
    asan | tsan | integers) echo clang llvm libclang-rt-dev ;;
  esac
}

# packages PRESET: prints what building it and running its tests takes on Debian.
packages() {
  toolchain "$1"
  case $1 in
    "$native") echo zip unzip ;;
    linux-x86) echo libc6-i386 ;;
    linux-arm64 | linux-armhf) echo qemu-user ;;
    windows-*) echo wine wine64 ;;
    memcheck) echo valgrind libc6-dbg ;;
    coverage) echo gcovr ;;
  esac
}

# prepare PRESET: installs, configures and builds, each only where something is to be done.
prepare() {
  local preset=$1
  # shellcheck disable=SC2046  # a list of words is what is wanted
  install $(packages "$preset")
  if [ "$preset" = windows-x86 ]; then (install_wine32) || true; fi  # without it the tests are built, not run
  configure "$preset"
  step "build $preset" cmake --build --preset "$preset"
}

# configure PRESET: anew only after the presets changed; Ninja sees to everything else.
configure() {
  local ninja=build/$1/build.ninja
  if [ -f "$ninja" ] && [ "$ninja" -nt CMakePresets.json ]; then return; fi
  step "configure $1" cmake --preset "$1"
}
