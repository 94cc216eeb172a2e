#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include "diff/compare.h"

class JsonWriter;

/// Lists at most `max_changes` differences, one a line, then a line that counts them all, which begins with `title`.
DifferenceCounts write_text_differences(std::ostream& out, const Comparison& comparison, std::size_t max_changes,
                                        const std::string& title);
/// Writes the members "changes" (at most `max_changes` of them), "same" and the counts of an open JSON object.
DifferenceCounts write_json_differences(JsonWriter& json, const Comparison& comparison, std::size_t max_changes);

/// The same without the list: how many entities of each type differ; in text a line for each type.
DifferenceCounts write_text_statistics(std::ostream& out, const Comparison& comparison, const std::string& title);
/// "types" in the place of "changes".
DifferenceCounts write_json_statistics(JsonWriter& json, const Comparison& comparison);
