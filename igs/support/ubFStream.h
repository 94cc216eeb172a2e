#pragma once

#include <fstream>

#include "igs/support/export.h"
#include "igs/support/utString.h"

/// A named file opened for reading, bytes as they stand. Test with `operator bool` whether it could be opened.
class IGS_API ubIFStream : public std::ifstream {
 public:
  explicit ubIFStream(const utString& name) : std::ifstream(name, std::ios::in | std::ios::binary) {}
};

/// A named file created or emptied and opened for writing, bytes as they stand.
class IGS_API ubOFStream : public std::ofstream {
 public:
  explicit ubOFStream(const utString& name) : std::ofstream(name, std::ios::out | std::ios::trunc | std::ios::binary) {}
};

/// Creates an empty file of a new name in `directory` (the system's directory for temporary files when empty) that only
/// its owner may read or write, and returns its path; the empty string when none can be created. The caller deletes it.
IGS_API utString klu_make_temp_file_name(const utString& directory);
