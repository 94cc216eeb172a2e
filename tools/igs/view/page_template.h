#pragma once

#include <array>
#include <string_view>
#include <vector>

/// The page around what is written into it, made by web/build.mjs: the text before the title, between title and still
/// picture, between that and the model, and after it; each in parts that compilers take. Empty where there is none.
const std::array<std::vector<std::string_view>, 4>& page_template();
