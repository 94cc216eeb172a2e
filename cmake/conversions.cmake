# Which conversions between reals and text the standard library lacks; igs/support/private/portable.h has others for them.
include(CheckCXXSourceCompiles)

function(igs_find_conversions)
  set(CMAKE_CXX_STANDARD 20)
  check_cxx_source_compiles("#include <charconv>
    int main() { double value; return std::from_chars(\"\", \"\", value).ptr == nullptr; }" IGS_HAS_FROM_CHARS)
  check_cxx_source_compiles("#include <charconv>
    int main() { char text[9]; return std::to_chars(text, text + 9, 1.5, std::chars_format::general, 3).ptr == nullptr; }"
    IGS_HAS_TO_CHARS)
  if(NOT IGS_HAS_FROM_CHARS)
    find_path(IGS_FAST_FLOAT_DIR fast_float/fast_float.h PATHS /usr/local/include /usr/include NO_CMAKE_FIND_ROOT_PATH)
    if(NOT IGS_FAST_FLOAT_DIR)
      message(FATAL_ERROR "The standard library of ${CMAKE_CXX_COMPILER} has no std::from_chars of reals: igs needs the headers of fast_float then (Debian's libfast-float-dev; IGS_FAST_FLOAT_DIR names their folder)")
    endif()
    # By a link of its own: a cross compiler must not see what lies beside it.
    file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/fast_float)
    file(CREATE_LINK ${IGS_FAST_FLOAT_DIR}/fast_float ${PROJECT_BINARY_DIR}/fast_float/fast_float SYMBOLIC COPY_ON_ERROR)
  endif()
endfunction()
igs_find_conversions()

function(igs_use_conversions target)
  if(NOT IGS_HAS_FROM_CHARS)
    target_compile_definitions(${target} PRIVATE IGS_FAST_FLOAT)
    target_include_directories(${target} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/fast_float)
  endif()
  if(NOT IGS_HAS_TO_CHARS)
    target_compile_definitions(${target} PRIVATE IGS_NO_TO_CHARS)
  endif()
endfunction()
