#include <algorithm>
#include <ostream>
#include <unordered_map>
#include <unordered_set>

#include "diff/report.h"
#include "explain/texts.h"
#include "files/complaints.h"
#include "findings/place.h"
#include "report/report.h"
#include "text/text.h"

namespace {

/// What equal findings have in common: all but numbers.
class Likeness : public igsErrorValueVisitor {
 public:
  explicit Likeness(const igsError& error) : m_key(error.objtype().name()) { error.visit_values(*this); }
  void value(int /*number*/) override {}
  void value(double /*number*/) override {}
  void value(const utString& text) override { m_key.append(1, '\0').append(text); }
  const std::string& key() const { return m_key; }

 private:
  std::string m_key;
};

Ink ink_of(Severity severity) {
  if (severity == Severity::note) return Ink::heading;
  return severity == Severity::warning ? Ink::doubtful : Ink::bad;
}

/// "1 error, 2 warnings"; empty when there are none.
std::string severity_counts(const Findings& findings) {
  std::string text;
  const auto add = [&](long long count, std::string_view one, std::string_view many) {
    if (count > 0) text += (text.empty() ? "" : ", ") + counted(count, one, many);
  };
  add(findings.count(Severity::error), "error", "errors");
  add(findings.count(Severity::warning), "warning", "warnings");
  add(findings.count(Severity::note), "note", "notes");
  return text;
}

/// Lists findings of one file.
class FindingLines {
 public:
  FindingLines(const ReportOptions& options, std::ostream& out, const FileFindings& file)
      : m_options(options), m_out(out), m_file(file), m_users(file.findings.list()) {}

  void write();

 private:
  static constexpr long long most_equal = 5;

  bool is_shown(const Finding& finding) const { return m_options.all || !finding.is_consequence; }
  void write_finding(const Finding& finding);
  void write_users(const Finding& finding);

  const ReportOptions& m_options;
  std::ostream& m_out;
  const FileFindings& m_file;
  UseGraph m_users;
  std::unordered_set<int> m_with_users;  ///< whose users were counted
};

void FindingLines::write() {
  std::unordered_map<std::string, long long> left;  // how many findings are like this one
  for (const Finding& finding : m_file.findings.list()) {
    if (is_shown(finding)) ++left[Likeness(*finding.error).key()];
  }
  std::unordered_map<std::string, long long> listed;
  std::size_t num_listed = 0;
  long long num_not_listed = 0;
  for (const Finding& finding : m_file.findings.list()) {
    if (!is_shown(finding)) continue;
    const std::string key = Likeness(*finding.error).key();
    const long long place = m_options.all ? 0 : listed[key]++;
    if (place > most_equal) continue;
    if (num_listed++ >= m_options.max_errors) {
      ++num_not_listed;
    } else if (place < most_equal || left[key] == most_equal + 1) {
      write_finding(finding);
    } else {
      m_out << "  and " << left[key] - most_equal << " more [" << finding.error->objtype().name() << "]\n";
    }
  }
  if (num_not_listed > 0) {
    m_out << "(" << counted(num_not_listed, "more is", "more are") << " not listed; see --max-errors)\n";
  }
}

void FindingLines::write_finding(const Finding& finding) {
  m_out << printable(m_file.name) << ':' << finding.line << ": "
        << m_options.paint(ink_of(finding.severity), severity_name(finding.severity)) << ": "
        << place_of(finding.log, *finding.error, m_file.types) << ": " << sentence_of(*finding.error) << " ["
        << finding.error->objtype().name() << "]\n";
  if (!finding.is_consequence && finding.severity != Severity::note) write_users(finding);
}

void FindingLines::write_users(const Finding& finding) {
  const std::optional<int> de = de_number(*finding.error);
  if (!de || !m_with_users.insert(*de).second) return;
  const std::optional<long long> users = m_users.num_users(*de);
  if (users && *users > 0) {
    m_out << "  " << counted(*users, "entity that uses it", "entities that use it") << '\n';
  }
}

class TextReport : public Report {
 public:
  TextReport(const ReportOptions& options, std::ostream& out) : m_options(options), m_out(out) {}
  void outcome(const Outcome& outcome) override;
  void failure(const std::string& /*file*/, const std::string& /*reason*/) override {}  // is complained of
  void warnings(const Model& model, std::ostream& err) override { complain_of_messages(err, model); }
  void end(const std::vector<std::string>& names, const std::vector<Tally>& tallies) override {
    if (names.size() > 1) write_table(m_out, names, tallies, m_options.paint);
  }

 private:
  void write_findings(const FileFindings& file) { FindingLines(m_options, m_out, file).write(); }
  void write_lost(const Outcome& outcome);
  void write_deleted(const Outcome& outcome);
  void write_summary(const Outcome& outcome);
  void write_heading(const std::string& heading) { m_out << m_options.paint(Ink::heading, heading) << '\n'; }

  ReportOptions m_options;
  std::ostream& m_out;
};

void TextReport::outcome(const Outcome& outcome) {
  const bool has_findings = !outcome.found.findings.empty() || !outcome.lost.empty() ||
                            (outcome.is_repair() && !outcome.repaired->findings.empty());
  if (m_options.quiet && !has_findings && outcome.failure.empty()) return;
  if (outcome.is_repair() && !outcome.repaired->findings.empty()) {
    write_heading("repaired:");
    write_findings(*outcome.repaired);
  }
  write_lost(outcome);
  const igsFile& file = outcome.model.file();
  if (outcome.is_repair() && !file.options().keep) write_text_dropped(m_out, file);
  if (outcome.is_repair() && !outcome.found.findings.empty()) write_heading("left:");
  write_findings(outcome.found);
  write_deleted(outcome);
  write_summary(outcome);
  if (outcome.summary == nullptr) return;
  write_text_differences(m_out, *outcome.summary, m_options.max_errors,
                         outcome.model.name() + " as read, " + outcome.found.name + " as written");
}

void TextReport::write_lost(const Outcome& outcome) {
  if (!outcome.is_repair() || outcome.lost.empty()) return;
  write_heading("lost:");
  for (const LostEntity& lost : outcome.lost) {
    m_out << printable(outcome.model.name()) << ':' << lost.line << ": " << place_of_entity(lost.de, lost.type) << ": "
          << lost.why << '\n';
  }
}

void TextReport::write_deleted(const Outcome& outcome) {
  if (outcome.deleted.empty()) return;
  m_out << "deleted:";
  for (const int de : outcome.deleted) m_out << " DE " << de << (de == outcome.deleted.back() ? "\n" : ",");
}

void TextReport::write_summary(const Outcome& outcome) {
  const Findings& findings = outcome.found.findings;
  m_out << printable(outcome.model.name()) << ": " << counted(outcome.found.num_entities, "entity", "entities");
  const std::string counts = severity_counts(findings);
  const Ink ink = findings.num_from(Severity::warning) > 0 ? Ink::bad : Ink::good;
  if (outcome.is_repair()) {
    const Findings& repaired = outcome.repaired->findings;
    m_out << ", " << repaired.size() << " repaired, " << m_options.paint(ink, std::to_string(findings.size()) + " left")
          << (counts.empty() ? "" : " (" + counts + ')');
  } else {
    const bool is_whole = outcome.failure.empty();
    if (counts.empty() && is_whole) m_out << ", " << m_options.paint(Ink::good, "no errors");
    if (!counts.empty()) m_out << ", " << m_options.paint(ink, counts);
  }
  if (!m_options.all && findings.num_consequences() > 0) {
    m_out << ", " << findings.num_consequences() << " of them consequences";
  }
  if (!outcome.lost.empty()) m_out << ", " << counted(std::ssize(outcome.lost), "entity", "entities") << " lost";
  if (outcome.delete_faulty) {
    m_out << ", " << counted(std::ssize(outcome.deleted), "entity", "entities") << " deleted";
  }
  if (!outcome.model.read_error().empty()) m_out << ", not read to its end";
  if (outcome.written) m_out << ", written to " << printable(*outcome.written);
  if (outcome.is_repair() && !outcome.written) m_out << (outcome.is_trial ? ", nothing written" : ", not written");
  m_out << '\n';
}

}  // namespace

std::unique_ptr<Report> make_text_report(const ReportOptions& options, std::ostream& out) {
  return std::make_unique<TextReport>(options, out);
}

std::string kind_name(int type, int form) {
  const utString& form_name = igsInfoDB::form_name(type, form);
  return igsInfoDB::entity_name(type) + (form_name.empty() ? "" : '(' + form_name + ')');
}

void write_text_dropped(std::ostream& out, const igsFile& file) {
  if (file.dropped_entities().empty()) return;
  out << "left out on reading:";
  const char* separator = " ";
  for (const auto& [kind, count] : file.dropped_entities()) {
    const auto& [type, form] = kind;
    const std::string name = kind_name(type, form);
    out << separator << count << " of type " << type << " form " << form << (name.empty() ? "" : " ") << name;
    separator = ", ";
  }
  out << '\n';
}
