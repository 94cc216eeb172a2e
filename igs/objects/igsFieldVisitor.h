#pragma once

#include "igs/support/export.h"
#include "igs/support/utString.h"

class igsObject;

/// Is shown the parameter fields of an entity one by one (igsObject::visit_fields), in file order and with the values
/// that stand in the file, so that positions count from 1. Reals are not rounded.
///
/// A label is what prints show before the field. It is null for the elements of a list, which count from 0. Labels and
/// texts are good for the duration of the call.
class IGS_API igsFieldVisitor {
 public:
  virtual ~igsFieldVisitor();

  /// A number without a fraction.
  virtual void integer(const char* label, int value) = 0;
  /// -DBL_MAX was never set.
  virtual void real(const char* label, double value) = 0;
  /// A string, without its length.
  virtual void text(const char* label, const utString& value) = 0;
  /// A pointer, whether it stands in the file as a DE number or as the negative of one; null for a null pointer.
  virtual void reference(const char* label, const igsObject* target) = 0;
  /// What follows until end_group() is one value together: the coordinates of a point ("x", "y", "z"), the fields of a
  /// record, or the elements of a list. Groups stand within groups, to a depth that the class decides, not the file.
  virtual void begin_group(const char* label) = 0;
  virtual void end_group() = 0;
  /// The next field, or group, may be left out of the record: it has a default other than 0, or does not always apply.
  virtual void optional() {}
};
