# 32-bit programs from 64-bit Debian: CMAKE_TOOLCHAIN_FILE for the package g++-multilib. It runs what it builds.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i386)
set(CMAKE_C_FLAGS_INIT -m32)
set(CMAKE_CXX_FLAGS_INIT -m32)
set(ZLIB_LIBRARY /usr/lib32/libz.so)  # of lib32z1-dev
