#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <string_view>
#include <vector>

/// Text of --help, fit for a screen of 80 columns.
std::string help_text(const CLI::App* app, const std::string& name, CLI::AppFormatMode mode);
/// The words on lines of at most 80 columns, each line `indent` columns in; it ends with a line end.
std::string wrapped(std::string_view text, std::size_t indent);
