#pragma once

#include <string>

/// Where the directory entries of a file stand among its lines, as an editor counts them.
class DirectoryLines {
 public:
  /// No line is known when the lines of the file, up to the Parameter Data, are not all sound records in sequence, or
  /// when it is no regular file, which can be read but once.
  static DirectoryLines of(const std::string& name);

  /// The first line of a directory entry, from 1; 0 where it is not known.
  long long line_of(int de_number) const;

 private:
  long long m_before = 0, m_count = 0;
};
