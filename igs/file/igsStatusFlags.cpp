#include "igs/file/igsStatusFlags.h"

#include <cstddef>
#include <span>

#include "igs/support/utOstream.h"

namespace {
constexpr const char* blank_names[] = {"Visible", "Blanked"};
constexpr const char* subordinate_names[] = {"Independent", "Physically Dependent", "Logically Dependent",
                                             "Physically and Logically Dependent"};
constexpr const char* use_names[] = {"Geometry",           "Annotation",    "Definition",    "Other",
                                     "Logical/Positional", "2D Parametric", "Constructional"};
constexpr const char* hierarchy_names[] = {"Global top down", "Global defer", "Use hierarchy property"};

bool is_named(std::span<const char* const> names, int value) {
  return value >= 0 && static_cast<std::size_t>(value) < names.size();
}

const char* name_of(std::span<const char* const> names, int value) {
  return is_named(names, value) ? names[static_cast<std::size_t>(value)] : "Unknown";
}
}  // namespace

bool igsStatusFlags::valid() const {
  return is_named(blank_names, m_blank_status) && is_named(subordinate_names, m_subordinate_status) &&
         is_named(use_names, m_entity_use) && is_named(hierarchy_names, m_hierarchy);
}

const char* igsStatusFlags::blank_status_name(igsBlankStatus value) { return name_of(blank_names, value); }
const char* igsStatusFlags::subordinate_status_name(igsSubordinateStatus value) {
  return name_of(subordinate_names, value);
}
const char* igsStatusFlags::entity_use_name(igsEntityUse value) { return name_of(use_names, value); }
const char* igsStatusFlags::hierarchy_name(igsHierarchy value) { return name_of(hierarchy_names, value); }

void igsStatusFlags::print(utOstream& os) const {
  os << "BlankStatus = " << m_blank_status << " (" << blank_status_name(m_blank_status) << ')' << utEndl;
  os << "SubordinateStatus = " << m_subordinate_status << " (" << subordinate_status_name(m_subordinate_status) << ')'
     << utEndl;
  os << "EntityUse = " << m_entity_use << " (" << entity_use_name(m_entity_use) << ')' << utEndl;
  os << "Hierarchy = " << m_hierarchy << " (" << hierarchy_name(m_hierarchy) << ')' << utEndl;
}
