#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

/// Whether the option takes any number of values.
bool is_list(const CLI::Option& option);
/// Null when there is no command of this name.
CLI::App* find_command(CLI::App& app, const std::string& name);

/// The same for a name that has to be that of a command: throws a CLI::ParseError, which names the commands.
CLI::App& command_of(CLI::App& app, const std::string& name);

/// The words of a call after the program's name, in an order in which CLI11 takes every name as it stands: the command,
/// the options of the configuration file, its own options, then the names behind `--`. Left to itself CLI11 drops a
/// file `++` and takes `[a,b]` for two.
///
/// Throws a CLI::ParseError for a command or an option that does not exist, an option without its value, and what is
/// wrong with the configuration file.
std::vector<std::string> arranged(CLI::App& app, const std::vector<std::string>& words);
