# 64-bit Windows. Needs g++-mingw-w64-x86-64-posix; wine runs the result elsewhere.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

# The compiler puts 32-byte vectors at 16-byte aligned places of the stack; unaligned moves bear that.
set(CMAKE_CXX_FLAGS_INIT "-Wa,-muse-unaligned-vector-move")

set(CMAKE_CROSSCOMPILING_EMULATOR wine)
