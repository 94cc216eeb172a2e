#pragma once

#include <string>
#include <vector>

/// Which files a call names.
struct NameSources {
  std::vector<std::string> names;  ///< of files, in the order of the call; "-" is standard input
  std::string list;                ///< a file that holds more names, "-" for standard input; empty without one
  bool searches_folders = false;   ///< instead of a folder come the IGES files in it
};

/// The names of all files to work on, each once, at its first place: those given, then those of the list. A folder
/// becomes the files below it that are called *.igs or *.iges, or such with .gz behind, in any case, sorted; symbolic
/// links to folders are not followed. What cannot be searched, or holds no such file, is complained of on standard
/// error and raises `status`. Throws a std::runtime_error when the list cannot be read.
std::vector<std::string> expanded_names(const NameSources& sources, int& status);
