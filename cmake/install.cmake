# What `cmake --install` puts in place: the library with its headers, and how CMake and pkg-config find it. The prefix may be
# moved afterwards.
include(CMakePackageConfigHelpers)

set(igs_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/igs)
install(TARGETS igs EXPORT igs INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/igs/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/igs FILES_MATCHING PATTERN *.h)

install(EXPORT igs NAMESPACE igs:: FILE igs-config.cmake DESTINATION ${igs_cmake_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/igs-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/igs-config-version.cmake DESTINATION ${igs_cmake_dir})

file(RELATIVE_PATH igs_pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" igs_pc_to_prefix ${igs_pc_to_prefix})
if(NOT BUILD_SHARED_LIBS)
  set(igs_pc_definitions -DIGS_STATIC)
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/igs.pc.in ${PROJECT_BINARY_DIR}/igs.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/igs.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
