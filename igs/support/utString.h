#pragma once

#include <string>

/// Text as bytes, in whatever encoding the file came with. Never interpreted, never converted.
using utString = std::string;
