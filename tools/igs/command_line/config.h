#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// The configuration file that holds where nobody names one: `igs.toml` in the working directory or the nearest one
/// above it. Empty when there is none.
std::string found_config();

/// The options that a configuration file sets for a command, as words of a call. Its keys are the long names of
/// options, for every command that has them, or in a section of a command's name for that one. Throws a CLI::ParseError
/// for a key that no command has, a value that the option refuses, and a file that cannot be read.
///
/// What the call has `given` stands: only lists have the words of the file, too, in front.
std::vector<std::string> configured_words(CLI::App& app, CLI::App& command, const std::string& name,
                                          const std::vector<const CLI::Option*>& given);
