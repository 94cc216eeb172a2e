#pragma once

#include <vector>

#include "igs/input/igsFieldTexts.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"
#include "igs/support/utString.h"

class igsFieldVisitor;
class igsOutStream;
class igsPointerVisitor;
class utOstream;

/// What the records of an entity hold beside its own fields (IGES 5.3, section 2.2.4.5.2), in a file that keeps it
/// (igsFileOptions::keep): see igsFile::kept_parts.
struct IGS_API igsKeptParts {
  /// The two trailing groups of pointers: to associativities and notes, and to properties. Pointers that have become
  /// null are not written.
  std::vector<igsObjectPtr> associativities;
  std::vector<igsObjectPtr> properties;
  /// How many of the groups are written even where they are empty: 0, 1 or 2.
  int groups = 0;
  /// Fields that are no such groups, and stand in their place. The groups are empty then.
  igsFieldTexts extra_fields;
  /// The text behind the record delimiter, without blanks at its end.
  utString comment;
  /// Where the entity's own fields cannot be read as its class has them: all fields of its records as they stand, the
  /// type number first. They are written in place of what the class would write. The others but `structure` and
  /// `comment` are empty then.
  igsFieldTexts unread_fields;
  /// What a negative structure field of the directory entry refers to.
  igsObjectPtr structure;

  /// True when some text may hold the DE number of an entity.
  bool may_hold_numbers() const;
  /// Writes the groups and the extra fields, and hands over the comment.
  void write(igsOutStream& out) const;
  /// Prints what there is, referred entities by their DE numbers.
  void print(utOstream& os) const;
  /// As those of igsObject; visit_pointers shows `structure`, too.
  void visit_pointers(igsPointerVisitor& visitor);
  void visit_fields(igsFieldVisitor& visitor) const;
};

/// Shows the fields of a file to a visitor, each by its kind; numbers that are none, and those beyond 32 bits, as
/// texts.
IGS_API void igs_visit_texts(const igsFieldTexts& texts, igsFieldVisitor& visitor);
/// True when a field may be the DE number of an entity, or the negative of one.
IGS_API bool igs_may_hold_numbers(const igsFieldTexts& texts);
