#include <ostream>

#include "diff/report.h"
#include "explain/texts.h"
#include "files/complaints.h"
#include "files/jobs.h"
#include "report/report.h"
#include "text/text.h"

namespace {

void write_origin(std::ostream& out, igsLogID log, const igsError& error, const EntityTypes& types) {
  out << place_of(log, error) << two_spaces;
  const std::optional<int> de = de_number(error);
  if (const std::optional<int> type = de ? types.at(*de) : std::nullopt) {
    out << *type << ' ' << igsInfoDB::entity_name(*type) << two_spaces;
  }
}

class TextReport : public Report {
 public:
  TextReport(std::size_t max_errors, std::ostream& out, const Paint& paint)
      : m_max_errors(max_errors), m_out(out), m_paint(paint) {}
  void outcome(const Findings& findings) override;
  void failure(const std::string& /*file*/, const std::string& /*reason*/) override {}  // is complained of
  void warnings(const Model& model) override { complain_of_messages(model); }
  void adopt(std::FILE* text) override { copy_all(text, m_out); }
  void end(const std::vector<std::string>& names, const std::vector<Tally>& tallies) override {
    if (names.size() > 1) write_table(m_out, names, tallies, m_paint);
  }

 private:
  void write_lists(const Findings& findings, long long num_active, long long num_fixed);
  void write_deleted(const Findings& findings);
  void write_summary(const Findings& findings, long long num_active, long long num_fixed);
  void write_heading(const std::string& heading) { m_out << m_paint(Ink::heading, heading) << '\n'; }
  void write_left_out(long long count);
  /// Writes an error of a list as long as the list may be.
  auto listed(const EntityTypes& types, Ink ink) const {
    return [this, &types, ink, count = std::size_t{0}](igsLogID log, const igsError& error) mutable {
      if (count++ >= m_max_errors) return;
      write_origin(m_out, log, error, types);
      m_out << m_paint(ink, error.objtype().name()) << two_spaces << sentence_of(error) << '\n';
    };
  }

  std::size_t m_max_errors;
  std::ostream& m_out;
  Paint m_paint;
};

void TextReport::outcome(const Findings& findings) {
  const igsFile& file = findings.model.file();
  const long long num_active = num_active_errors(file.error_log());
  const long long num_fixed = num_fixed_errors(file.error_log());
  const bool has_details = num_active + num_fixed > 0 || !file.dropped_entities().empty();
  if (has_details) write_heading(printable(findings.model.name()) + ':');
  write_lists(findings, num_active, num_fixed);
  write_deleted(findings);
  write_text_dropped(m_out, file);
  write_summary(findings, num_active, num_fixed);
  if (findings.summary == nullptr) return;
  write_text_differences(m_out, *findings.summary, m_max_errors,
                         findings.model.name() + " as read, " + *findings.written + " as written");
}

void TextReport::write_lists(const Findings& findings, long long num_active, long long num_fixed) {
  const igsErrorLog& log = findings.model.file().error_log();
  if (num_fixed > 0) {
    write_heading("repaired:");
    for_each_fixed_error(log, listed(findings.types, Ink::good));
    write_left_out(num_fixed);
  }
  if (num_active > 0) {
    if (findings.is_repair) write_heading("not repaired:");
    for_each_active_error(log, listed(findings.types, Ink::bad));
    write_left_out(num_active);
  }
}

void TextReport::write_left_out(long long count) {
  const long long left_out = count - static_cast<long long>(m_max_errors);
  if (left_out > 0) m_out << "(" << counted(left_out, "more is", "more are") << " not listed; see --max-errors)\n";
}

void TextReport::write_deleted(const Findings& findings) {
  if (findings.deleted.empty()) return;
  m_out << "deleted:";
  for (const int de : findings.deleted) m_out << " DE " << de << (de == findings.deleted.back() ? "\n" : ",");
}

void TextReport::write_summary(const Findings& findings, long long num_active, long long num_fixed) {
  const long long num_left = num_errors_left(findings);
  m_out << printable(findings.model.name()) << ": " << counted(findings.num_entities, "entity", "entities");
  if (!findings.is_repair) {
    m_out << ", "
          << (num_active > 0 ? m_paint(Ink::bad, counted(num_active, "error", "errors"))
                             : m_paint(Ink::good, "no errors"));
  } else {
    m_out << ", " << counted(num_fixed, "error", "errors") << " repaired, "
          << m_paint(num_left > 0 ? Ink::bad : Ink::good, std::to_string(num_left) + " left");
    if (num_active > num_left) m_out << ", " << num_active - num_left << " gone with their entities";
    if (findings.delete_faulty)
      m_out << ", " << counted(std::ssize(findings.deleted), "entity", "entities") << " deleted";
  }
  if (!findings.model.was_read()) m_out << ", not read to its end";
  if (findings.written) m_out << ", written to " << printable(*findings.written);
  if (findings.is_repair && !findings.written) m_out << ", not written";
  m_out << '\n';
}

}  // namespace

std::unique_ptr<Report> make_text_report(std::size_t max_errors, std::ostream& out, const Paint& paint) {
  return std::make_unique<TextReport>(max_errors, out, paint);
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
