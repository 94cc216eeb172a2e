#pragma once

#include <vector>

#include "igs/file/igsFileOptions.h"
#include "igs/support/export.h"
#include "igs/support/utString.h"

/// One form of an entity type, or a run of forms that share a name. The version range says in which IGES versions the
/// form is valid; 0 and 0 mean all of them, which holds for every form of igsInfoDB.
class IGS_API igsFormInfo {
 public:
  /// Covers no form and has no name.
  igsFormInfo() = default;
  /// `min_form` to `max_form`, both included.
  igsFormInfo(int min_form, int max_form, utString name, int min_version, int max_version);

  int min_form_number() const { return m_min_form_number; }
  int max_form_number() const { return m_max_form_number; }
  const utString& form_name() const { return m_form_name; }
  int min_version() const { return m_min_version; }
  int max_version() const { return m_max_version; }

 private:
  int m_min_form_number = 0;
  int m_max_form_number = -1;
  utString m_form_name;
  int m_min_version = 0;
  int m_max_version = 0;
};

/// One entity type: its name, its default form and its forms.
class IGS_API igsEntityInfo {
 public:
  /// `default_form_number` is igs_unset_int for a type without a default form. The type starts without forms.
  igsEntityInfo(utString name, int default_form_number);

  const utString& entity_name() const { return m_entity_name; }
  int default_form_number() const { return m_default_form_number; }

  /// Adds a form and takes ownership of it; null is ignored. Of overlapping forms the one added last is found.
  void add_form(igsFormInfo* form);
  /// True when some form covers `form`; for a type without forms, when `form` is 0.
  bool form_exists(int form) const;
  /// The form that covers `form`, or an igsFormInfo without a name when there is none.
  const igsFormInfo& form_info(int form) const;

 private:
  /// Null when no form covers `form`.
  const igsFormInfo* find(int form) const;

  utString m_entity_name;
  int m_default_form_number;
  std::vector<igsFormInfo> m_forms;  // in the order in which they were added
};

/// What IGES 5.3 knows by number: entity types, their forms, and three flags of the Global section. The knowledge is
/// constant. A name stays valid until the process ends; the name of something that does not exist is the empty string.
class IGS_API igsInfoDB {
 public:
  /// Whether the standard has the type, and its name, such as "Line".
  static bool entity_exists(int type);
  static const utString& entity_name(int type);

  /// True when the type has the form. A type for which no forms are listed has form 0 alone; the unknown entity (-1)
  /// and the null entity (0) have every form above INT_MIN. False for a type that does not exist.
  static bool form_exists(int type, int form);
  static const utString& form_name(int type, int form);
  /// As above, for files that are asked for more: with igsFileOptions::unbounded_lines the line (110) has the forms 0,
  /// 1 and 2.
  static bool form_exists(int type, int form, const igsFileOptions& options);
  /// The same for the name.
  static const utString& form_name(int type, int form, const igsFileOptions& options);
  /// Entity name and form name as "Conic Arc(Ellipse)".
  static utString entity_form_name(int type, int form);
  /// Sets `form` to the type's default form and `found` to 1; both to 0 when the type does not exist or has no default.
  static void default_form_number(int type, int& form, int& found);

  /// Units flag, Global parameter 14: 1 to 11.
  static bool units_exist(int flag);
  static const utString& units_name(int flag);
  /// IGES version flag, Global parameter 23: 1 to 11.
  static bool version_exists(int flag);
  static const utString& version_name(int flag);
  /// Drafting standard flag, Global parameter 24: 0 to 7.
  static bool draft_exists(int flag);
  static const utString& draft_name(int flag);
};
