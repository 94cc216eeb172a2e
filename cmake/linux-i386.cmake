# 32-bit programs from 64-bit Debian: CMAKE_TOOLCHAIN_FILE for the package g++-N-multilib. It runs what it builds.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i386)
# The kernel's headers are those of the 64-bit system, where g++-multilib does not link to them.
set(CMAKE_C_FLAGS_INIT "-m32 -idirafter /usr/include/x86_64-linux-gnu")
set(CMAKE_CXX_FLAGS_INIT ${CMAKE_C_FLAGS_INIT})
set(ZLIB_LIBRARY /usr/lib32/libz.so)  # of lib32z1-dev
