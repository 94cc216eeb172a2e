#include "repair/repaired_file.h"

#include <algorithm>
#include <limits>
#include <new>
#include <set>
#include <sstream>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "explain/texts.h"
#include "findings/check.h"

namespace {

/// A model of what was written, which does not hold the bytes once they are read.
std::unique_ptr<Model> read_again(const std::string& name, const std::string& bytes, const igsFileOptions& options) {
  auto model = std::make_unique<Model>(name, InMemory{bytes});
  model->set_options(options);
  model->read_silently();
  model->take_input();
  return model;
}

/// What makes an error of the output the same as one of the input: its class, the entity and what it says.
using ErrorKey = std::tuple<std::string_view, int, std::string>;

ErrorKey key_of(const igsError& error, int de) { return {error.objtype().name(), de, sentence_of(error)}; }

/// How many digits written reals have at least.
int written_digits(const igsWritingStyle& style) {
  constexpr int all = std::numeric_limits<double>::max_digits10;
  const auto digits = [](intcoResourceKey key) {
    const int precision = kel_resource_table_inquire().value(key);
    return precision < 0 ? all : precision;
  };
  if (style.shortest_reals) return all;
  return std::min(digits(kelOptDoubleGeometricPrecision), digits(kelOptDoubleParametricPrecision));
}

constexpr const char* cannot_be_read = "what was written cannot be read again as it was; nothing is written";
/// Each brings the file nearer to what a repair leaves as it is.
constexpr int most_rounds = 5;

}  // namespace

RepairedFile::RepairedFile(Model& model, const RepairRules& rules, const igsFileOptions& options, bool has_summary,
                           std::ostream& err)
    : m_model(model), m_rules(rules), m_options(options), m_has_summary(has_summary), m_left(model, model.name()) {
  model.set_options(options);
  if (has_summary) model.keep_input();
  model.read(err);
  if (has_summary) m_input = model.take_input();
  m_missing = model.read_error();
}

void RepairedFile::repair() {
  if (!m_model.has_entities()) return;
  m_model.progress().stage("repairing");
  m_repaired.emplace(m_model, m_model.name());
  Repairing(m_model.file(), m_rules).run();
  note_findings();
}

/// Before the file is written: the lines of the input are known until then.
void RepairedFile::note_findings() {
  const igsFile& file = m_model.file();
  m_lost = lost_entities(file);
  m_missing = ::what_is_missing(m_model);
  m_repaired->findings = Findings::repaired(file, m_rules.findings);
  m_left = FileFindings(m_model, m_model.name());
  m_left.findings = Findings::active(file, m_rules.findings);
  for (const Finding& finding : m_left.findings.list()) {
    const std::optional<int> de = de_number(*finding.error);
    m_pending.push_back({finding, de ? file.entity(*de) : nullptr});
  }
  if (!m_rules.delete_faulty) return;
  igsFileIT entities(&file);
  while (++entities != 0) m_entities.emplace_back(entities()->de_number(), entities());
}

std::string RepairedFile::write(const std::string& target) {
  std::string failure = make_output(target);
  while (failure.empty() && m_rules.delete_faulty && delete_faulty_entities()) failure = make_output(target);
  for (int round = 0; failure.empty() && round < most_rounds && !is_settled(); ++round) failure = read_output(target);
  if (!failure.empty()) {
    m_output.reset();
    return failure;
  }
  m_left = FileFindings(*m_output, target);
  m_left.findings = Findings::of_check(m_output->file(), m_rules.findings);
  settle_repaired();
  if (m_has_summary) compare();
  return "";
}

/// The bytes of the file; nothing where it cannot be written.
std::optional<std::string> RepairedFile::written_bytes(Model& model) {
  std::ostringstream bytes;
  std::ostream nowhere(nullptr);
  utOstream complaints(nowhere);
  const bool is_written = model.file().write(bytes, complaints) != 0;
  model.expect_memory();
  return is_written ? std::optional(std::move(bytes).str()) : std::nullopt;
}

/// Writes to memory and reads that again.
std::string RepairedFile::make_output(const std::string& target) {
  m_model.progress().stage("writing");
  std::optional<std::string> bytes = written_bytes(m_model);
  if (!bytes) return "cannot be written";
  m_bytes = std::move(*bytes);
  std::string failure = read_output(target);
  const bool is_same = failure.empty() && m_output->file().num_entities() == m_model.file().num_entities();
  return failure.empty() && !is_same ? cannot_be_read : failure;
}

std::string RepairedFile::read_output(const std::string& target) {
  m_model.progress().stage("checking what was written");
  m_output = read_again(target, m_bytes, m_options);
  if (!m_output->was_read()) return cannot_be_read;
  check_faults(m_output->file());
  check_geometry(m_output->file(), m_rules.geometry);
  return "";
}

/// Whether a repair of the output would change nothing; else its output takes the place of the first. Reading what
/// could not be read before may show faults that were hidden.
bool RepairedFile::is_settled() {
  if (m_pending.empty() && m_repaired->findings.num_from(Severity::warning) == 0) return true;
  m_again.push_back(read_again(m_model.name(), m_bytes, m_options));
  Model& again = *m_again.back();
  Repairing(again.file(), m_rules).run();
  Findings repaired = Findings::repaired(again.file(), m_rules.findings);
  std::optional<std::string> bytes = written_bytes(again);
  if (!bytes || *bytes == m_bytes) return m_again.pop_back(), true;
  m_bytes = std::move(*bytes);
  m_repaired->findings.add(repaired.list());
  return false;
}

/// Deletes the entities in which the check of the output has found errors or warnings; those that only refer to them
/// may do without. False when there are none.
bool RepairedFile::delete_faulty_entities() {
  constexpr int most_careful_rounds = 20;  // no chain of entities, each of which needs the next, takes more
  const bool is_careful = m_delete_rounds++ < most_careful_rounds;
  const Findings findings = Findings::of_check(m_output->file(), m_rules.findings);
  std::set<int> faulty;
  for (const Finding& finding : findings.list()) {
    const std::optional<int> de = de_number(*finding.error);
    if (!de || finding.severity < Severity::warning || (finding.is_consequence && is_careful)) continue;
    if (m_model.file().entity(*de) != nullptr) faulty.insert(*de);
  }
  if (faulty.empty()) return false;
  if (m_deleted.empty()) {
    // The next check drops active errors, which are to be reported all the same.
    for (const Pending& pending : m_pending) m_model.file().error_log().mark_as_fixed(pending.finding.error);
  }
  for (const int de : faulty) delete m_model.file().entity(de);  // null where it went with one that it belonged to
  forget_deleted();
  Repairing repairing(m_model.file(), m_rules);
  repairing.take_out_deleted();
  repairing.run();
  return true;
}

void RepairedFile::forget_deleted() {
  std::unordered_set<const igsObject*> left;
  igsFileIT entities(&m_model.file());
  while (++entities != 0) left.insert(entities());
  std::erase_if(m_entities, [&](const auto& numbered) {
    if (left.contains(numbered.second)) return false;
    m_deleted.push_back(numbered.first);
    return true;
  });
  for (Pending& pending : m_pending) {
    if (!left.contains(pending.entity)) pending.entity = nullptr;
  }
}

/// What was repaired is what the output does not show any more: some faults go with the writing alone, and some repairs
/// last no longer than until the next check.
void RepairedFile::settle_repaired() {
  std::set<ErrorKey> left;
  std::set<std::pair<std::string_view, int>> left_classes;
  for (const Finding& finding : m_left.findings.list()) {
    const int de = de_number(*finding.error).value_or(0);
    left.insert(key_of(*finding.error, de));
    left_classes.emplace(finding.error->objtype().name(), de);
  }
  m_repaired->findings.erase_if([&](const Finding& finding) {
    const int de = de_number(*finding.error).value_or(0);
    return left_classes.contains({finding.error->objtype().name(), de}) && left.contains(key_of(*finding.error, de));
  });
  std::vector<Finding> gone;
  for (const Pending& pending : m_pending) {
    const Finding& finding = pending.finding;
    const bool has_entity = de_number(*finding.error).has_value();
    if (finding.is_consequence || is_about_loss(*finding.error) || (has_entity && pending.entity == nullptr)) continue;
    const int de = has_entity ? pending.entity->de_number() : 0;
    if (!left_classes.contains({finding.error->objtype().name(), de})) gone.push_back(finding);
  }
  m_repaired->findings.add(gone);
}

void RepairedFile::compare() {
  m_model.progress().stage("comparing");
  m_before = read_again(m_model.name(), m_input, m_options);
  m_comparison.emplace(m_before->file(), m_output->file(), RealRule::rounded(written_digits(m_options.style)));
}

Outcome RepairedFile::outcome() const {
  Outcome outcome{.model = m_model, .found = m_left, .lost = m_lost};
  outcome.repaired = m_repaired ? *m_repaired : FileFindings(m_model, m_model.name());
  outcome.delete_faulty = m_rules.delete_faulty;
  outcome.deleted = m_deleted;
  std::sort(outcome.deleted.begin(), outcome.deleted.end());
  outcome.has_summary = m_has_summary;
  outcome.summary = m_comparison ? &*m_comparison : nullptr;
  return outcome;
}
