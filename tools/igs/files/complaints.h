#pragma once

#include <iosfwd>
#include <string>

#include "files/model.h"

// What goes to standard error, or, as `err`, waits for that.

void complain(std::ostream& err, const std::string& file, const std::string& reason);
/// What the library had to say while it read.
void complain_of_messages(std::ostream& err, const Model& model);
/// Flushes standard output. False, with a complaint, when results could not be written.
bool flush_output();
