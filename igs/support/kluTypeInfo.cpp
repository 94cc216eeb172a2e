#include "igs/support/kluTypeInfo.h"

#include <cstring>

bool kluTypeInfo::operator==(const kluTypeInfo& other) const {
  return this == &other || (m_hash == other.m_hash && std::strcmp(m_name, other.m_name) == 0);
}

bool kluTypeInfo::childof(const kluTypeInfo& other) const {
  for (const kluTypeInfo* record = this; record != nullptr; record = record->m_parent) {
    if (*record == other) return true;
  }
  return false;
}
