# 32-bit ARM Linux with hardware floating point. Needs g++-arm-linux-gnueabihf; qemu-user runs the result elsewhere.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)  # notes about calls between code of GCC 6 and later; nothing here is that old

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L /usr/arm-linux-gnueabihf)
