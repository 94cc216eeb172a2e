#pragma once

#include <iostream>

/// Where the work with one file prints its results and its complaints: standard output and standard error, or texts
/// that are printed when the turn of the file has come.
struct Streams {
  std::ostream& out;
  std::ostream& err;
};

inline Streams standard_streams() { return {std::cout, std::cerr}; }
