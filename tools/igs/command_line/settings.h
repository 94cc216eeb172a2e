#pragma once

#include <string>

/// Why this is no KEY=VALUE of --set that could be applied; empty when it is.
std::string setting_fault(const std::string& setting);
/// Applies one that has no fault.
void set_resource(const std::string& setting);
/// Makes the library take SOURCE_DATE_EPOCH (https://reproducible-builds.org/specs/source-date-epoch) for the present,
/// where that is set to a moment.
void use_source_date();
