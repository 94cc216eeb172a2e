#pragma once

#include <string>
#include <vector>

#include "igs/igs.h"
#include "igs/shape/igsShapeCheck.h"

/// The keys of --set: those of the library's table, then the options of the geometric checks, where angles are in
/// degrees.
const std::vector<coResourceInfo>& setting_keys();
/// Why this is no KEY=VALUE of --set that could be applied; empty when it is.
std::string setting_fault(const std::string& setting);
/// Applies one that has no fault, to the library's table or to the options.
void apply_setting(const std::string& setting, igsShapeCheckOptions& shape);
/// Makes the library take SOURCE_DATE_EPOCH (https://reproducible-builds.org/specs/source-date-epoch) for the present,
/// where that is set to a moment.
void use_source_date();
