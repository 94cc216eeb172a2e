#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The candidates that contain `name` or are nearly the same, whatever their case, the nearest first; five at most.
std::vector<std::string_view> nearest(std::string_view name, const std::vector<std::string_view>& candidates);
/// "a, b, c".
std::string joined(const std::vector<std::string_view>& names);
/// "; did you mean a, b?", of the nearest candidates; empty when none is near.
std::string suggestion(std::string_view name, const std::vector<std::string_view>& candidates);
