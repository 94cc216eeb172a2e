# The library as its users get it: built without tests, installed, static and shared, used with g++ and clang++.
set(here ${CMAKE_CURRENT_LIST_DIR})
set(work ${CMAKE_CURRENT_BINARY_DIR}/consumer)

# This build provides one kind of library; the other kind comes from a build as a user would make it, but for its speed.
set(kinds static shared)
if(BUILD_SHARED_LIBS)
  list(REVERSE kinds)
endif()
list(GET kinds 0 here_kind)
list(GET kinds 1 other_kind)
add_test(NAME consumer.plain-build
  COMMAND ${here}/build ${CMAKE_COMMAND} ${PROJECT_SOURCE_DIR} ${work}/plain-build $<NOT:$<BOOL:${BUILD_SHARED_LIBS}>>)
set_tests_properties(consumer.plain-build PROPERTIES FIXTURES_SETUP plain_build TIMEOUT 1500 PROCESSORS 2)

add_test(NAME consumer.install-${here_kind} COMMAND ${here}/install ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR} ${work}/${here_kind})
add_test(NAME consumer.install-${other_kind} COMMAND ${here}/install ${CMAKE_COMMAND} ${work}/plain-build ${work}/${other_kind})
set_tests_properties(consumer.install-${other_kind} PROPERTIES FIXTURES_REQUIRED plain_build)

foreach(kind static shared)
  set_tests_properties(consumer.install-${kind} PROPERTIES FIXTURES_SETUP ${kind})
  foreach(compiler g++ clang++)
    add_test(NAME consumer.${kind}-${compiler}
      COMMAND ${here}/build_and_run ${compiler} ${work}/${kind} ${work}/${kind}-${compiler})
    set_tests_properties(consumer.${kind}-${compiler} PROPERTIES FIXTURES_REQUIRED ${kind} SKIP_RETURN_CODE 77)
  endforeach()
endforeach()

add_test(NAME headers COMMAND ${here}/../headers/compile_each g++ ${work}/static
  ${PROJECT_SOURCE_DIR}/igs)
set_tests_properties(headers PROPERTIES FIXTURES_REQUIRED static PROCESSORS 2)

add_test(NAME package.symbols COMMAND ${here}/../packaging/check_symbols ${work}/shared)
set_tests_properties(package.symbols PROPERTIES FIXTURES_REQUIRED shared)
find_program(igs_dpkg_deb dpkg-deb)
if(igs_dpkg_deb AND here_kind STREQUAL static)
  add_test(NAME package.debian COMMAND ${here}/../packaging/check_debs ${work}/plain-build ${work}/debs)
  set_tests_properties(package.debian PROPERTIES FIXTURES_REQUIRED plain_build)
endif()
