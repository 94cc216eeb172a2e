// What a file keeps beside what its classes know: entities without a class, the rest of records, names.

#include <algorithm>
#include <cstring>
#include <string_view>
#include <utility>

#include "igs/catalogue/igsFactory.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/private/igsEntityPool.h"
#include "igs/file/private/igsFieldJudge.h"
#include "igs/input/igsInStream.h"
#include "igs/objects/igsKeptParts.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsObjectManager.h"
#include "igs/objects/igsPlaceholders.h"

const igsKeptParts* igsFile::kept_parts(const igsObject& object) const {
  if (m_kept.empty()) return nullptr;
  const auto found = m_kept.find(object.manager());
  return found != m_kept.end() ? found->second.get() : nullptr;
}

igsKeptParts& igsFile::make_kept_parts(const igsObject& object) {
  std::unique_ptr<igsKeptParts>& parts = m_kept[object.manager()];
  if (parts == nullptr) parts = std::make_unique<igsKeptParts>();
  return *parts;
}

void igsFile::keep_comment(const igsObject& object, std::size_t begin) {
  const std::size_t end = m_records.find_last_not_of(' ') + 1;
  if (begin < end) make_kept_parts(object).comment = m_records.substr(begin, end - begin);
}

namespace {
bool is_blank(std::string_view text) {
  return text.empty() || (text[0] == ' ' && std::memcmp(text.data(), text.data() + 1, text.size() - 1) == 0);
}

// Zeros behind the groups, which some systems write, are as good as no fields.
bool says_nothing(const igsFieldTexts& fields) {
  const std::vector<std::string_view> texts = fields.fields();
  return std::all_of(texts.begin(), texts.end(), [](std::string_view text) { return text.empty() || text == "0"; });
}
}  // namespace

/// What becomes of the records of an entity, which `in` has collected: all of them, or those behind its own fields.
/// Returns the entity that the file has then.
igsObject& igsFile::judge_or_keep(igsInStream& in, igsObject& object) {
  const bool has_class = object.manager()->visited() != 0;
  const bool has_ended = in.record_ended();
  std::size_t begin = in.fields_end();
  // Almost all have nothing else.
  const bool is_plain = !in.take_met_odd_field() || !m_options.strict;
  if (has_class && has_ended && is_plain && is_blank(std::string_view(m_records).substr(begin))) return object;
  igsFieldTexts own, rest;
  const auto take = [&in](igsFieldTexts& fields, std::string_view records, std::size_t at) {
    return fields.take(records, at, in.param_delimiter(), in.record_delimiter());
  };
  if (!has_class) begin = m_records.size();
  std::size_t end = take(own, std::string_view(m_records).substr(0, begin), 0);
  if (has_class && !has_ended && end == begin) end = take(rest, m_records, begin);
  igsKeptParts groups;
  const bool are_groups = take_groups(rest, groups);
  bool is_unread = false;
  if (m_options.strict) {
    igsFieldJudge judge(object, own);
    judge.judge_texts();
    if (has_class) object.visit_fields(judge);
    is_unread = judge.found_unread() && has_class;
    if (!are_groups && !says_nothing(rest))
      igs_report<igsFileObjectExtraData>(object.de_number(), static_cast<int>(own.fields().size()));
    if (end == 0 || m_records[end - 1] != in.record_delimiter()) {
      igs_report<igsFileNoRecordDelimiter>(object.de_number());
    }
  }
  if (!m_options.keep) return object;
  const bool has_no_class = object.isa(igsUnknown::type());
  igsObject& kept = has_class || has_no_class || !m_options.strict ? object : put_empty(object, own);
  if (has_no_class) keep_unknown(static_cast<igsUnknown&>(object), own);
  if (is_unread) {
    make_kept_parts(kept).unread_fields = std::move(own);
    for (const std::string_view field : rest.fields()) make_kept_parts(kept).unread_fields.append(field);
  } else if (has_class) {
    keep_rest(kept, std::move(rest), are_groups ? &groups : nullptr);
  }
  if (kept.manager()->visited() != 0) keep_comment(kept, end);
  return kept;
}

/// Puts an empty entity of the same class, which is written as `all` says, in the place of one that cannot be read.
igsObject& igsFile::put_empty(igsObject& object, const igsFieldTexts& all) {
  if (all.empty() || object.isa(igsNull::type())) return object;
  const igsDirectoryEntry& entry = object.directory_entry();
  const int de = object.de_number();
  // A pointer to a number that no entity has must not find the empty one there.
  auto waiting = m_pending.extract(m_free_slots.empty() ? static_cast<int>(m_slots.size()) : m_free_slots.back());
  igsObject* const empty = igsFactory::make_one(entry.entity_type(), entry.form_number(), m_options);
  m_pending.insert(std::move(waiting));
  empty->directory_entry().become(entry);
  make_kept_parts(*empty).unread_fields = all;
  make_kept_parts(*empty).structure = make_kept_parts(object).structure;
  const int borrowed = empty->manager()->system_location();
  replace_entity(&object, empty);
  give_back_slot(borrowed);
  empty->manager()->set_visited(1);
  igs_report<igsFileUnreadData>(de);
  return *empty;
}

void igsFile::keep_rest(const igsObject& object, igsFieldTexts rest, igsKeptParts* groups) {
  if (rest.empty()) return;
  igsKeptParts& parts = make_kept_parts(object);
  if (groups == nullptr) {
    parts.extra_fields = std::move(rest);
  } else {
    parts.groups = groups->groups;
    parts.associativities = std::move(groups->associativities);
    parts.properties = std::move(groups->properties);
  }
}

/// Where the directory entry gives two types, that of the parameter data counts: it is surely one of them.
void igsFile::keep_unknown(igsUnknown& unknown, const igsFieldTexts& all) {
  const std::vector<std::string_view> texts = all.fields();
  igsFieldTexts fields;
  for (std::size_t i = 1; i < texts.size(); ++i) fields.append(texts[i]);
  unknown.set_fields(std::move(fields));
  igsDirectoryEntry& entry = unknown.directory_entry();
  if (entry.entity_type() < 0) {
    const int type = texts.empty() ? 0 : igsFieldTexts::integer(texts[0], 0);
    entry.set_type(static_cast<igsEntityType>(type > 0 ? type : unknown.type_in_file()), unknown.form_in_file());
  } else if (!texts.empty() && igsFieldTexts::integer(texts[0], -1) != entry.entity_type()) {
    make_kept_parts(unknown).unread_fields = all;
  }
  unknown.manager()->set_visited(1);
}

/// Makes pointers of `fields`; false, `parts` as they were, unless these are one or two groups of DE numbers.
bool igsFile::take_groups(const igsFieldTexts& fields, igsKeptParts& parts) const {
  const std::vector<std::string_view> texts = fields.fields();
  std::vector<igsObjectPtr> groups[2];
  std::size_t next = 0;
  int num_groups = 0;
  while (next < texts.size()) {
    const int count = igsFieldTexts::integer(texts[next++], -1);
    if (num_groups == 2 || count < 0 || static_cast<std::size_t>(count) > texts.size() - next) return false;
    for (int i = 0; i < count; ++i, ++next) {
      igsObject* const target = entity(igsFieldTexts::integer(texts[next], 0));
      if (target == nullptr) return false;
      groups[num_groups].emplace_back(target);
    }
    ++num_groups;
  }
  parts.groups = num_groups;
  parts.associativities = std::move(groups[0]);
  parts.properties = std::move(groups[1]);
  return true;
}

/// The entity goes, but what points at it keeps its number.
void igsFile::lose_entity(igsObject& object) {
  igsObjectManager* const manager = object.manager();
  const int slot = manager->system_location();
  m_pending.emplace(slot, manager);  // which may take memory
  manager->directory_entry()->become(igsDirectoryEntry());
  m_kept.erase(manager);
  manager->set_object(nullptr);
  m_slots[static_cast<std::size_t>(slot)] = nullptr;
  free_slot(slot);
  object.set_manager(nullptr);
  delete &object;
}

namespace {

/// Reports the pointers of an entity whose targets are missing.
class LostReferences : public igsPointerVisitor {
 public:
  explicit LostReferences(int de) : m_de(de) {}
  void visit(igsObjectPtr& pointer) override {
    const int target = pointer.object() == nullptr ? pointer.de_number() : 0;
    if (target != 0) igs_report<igsFileLostReference>(m_de, target);
  }

 private:
  int m_de;
};

}  // namespace

/// Pointers to entities that the input does not have keep their numbers.
void igsFile::settle_lost_references() {
  std::erase_if(m_pending, [this](const auto& waiting) {
    const auto [slot, manager] = waiting;
    manager->set_system_location(slot);
    const bool is_unused = manager->num_references() == 0;
    if (is_unused) m_pool->destroy(manager);
    return is_unused;
  });
  if (m_pending.empty() || !m_options.strict) return;
  igsFileIT entities(this);
  while (++entities) {
    igsObject& object = *entities();
    LostReferences lost(object.de_number());
    object.visit_pointers(lost);
    object.directory_entry().visit_pointers(lost);
    if (kept_parts(object) != nullptr) make_kept_parts(object).visit_pointers(lost);
  }
}

bool igsFile::holds_kept_numbers() const {
  const auto is_used = [](const auto& waiting) { return waiting.second->num_references() != 0; };
  if (std::any_of(m_pending.begin(), m_pending.end(), is_used)) return true;
  const bool in_parts =
      std::any_of(m_kept.begin(), m_kept.end(), [](const auto& kept) { return kept.second->may_hold_numbers(); });
  if (in_parts) return true;
  igsFileTypeIT unknowns(this, igsUnknown::type());
  while (++unknowns) {
    if (igs_may_hold_numbers(static_cast<const igsUnknown*>(unknowns())->fields())) return true;
  }
  return false;
}

void igsFile::settle_numbers() {
  m_num_fixed_slots = static_cast<int>(m_slots.size());
  m_num_holes += static_cast<int>(m_free_slots.size());
  m_free_slots.clear();
}

namespace {

/// The fields of a property of this form; empty for any other entity, and where they are not kept.
std::vector<std::string_view> property_fields(const igsObject* object, int form) {
  constexpr int property = 406;
  if (object == nullptr || !object->isa(igsUnknown::type())) return {};
  const auto& unknown = static_cast<const igsUnknown&>(*object);
  if (unknown.directory_entry().entity_type() != property || unknown.form_in_file() != form) return {};
  return unknown.fields().fields();
}

utString without_padding(const utString& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == utString::npos ? utString() : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

}  // namespace

utString igsFile::entity_name(const igsObject& object) const {
  constexpr int name_property = 15;
  if (const igsKeptParts* const parts = kept_parts(object)) {
    for (const igsObjectPtr& property : parts->properties) {
      const std::vector<std::string_view> fields = property_fields(property.object(), name_property);
      if (fields.size() > 1) return utString(igsFieldTexts::string(fields[1]));
    }
  }
  const igsDirectoryEntry& entry = object.directory_entry();
  utString name = without_padding(entry.entity_label());
  if (entry.entity_subscript() != 0) name += (name.empty() ? "" : " ") + std::to_string(entry.entity_subscript());
  return name;
}

std::vector<igsObject*> igsFile::entities_named(const utString& name) const {
  std::vector<igsObject*> named;
  igsFileIT entities(this);
  while (++entities) {
    if (entity_name(*entities()) == name) named.push_back(entities());
  }
  return named;
}

std::map<int, utString> igsFile::level_names() const {
  constexpr int level_property = 3;
  std::map<int, utString> names;
  igsFileTypeIT unknowns(this, igsUnknown::type());
  while (++unknowns) {
    const std::vector<std::string_view> fields = property_fields(unknowns(), level_property);
    if (fields.size() < 3 || igsFieldTexts::kind(fields[1]) != igsFieldKind::integer) continue;
    names.emplace(igsFieldTexts::integer(fields[1], 0), igsFieldTexts::string(fields[2]));
  }
  return names;
}
