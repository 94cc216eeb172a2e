#pragma once

#include <string_view>

/// What a file is that begins with these bytes, when it is certainly no IGES file: "it is a STEP file". Empty for
/// everything else.
std::string_view foreign_kind(std::string_view beginning);
bool begins_as_gzip(std::string_view beginning);
