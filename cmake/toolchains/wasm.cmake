# Builds for WebAssembly by Debian's emscripten. Programs run under node.
set(EMSCRIPTEN_ROOT_PATH /usr/share/emscripten)
set(EMSCRIPTEN_SYSTEM_PROCESSOR wasm32)
include(${EMSCRIPTEN_ROOT_PATH}/cmake/Modules/Platform/Emscripten.cmake)
