# nlohmann_json_DIR for targets whose compiler must not see the C library's headers that lie beside these.
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/header-only)
file(CREATE_LINK /usr/include/nlohmann ${CMAKE_BINARY_DIR}/header-only/nlohmann SYMBOLIC)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
target_include_directories(nlohmann_json::nlohmann_json INTERFACE ${CMAKE_BINARY_DIR}/header-only)
