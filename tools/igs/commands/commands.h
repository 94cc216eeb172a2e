#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "report/format.h"
#include "text/paint.h"

// The commands, each in the source file of its name. Every one returns an ExitStatus.

/// What the commands have in common, as far as they take it.
struct Options {
  Format format = Format::text;
  ColorMode color = ColorMode::automatic;
  std::size_t jobs = 1;              ///< files at a time
  std::optional<std::size_t> limit;  ///< of the errors, or changes, listed a file
  std::vector<std::string> names;    ///< of files, or what is to be explained

  std::size_t most_listed() const {
    constexpr std::size_t in_text = 1000;
    return limit.value_or(format == Format::text ? in_text : std::numeric_limits<std::size_t>::max());
  }
};

struct RepairOptions : Options {
  bool delete_faulty = false;
  bool summary = false;  ///< say what differs between what was read and what was written
  std::string target;
};

struct DiffOptions : Options {      // the names are those of the old file and the new one
  std::optional<double> tolerance;  ///< nothing: reals must be equal
};

int run_info(const Options& options);
int run_check(const Options& options);
int run_repair(const RepairOptions& options);
int run_diff(const DiffOptions& options);
int run_print(const Options& options);
/// Explains the error classes, or keys of --set, of these names; all error classes without a name.
int run_explain(const Options& options);
