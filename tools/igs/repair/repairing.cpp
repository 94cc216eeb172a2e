#include "repair/repairing.h"

#include "explain/texts.h"
#include "findings/check.h"
#include "igs/errors.h"
#include "igs/objects/igsKeptParts.h"

namespace {

constexpr int most_passes = 10;

/// Repairs as long as that changes something.
class CarefulFixer : public igsFixer {
 public:
  CarefulFixer(const igsFile& file, const RepairRules& rules, bool after_deletion)
      : m_file(file), m_rules(rules), m_after_deletion(after_deletion) {}

 protected:
  bool accepts(const igsError& error) const override {
    const ErrorText* const text = find_error_text(error.objtype().name());
    if (text == nullptr || is_about_units(error) || !m_rules.findings.counts(text->name)) return false;
    if (const std::optional<int> de = de_number(error); de && is_written_as_read(*de)) return false;
    // These take out faulty members, too, of which there are none then.
    if (m_after_deletion && !text->is_consequence && error.typeof(igsCompoundEntityError::type())) return true;
    if (text->repair_kind == RepairKind::geometry && m_rules.keep_geometry) return false;
    return text->repair_kind == RepairKind::reference || is_repairable(*text);
  }

 private:
  bool is_written_as_read(int de) const {
    const igsObject* const entity = m_file.entity(de);
    const igsKeptParts* const parts = entity != nullptr ? m_file.kept_parts(*entity) : nullptr;
    return parts != nullptr && !parts->unread_fields.empty();
  }

  const igsFile& m_file;
  const RepairRules& m_rules;
  bool m_after_deletion;
};

/// How many errors were repaired by more than waiting for others.
long long num_changes(const igsFile& file) {
  long long number = 0;
  for_each_fixed_error(file.error_log(), [&number](igsLogID, const igsError& error) {
    const ErrorText* const text = find_error_text(error.objtype().name());
    if (text != nullptr && text->repair_kind != RepairKind::reference) ++number;
  });
  return number;
}

}  // namespace

bool is_about_loss(const igsError& error) {
  return error.isa(igsFileNoPDData::type()) || error.isa(igsFileLostDirectoryEntry::type()) ||
         error.isa(igsFileMissingSection::type()) || error.isa(igsFileReadEnded::type()) ||
         error.isa(igsFileSecondFile::type());
}

Repairing::Repairing(igsFile& file, const RepairRules& rules) : m_file(file), m_rules(rules) { settle_units(); }

void Repairing::settle_units() {
  if (!m_rules.units) return;
  const igsFileScope current(m_file);
  igsGlobalSection global(m_file.global_section());
  bool in_doubt = false;
  check_faults(m_file);
  for_each_active_error(m_file.error_log(), [&](igsLogID, igsError& error) {
    if (!is_about_units(error)) return;
    in_doubt = true;
    m_file.error_log().mark_as_fixed(&error);
  });
  if (!in_doubt) return;
  global.set_units(igsUnits(*m_rules.units));
  m_file.set_global_section(global);
}

/// Repairs what the last check has found. False when that changes nothing.
bool Repairing::repair_once() {
  const long long before = num_changes(m_file);
  CarefulFixer(m_file, m_rules, m_after_deletion).fix(m_file.error_log(), 1);
  return num_changes(m_file) != before;
}

/// All but the geometry.
void Repairing::repair_all() {
  bool is_changed = true;
  for (int round = 0; round < most_passes && is_changed; ++round) {
    check_faults(m_file);
    is_changed = repair_once();
  }
  check_faults(m_file);
}

// Geometry is looked at where everything else is in order: that takes longest.
void Repairing::run() {
  repair_all();
  for (int round = 0; check_geometry(m_file, m_rules.geometry) > 0 && round < most_passes && repair_once(); ++round) {
    repair_all();
  }
}
