#pragma once

#include <vector>

#include "igs/input/igsFieldTexts.h"
#include "igs/support/utString.h"

/// Corrects the counts of strings in `text`, a record of free-format fields, as far as `kinds`, those of its fields in
/// order, tell where a string must end: where something else than a delimiter stands behind a string, it ends at the
/// delimiter that makes the most of the fields behind it what they have to be. Returns the positions of these strings,
/// counted from 1.
std::vector<int> igs_correct_string_counts(utString& text, char parameter_delimiter, char record_delimiter,
                                           const std::vector<igsFieldKind>& kinds);
