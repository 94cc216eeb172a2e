#pragma once

#include <functional>
#include <string>

#include "files/model.h"
#include "files/streams.h"
#include "files/tally.h"

/// What a command does with a file.
struct FileWork {
  /// Reads a file that has been opened, and prints what there is to print.
  std::function<Tally(Model& model, const Streams& streams)> handle;
  /// Prints that nothing came of the file, which is complained of already; may be missing.
  std::function<void(const std::string& name, const std::string& reason, const Streams& streams)> failure;
};

/// Opens the file and does the work. One that cannot be opened, or is too much for the machine, is a failure. Throws
/// nothing.
Tally with_file(const std::string& name, const FileWork& work, const Streams& streams);
/// Complains of the file and calls `failure`.
Tally failed(const std::string& name, const std::string& reason, const FileWork& work, const Streams& streams);
/// The tally of a file that has been read; complains when that was not to its end.
Tally tally_of(const Model& model, const Streams& streams);
