#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/model.h"
#include "files/streams.h"
#include "files/tally.h"
#include "findings/check.h"
#include "findings/findings.h"
#include "report/format.h"
#include "text/paint.h"

class Comparison;
class JsonWriter;

/// Findings with the file that they are about.
struct FileFindings {
  FileFindings(const Model& model_, std::string name_)
      : model(&model_), name(std::move(name_)), num_entities(model_.file().num_entities()), types(model_.file()) {}

  const Model* model;
  std::string name;  ///< as it is to be reported
  int num_entities;  ///< as those who use it need them: at the moment when it was made
  EntityTypes types;
  Findings findings = {};
};

/// What `check` or `repair` found out about one file.
struct Outcome {
  const Model& model;  ///< what was read
  FileFindings found;  ///< of `repair` what is left: in what was written, where something was
  std::vector<LostEntity> lost = {};
  std::optional<FileFindings> repaired = {};  ///< by `repair`, to which alone the members below matter
  bool delete_faulty = false;                 ///< faulty entities were to be deleted
  std::vector<int> deleted = {};              ///< DE numbers of the entities deleted on request
  std::optional<std::string> written = {};    ///< the name written
  bool is_trial = false;                      ///< nothing was to be written
  std::string failure = {};                   ///< why the file was not read to its end, or not written; else empty
  bool has_summary = false;                   ///< a comparison was asked for
  const Comparison* summary = nullptr;        ///< of what was read with what was written; null when nothing was

  bool is_repair() const { return repaired.has_value(); }
};

struct ReportOptions {
  Format format = Format::text;
  std::size_t max_errors = 0;  ///< at most so many errors, and so many repaired ones, are listed a file
  bool all = false;            ///< in text consequences and equal findings are listed, too
  bool quiet = false;          ///< text is about files with findings alone
  Paint paint = {};
};

/// Reports the outcome of `check` and `repair`. With several files one report has the beginning and the end, and each
/// file a report of its own.
class Report {
 public:
  virtual ~Report() = default;
  /// Before the first file.
  virtual void begin() {}
  virtual void outcome(const Outcome& outcome) = 0;
  /// The file could not be opened, or was too much for the machine.
  virtual void failure(const std::string& file, const std::string& reason) = 0;
  /// Texts that the library had for people while it read, for the stream of complaints.
  virtual void warnings(const Model& model, std::ostream& err) = 0;
  /// SARIF: adds what such a report has written of one file, between begin() and end(). Others print it as it stands.
  virtual void adopt(const std::string& /*text*/) {}
  /// After the last file; there are fewer tallies than names when standard output has failed.
  virtual void end(const std::vector<std::string>& /*names*/, const std::vector<Tally>& /*tallies*/) {}
};

std::unique_ptr<Report> make_report(const ReportOptions& options, std::ostream& out);
std::unique_ptr<Report> make_text_report(const ReportOptions& options, std::ostream& out);
std::unique_ptr<Report> make_sarif_report(const ReportOptions& options, std::ostream& out);
std::unique_ptr<Report> make_json_report(const ReportOptions& options, std::ostream& out);

/// What becomes of a file with this outcome: findings from `fail_on` up, and lost entities, make its status.
Tally tally_of(const Outcome& outcome, Severity fail_on, std::size_t max_errors);

/// What is done with one file: what it finds goes to the report.
using ReportedWork = std::function<Tally(Model& model, Report& report, const Streams& streams)>;
/// Does the work for every name, up to `jobs` at a time, with a report of all of it on `out`, which is where the
/// streams of the work lead. Returns the status to end with.
int work_with_reports(const std::vector<std::string>& names, std::size_t jobs, const ReportOptions& options,
                      std::ostream& out, const ReportedWork& work);

/// The rows of a table about several files, those without errors and warnings as one count.
void write_table(std::ostream& out, const std::vector<std::string>& names, const std::vector<Tally>& tallies,
                 const Paint& paint);

// What `info` has in common with the reports.

/// The JSON line of a file that could not be opened.
void write_json_failure(std::ostream& out, const std::string& file, const std::string& reason);
/// The same when the output is to have JSON.
void print_failure(std::ostream& out, Format format, const std::string& file, const std::string& reason);
/// The member "values" of the open JSON object of an error.
void write_json_values(JsonWriter& json, const igsError& error);
/// The members "file" to "units" of an open JSON object; `counted` is what the counts are about.
void write_json_counts(JsonWriter& json, const Model& model, const FileFindings& counted);
/// "Property(Name)"; empty for a type that the standard does not have.
std::string kind_name(int type, int form);
/// One line about what reading left out; nothing when it kept everything.
void write_text_dropped(std::ostream& out, const igsFile& file);
