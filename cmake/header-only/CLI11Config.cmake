# CLI11_DIR for targets whose compiler must not see the C library's headers that lie beside these.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/header-only)
file(CREATE_LINK /usr/include/CLI ${CMAKE_BINARY_DIR}/header-only/CLI SYMBOLIC)
add_library(CLI11::CLI11 INTERFACE IMPORTED)
target_include_directories(CLI11::CLI11 INTERFACE ${CMAKE_BINARY_DIR}/header-only)
