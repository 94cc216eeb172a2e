#pragma once

#include <string>

#include "commands/commands.h"

/// The name under which the repaired file is written: its own, the one that the call gives, or that in the folder of
/// the call, where a file that was found in a folder keeps its place below it, and ".gz" goes. Its own for a trial.
std::string target_of(const std::string& name, const RepairOptions& options);
/// Makes the folders that are written to. Returns why files cannot be written there, empty when they can.
std::string targets_fault(const RepairOptions& options);
