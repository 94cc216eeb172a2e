# What `cmake --install` puts in place: the libraries with their headers, and how CMake and pkg-config find them. The prefix
# may be moved afterwards. Components: igs_runtime (a shared library), igs_development, igs_tool, igs_python.
include(CMakePackageConfigHelpers)

set(igs_cmake_dir ${CMAKE_INSTALL_LIBDIR}/cmake/igs)
set(igs_library_components
  RUNTIME COMPONENT igs_runtime
  LIBRARY COMPONENT igs_runtime NAMELINK_COMPONENT igs_development
  ARCHIVE COMPONENT igs_development)
install(TARGETS igs igs_shape EXPORT igs ${igs_library_components} INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(TARGET igs_static)
  target_compile_features(igs_static INTERFACE cxx_std_20)
  target_compile_options(igs_static INTERFACE $<TARGET_PROPERTY:igs,INTERFACE_COMPILE_OPTIONS>)
  target_compile_definitions(igs_static INTERFACE IGS_STATIC)
  install(TARGETS igs_static igs_shape_static EXPORT igs ${igs_library_components} INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endif()

set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME igs_development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/igs/ DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/igs
  FILES_MATCHING PATTERN *.h PATTERN private EXCLUDE)

install(EXPORT igs NAMESPACE igs:: FILE igs-targets.cmake DESTINATION ${igs_cmake_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/igs-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_LIST_DIR}/igs-config.cmake ${PROJECT_BINARY_DIR}/igs-config-version.cmake
  DESTINATION ${igs_cmake_dir})

file(RELATIVE_PATH igs_pc_to_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" igs_pc_to_prefix ${igs_pc_to_prefix})
if(NOT BUILD_SHARED_LIBS)
  set(igs_pc_definitions -DIGS_STATIC)
endif()
foreach(package igs igs-shape)
  configure_file(${CMAKE_CURRENT_LIST_DIR}/${package}.pc.in ${PROJECT_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()

if(IGS_BUILD_TOOL)
  install(FILES ${PROJECT_SOURCE_DIR}/docs/man/igs.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT igs_tool)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/schema DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT igs_tool)
  set(igs_completion ${PROJECT_SOURCE_DIR}/tools/completion)
  install(FILES ${igs_completion}/igs.bash RENAME igs
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT igs_tool)
  install(FILES ${igs_completion}/_igs DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT igs_tool)
endif()
