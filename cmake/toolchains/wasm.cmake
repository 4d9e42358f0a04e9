# WebAssembly, for the reference site. Needs emscripten; its tools find node's modules by NODE_PATH.
set(EMSCRIPTEN_SYSTEM_PROCESSOR wasm32)
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)

set(CMAKE_CXX_FLAGS_INIT "-fwasm-exceptions")
