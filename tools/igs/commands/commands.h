#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "findings/rules.h"
#include "igs/shape/igsShapeCheck.h"
#include "report/report.h"
#include "text/paint.h"
#include "view/writers.h"

// The commands, each in the source file of its name. Every one returns an ExitStatus.

/// What the commands have in common, as far as they take it.
struct Options {
  Format format = Format::text;
  ColorMode color = ColorMode::automatic;
  std::size_t jobs = 1;              ///< files at a time
  std::optional<std::size_t> limit;  ///< of the errors, or changes, listed a file
  FindingRules rules;
  Severity fail_on = Severity::warning;  ///< findings from here up make the exit status 1
  bool all = false;                      ///< consequences and equal findings are listed, too
  bool quiet = false;                    ///< only files with findings are reported
  bool no_geometry = false;              ///< points, lengths and areas are not looked at
  igsShapeCheckOptions shape;            ///< of the geometric checks
  bool has_geometry = false;             ///< info, diff: what the files measure
  std::vector<std::string> names;        ///< of files, or what is to be explained

  /// How the geometry is to be checked; nothing: not at all.
  std::optional<igsShapeCheckOptions> geometric_checks() const {
    return no_geometry ? std::nullopt : std::optional(shape);
  }

  std::size_t most_listed() const {
    constexpr std::size_t in_text = 1000;
    return limit.value_or(format == Format::text ? in_text : std::numeric_limits<std::size_t>::max());
  }
  /// For a report that goes to `descriptor`.
  ReportOptions report_options(int descriptor) const {
    return {format, most_listed(), all, quiet, Paint(color, descriptor)};
  }
};

struct RepairOptions : Options {
  bool delete_faulty = false;
  bool summary = false;  ///< say what differs between what was read and what was written
  bool dry_run = false;  ///< say so, and write nothing
  bool salvage = false;  ///< write what was read of a file that is not whole
  bool keep_geometry = false;
  bool drop_unsupported = false;  ///< leave out what has no class
  bool in_place = false;
  std::string target;                ///< of the one file
  std::string output_dir;            ///< of all files
  std::vector<std::string> folders;  ///< names of the call as it gives them, those of folders among them
  std::optional<igsUnitType> units;
  std::optional<int> digits;  ///< of reals; nothing: as many as they need
  igsExponentLetter exponent = igsExponentLetter::as_read;
  igsLineEnd line_end = igsLineEnd::as_read;
};

struct DiffOptions : Options {      // the names are those of the old file and the new one
  std::optional<double> tolerance;  ///< nothing: reals must be equal
  double figure_tolerance = 1e-6;   ///< of --geometry
  bool stat = false;                ///< counts instead of a list
};

enum class Picture { page, glb, svg };

struct ViewOptions : Options {  // the name is that of the file, or of the new one
  std::string old_name;         ///< of the file to compare with; empty without one
  std::string target;
  std::optional<Picture> format_asked;
  Picture picture = Picture::page;     ///< what is written
  std::optional<double> chord, angle;  ///< in model units and degrees
  std::optional<igsVec3> direction;    ///< in which one looks; nothing: the usual one
};

int run_info(const Options& options);
int run_check(const Options& options);
int run_repair(const RepairOptions& options);
int run_diff(const DiffOptions& options);
/// Draws a file with its faults.
int run_view(const ViewOptions& options);
int run_print(const Options& options);
/// Explains the error classes, or keys of --set, of these names; all error classes without a name.
int run_explain(const Options& options);
