#pragma once

#include <cstddef>
#include <cstdio>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "files/model.h"
#include "files/tally.h"
#include "report/format.h"
#include "text/paint.h"

class Comparison;
class JsonWriter;

/// What `check` or `repair` found out about one file, apart from what the model itself tells.
struct Findings {
  explicit Findings(const Model& model_)
      : model(model_), num_entities(model_.file().num_entities()), types(model_.file()) {}

  const Model& model;
  int num_entities;                     ///< when the findings are made: for `repair` after the repairs
  EntityTypes types;                    ///< at the same moment; DE numbers as in the file that was read
  bool is_repair = false;               ///< the members below matter to `repair` alone
  bool delete_faulty = false;           ///< faulty entities were to be deleted
  std::vector<int> deleted;             ///< DE numbers of the entities deleted on request
  std::optional<std::string> written;   ///< the name written
  bool has_summary = false;             ///< a comparison was asked for
  const Comparison* summary = nullptr;  ///< of what was read with what was written; null when nothing was
};

/// Number of active errors that have not gone with their entity.
long long num_errors_left(const Findings& findings);

/// Reports the outcome of `check` and `repair`, one file after the other.
class Report {
 public:
  virtual ~Report() = default;
  /// Before the first file.
  virtual void begin() {}
  virtual void outcome(const Findings& findings) = 0;
  /// The file could not be opened, or was too much for the machine.
  virtual void failure(const std::string& file, const std::string& reason) = 0;
  /// Texts that the library had for people while it read.
  virtual void warnings(const Model& model) = 0;
  /// Takes over what another process has written with a report of the same kind, between begin() and end().
  virtual void adopt(std::FILE* text) = 0;
  /// After the last file; there are fewer tallies than names when standard output has failed.
  virtual void end(const std::vector<std::string>& /*names*/, const std::vector<Tally>& /*tallies*/) {}
};

/// `max_errors`: at most so many errors, and so many repaired ones, are listed a file.
std::unique_ptr<Report> make_report(Format format, std::size_t max_errors, std::ostream& out,
                                    const Paint& paint = Paint());
std::unique_ptr<Report> make_text_report(std::size_t max_errors, std::ostream& out, const Paint& paint);
std::unique_ptr<Report> make_sarif_report(std::size_t max_errors, std::ostream& out);
std::unique_ptr<Report> make_json_report(std::size_t max_errors, std::ostream& out);

/// The rows of a table about several files, and a line that sums them up.
void write_table(std::ostream& out, const std::vector<std::string>& names, const std::vector<Tally>& tallies,
                 const Paint& paint);

/// What an error is about, for people: "DE 7", "Global section".
std::string place_of(igsLogID log, const igsError& error);

// What `info` has in common with the reports.

/// The JSON line of a file that could not be opened.
void write_json_failure(std::ostream& out, const std::string& file, const std::string& reason);
/// The same on standard output, when that is to have JSON.
void print_failure(Format format, const std::string& file, const std::string& reason);
/// The members "de" to "values" of the open JSON object of an error.
void write_json_error_values(JsonWriter& json, const igsError& error, const EntityTypes& types);
/// The members "file" to "types" of an open JSON object.
void write_json_counts(JsonWriter& json, const Model& model, int num_entities, const EntityTypes& types);
/// "Property(Name)"; empty for a type that the standard does not have.
std::string kind_name(int type, int form);
/// One line about what reading left out; nothing when it kept everything.
void write_text_dropped(std::ostream& out, const igsFile& file);
