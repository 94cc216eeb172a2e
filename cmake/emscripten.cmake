# WebAssembly from Debian: CMAKE_TOOLCHAIN_FILE for the package emscripten. The program becomes a function that makes an
# instance of it, with files in memory alone; web/module/ runs it in browsers and under node.
include(/usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake)
# What is downloaded is to be small, and what the browser translates before the first file, too: fewer functions are
# inlined than usual. The small ones of the standard library, which Debian has compiled without any inlining, are by -O3
# when linking: that saves a third of the time.
set(CMAKE_CXX_FLAGS_INIT "-fwasm-exceptions -mnontrapping-fptoint -msign-ext -mllvm -inline-threshold=25 -fno-unroll-loops")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-O3 -sMODULARIZE=1 -sEXPORT_NAME=makeIgs -sENVIRONMENT=web,worker -sINVOKE_RUN=0 \
-sEXIT_RUNTIME=1 -sEXPORTED_RUNTIME_METHODS=callMain,FS,ENV -sFORCE_FILESYSTEM=1 -sALLOW_MEMORY_GROWTH=1 \
-sMAXIMUM_MEMORY=2GB -Wl,--stack-first")
# The optimiser of the JavaScript beside it asks node for a package that Debian keeps elsewhere.
set(CMAKE_CXX_LINKER_LAUNCHER env NODE_PATH=/usr/share/nodejs)
