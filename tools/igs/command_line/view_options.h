#pragma once

#include <CLI/CLI.hpp>

#include "commands/commands.h"

/// What `view` draws, how, and what it is written as.
void add_view_options(CLI::App& command, ViewOptions& options);
/// Settles what is written, by the name of the output where the call does not say. Throws a CLI::ParseError where that
/// cannot be told, and where names cannot go together.
void expect_picture(ViewOptions& options);
