# GTest_DIR for targets that Debian has no built GoogleTest for: its package holds the sources, too.
if(NOT TARGET GTest::gtest)
  add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()
