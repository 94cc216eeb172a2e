# Flags for people who work on the library; users of it get none of them.
function(igs_developer_flags target)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    return()
  endif()
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion)
  set_target_properties(${target} PROPERTIES
    UNITY_BUILD_CODE_BEFORE_INCLUDE "// NOLINTNEXTLINE(bugprone-suspicious-include)")
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(${target} PRIVATE -Wno-restrict)  # false alarms in std::string (GCC bug 105651)
  endif()
  if(IGS_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

if(IGS_SANITIZE)
  # A real from a file that does not fit an integer is undefined behaviour that `undefined` leaves out.
  add_compile_options(-fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS _LIBCPP_DEBUG=0)  # whichever the standard library is: indices are checked
  add_link_options(-fsanitize=address,undefined,float-cast-overflow)
endif()
if(IGS_SANITIZE_THREADS)
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
  add_link_options(-fsanitize=thread)
endif()

# What a fuzzer is to see the ways through.
function(igs_fuzzed target)
  if(IGS_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()
