# 32-bit Windows. Needs g++-mingw-w64-i686-posix; wine runs the result elsewhere, once `./dev` has fetched its 32-bit
# libraries.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER i686-w64-mingw32-windres)

# Doubles as on 64-bit x86, hosts that align the stack to 4 bytes only, and unaligned moves for wide vectors.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign -Wa,-muse-unaligned-vector-move")

if(EXISTS ${CMAKE_CURRENT_LIST_DIR}/../../build/wine32/i386-windows)
  set(CMAKE_CROSSCOMPILING_EMULATOR wine)
endif()
