#pragma once

#include <CLI/CLI.hpp>

#include "commands/commands.h"

/// Which findings count: --ignore, --only, --severity, --no-geometry.
void add_finding_rules(CLI::App& command, Options& options);
/// The same, and how findings are listed.
void add_report_options(CLI::App& command, Options& options);
/// How `repair` repairs and writes.
void add_repair_options(CLI::App& command, RepairOptions& options);
/// Throws a CLI::ParseError where options of `repair` contradict each other or the names.
void expect_targets(const RepairOptions& options);
