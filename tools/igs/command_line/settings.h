#pragma once

#include <string>

/// Applies one KEY=VALUE of --set. Throws a CLI::ParseError for a key that does not exist and a value it cannot have.
void set_resource(const std::string& setting);
