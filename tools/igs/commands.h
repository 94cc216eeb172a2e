#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "paint.h"

// The commands, each in the source file of its name. Every one returns an ExitStatus.

enum class Format { text, json, sarif };

struct InfoOptions {
  Format format = Format::text;
  ColorMode color = ColorMode::automatic;
  std::size_t jobs = 1;  ///< files at a time
  std::vector<std::string> files;
};

struct CheckOptions {
  Format format = Format::text;
  ColorMode color = ColorMode::automatic;
  std::size_t jobs = 1;  ///< files at a time
  std::size_t max_errors = 0;
  std::vector<std::string> files;
};

struct RepairOptions {
  Format format = Format::text;
  ColorMode color = ColorMode::automatic;
  std::size_t max_errors = 0;
  bool delete_faulty = false;
  bool summary = false;  ///< say what differs between what was read and what was written
  std::string file;
  std::string target;
};

struct DiffOptions {
  Format format = Format::text;
  std::size_t max_changes = 0;
  std::optional<double> tolerance;  ///< nothing: reals must be equal
  std::vector<std::string> files;   ///< the old one and the new one
};

struct ExplainOptions {
  ColorMode color = ColorMode::automatic;
  std::vector<std::string> names;
};

int run_info(const InfoOptions& options);
int run_check(const CheckOptions& options);
int run_repair(const RepairOptions& options);
int run_diff(const DiffOptions& options);
int run_print(const std::string& file);
/// Explains the error classes, or keys of --set, of these names; all error classes without a name.
int run_explain(const ExplainOptions& options);
