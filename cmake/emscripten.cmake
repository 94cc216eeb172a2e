# WebAssembly from Debian: CMAKE_TOOLCHAIN_FILE for the package emscripten. Programs run under node, on the real files.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
set(CMAKE_CXX_FLAGS_INIT -fexceptions)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-sNODERAWFS=1 -sWASM_ASYNC_COMPILATION=0 -sEXIT_RUNTIME=1 -sALLOW_MEMORY_GROWTH=1 \
-sMAXIMUM_MEMORY=4GB --pre-js ${CMAKE_CURRENT_LIST_DIR}/emscripten.js")
# The optimiser of the JavaScript beside it asks node for a package that Debian keeps elsewhere.
set(CMAKE_CXX_LINKER_LAUNCHER env NODE_PATH=/usr/share/nodejs)
