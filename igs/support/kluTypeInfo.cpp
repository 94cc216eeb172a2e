#include "igs/support/kluTypeInfo.h"

#include <algorithm>
#include <cstring>

namespace {
// Copies are never destroyed: records are used until the process ends.
template <class Value>
const Value* kept_copy(const Value* first, std::size_t count) {
  return std::copy_n(first, count, new Value[count]) - count;
}
}  // namespace

kluTypeInfo::kluTypeInfo(const utString& name, const kluTypeInfo* const* parents)
    : m_name(kept_copy(name.c_str(), name.size() + 1)), m_parent(nullptr), m_hash(hash(m_name)) {
  if (parents == nullptr || *parents == nullptr) return;
  m_parent = *parents;
  std::size_t count = 1;
  while (parents[count] != nullptr) ++count;
  if (count > 1) m_other_parents = kept_copy(parents + 1, count);
}

bool kluTypeInfo::has_name_of(const kluTypeInfo& other) const { return std::strcmp(m_name, other.m_name) == 0; }

bool kluTypeInfo::childof(const kluTypeInfo& other) const {
  for (const kluTypeInfo* record = this; record != nullptr; record = record->m_parent) {
    if (*record == other) return true;
    if (record->m_other_parents == nullptr) continue;
    for (const kluTypeInfo* const* parent = record->m_other_parents; *parent != nullptr; ++parent) {
      if ((*parent)->childof(other)) return true;
    }
  }
  return false;
}
