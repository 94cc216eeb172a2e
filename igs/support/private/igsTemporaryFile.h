#pragma once

#include <fstream>
#include <istream>
#include <ostream>

#include "igs/support/ubFStream.h"

/// The name of a file of our own, which is removed at the end of its life at the latest.
class igsTemporaryName {
 public:
  explicit igsTemporaryName(const utString& directory) : m_name(klu_make_temp_file_name(directory)) {}
  ~igsTemporaryName() { remove(); }
  igsTemporaryName(const igsTemporaryName&) = delete;
  igsTemporaryName& operator=(const igsTemporaryName&) = delete;

  const utString& operator()() const { return m_name; }
  void remove();

 private:
  utString m_name;
};

/// A file that is written, then read back, and gone afterwards. Where the system allows it the name goes at once, so
/// that nothing is left behind even when the process is killed; elsewhere after the stream, which is destroyed first.
class igsTemporaryFile {
 public:
  /// In `directory`, or where the system keeps such files when that is empty; not open where that failed.
  explicit igsTemporaryFile(const utString& directory);

  bool is_open() const { return m_file.is_open(); }
  std::ostream& out() { return m_file; }
  /// The file from its start, after the output has been flushed.
  std::istream& in() {
    m_file.seekg(0);
    return m_file;
  }

 private:
  igsTemporaryName m_name;
  std::fstream m_file;
};
