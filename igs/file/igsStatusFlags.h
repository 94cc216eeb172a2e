#pragma once

#include "igs/support/export.h"

class utOstream;

/// Directory entry field 9, first pair of digits.
using igsBlankStatus = int;
/// Second pair: subordinate entity switch.
using igsSubordinateStatus = int;
/// Third pair: entity use flag. 5, 2D parametric, selects the parametric number format when the entity is written.
using igsEntityUse = int;
/// Fourth pair.
using igsHierarchy = int;

/// The status number of a directory entry (IGES 5.3, section 2.2.4.4.9). Values are kept as read.
class IGS_API igsStatusFlags {
 public:
  static constexpr igsEntityUse use_geometry = 0;            ///< geometry
  static constexpr igsEntityUse use_logical_positional = 4;  ///< logical or positional
  static constexpr igsEntityUse use_2d_parametric = 5;       ///< in the parameter space of a surface

  igsStatusFlags() = default;
  igsStatusFlags(igsBlankStatus blank, igsSubordinateStatus subordinate, igsEntityUse use, igsHierarchy hierarchy)
      : m_blank_status(blank), m_subordinate_status(subordinate), m_entity_use(use), m_hierarchy(hierarchy) {}

  void become(const igsStatusFlags& other) { *this = other; }

  igsBlankStatus blank_status() const { return m_blank_status; }
  igsSubordinateStatus subordinate_status() const { return m_subordinate_status; }
  igsEntityUse entity_use() const { return m_entity_use; }
  igsHierarchy hierarchy() const { return m_hierarchy; }

  /// True when each of the four has a value that the standard names: 0-1, 0-3, 0-6, 0-2.
  bool valid() const;
  void print(utOstream& os) const;

  /// The names of the values; "Unknown" for any other.
  static const char* blank_status_name(igsBlankStatus value);
  static const char* subordinate_status_name(igsSubordinateStatus value);
  static const char* entity_use_name(igsEntityUse value);
  static const char* hierarchy_name(igsHierarchy value);

  bool operator==(const igsStatusFlags&) const = default;

 private:
  igsBlankStatus m_blank_status = 0;
  igsSubordinateStatus m_subordinate_status = 0;
  igsEntityUse m_entity_use = 0;
  igsHierarchy m_hierarchy = 0;
};
