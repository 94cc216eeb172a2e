#pragma once

#include <string_view>

/// True when the whole name is as the pattern says, in which "*" stands for any text, or none. The time goes with the
/// lengths alone, however many "*" there are.
bool matches(std::string_view pattern, std::string_view name);
