# 32-bit x86 Linux. Needs g++-i686-linux-gnu; a 64-bit system runs the result itself once it has libc6-i386.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)

# Doubles as on 64-bit x86, and hosts that align the stack to 4 bytes only.
set(CMAKE_CXX_FLAGS_INIT "-msse2 -mfpmath=sse -mstackrealign")
