#pragma once

#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

/// A directory entry attribute that is either a number or a pointer to a defining entity. In the file the pointer
/// stands as the negative of the definition's DE number.
class IGS_API igsDEAttribute {
 public:
  igsDEAttribute() = default;
  /// From the field as read: 0 or more is the number; a negative n gives number 0 and a pointer to DE -n.
  explicit igsDEAttribute(int field);

  /// True when the attribute is a number, false when it names a defining entity. Shared by all three attributes.
  bool predefined_colour() const { return m_definition.object() == nullptr; }
  /// Null where the attribute is a number.
  const igsObjectPtr& definition() const { return m_definition; }
  /// As above, to be changed in place.
  igsObjectPtr& definition() { return m_definition; }
  void set_definition(const igsObjectPtr& definition) { m_definition = definition; }
  /// The field as written.
  int field() const;
  /// Gives the definition up (igsObjectPtr::unreference).
  void unreference() { m_definition.unreference(); }

 protected:
  int m_value = 0;

 private:
  igsObjectPtr m_definition;
};

/// Field 4: line font pattern 0 (none) to 5, or a line font definition (type 304).
class IGS_API igsLineFont : public igsDEAttribute {
 public:
  using igsDEAttribute::igsDEAttribute;
  int pattern_value() const { return m_value; }
  /// A pattern 0 to 5, or a pointer to an entity of type 304.
  bool valid() const;
};

/// Field 5: level number, or a list of levels (type 406 form 1).
class IGS_API igsLevel : public igsDEAttribute {
 public:
  using igsDEAttribute::igsDEAttribute;
  int level() const { return m_value; }
  /// Any number of 0 or more, or a pointer to an entity of type 406.
  bool valid() const;
};

/// Field 13: colour number 0 (none) to 8, or a colour definition (type 314).
class IGS_API igsColour : public igsDEAttribute {
 public:
  using igsDEAttribute::igsDEAttribute;
  int colour_value() const { return m_value; }
  /// A number 0 to 8, or a pointer to an entity of type 314.
  bool valid() const;
};
