#pragma once

#include <cstdint>
#include <utility>

#include "igs/objects/igsInFileMemory.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

/// A directory entry attribute that is either a number or a pointer to a defining entity. In the file the pointer
/// stands as the negative of the definition's DE number. Eight bytes while it has never been a pointer.
class IGS_API igsDEAttribute {
 public:
  igsDEAttribute() = default;
  /// From the field as read: 0 or more is the number; a negative n gives number 0 and a pointer to DE -n.
  explicit igsDEAttribute(int field) : m_state(number_state(field >= 0 ? field : 0)) {
    if (field < 0) refer_to(field);
  }
  igsDEAttribute(const igsDEAttribute& other) : igsDEAttribute() { *this = other; }
  igsDEAttribute(igsDEAttribute&& other) noexcept : m_state(other.m_state) { other.m_state = number_state(0); }
  /// The number, or a pointer beside the other's.
  igsDEAttribute& operator=(const igsDEAttribute& other);
  /// The number, or the other's pointer in its place.
  igsDEAttribute& operator=(igsDEAttribute&& other) noexcept {
    if (this == &other) return *this;
    if (!is_number()) delete reference();
    m_state = std::exchange(other.m_state, number_state(0));
    return *this;
  }
  ~igsDEAttribute() {
    if (!is_number()) delete reference();
  }

  /// True when the attribute is a number, false when it names a defining entity. Shared by all three attributes.
  bool predefined_colour() const { return is_number() || reference()->definition.object() == nullptr; }
  /// Null where the attribute is a number.
  const igsObjectPtr& definition() const;
  /// As above, to be changed in place.
  igsObjectPtr& definition() { return make_reference().definition; }
  void set_definition(const igsObjectPtr& definition) { make_reference().definition = definition; }
  /// The field as written.
  int field() const;
  /// Gives the definition up (igsObjectPtr::unreference).
  void unreference() {
    if (!is_number()) reference()->definition.unreference();
  }

 protected:
  /// What it is where there is no definition.
  int value() const { return is_number() ? static_cast<int>(m_state >> 32) : reference()->value; }
  void set_value(int value) {
    if (is_number()) {
      m_state = number_state(value);
    } else {
      reference()->value = value;
    }
  }

 private:
  struct Reference : igsInFileMemory {
    explicit Reference(int value) : value(value) {}

    [[no_unique_address]] igsObjectPtr definition;
    int value;
  };

  static constexpr std::uint64_t number_state(int value) {
    return std::uint64_t{static_cast<std::uint32_t>(value)} << 32 | 1;
  }
  bool is_number() const { return (m_state & 1) != 0; }
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the state was made from this pointer
  Reference* reference() const { return reinterpret_cast<Reference*>(static_cast<std::uintptr_t>(m_state)); }
  Reference& make_reference();
  void refer_to(int field);

  /// A number beside a set lowest bit, or the address of a Reference, which is owned: few attributes have one.
  std::uint64_t m_state = number_state(0);
};

/// Field 4: line font pattern 0 (none) to 5, or a line font definition (type 304).
class IGS_API igsLineFont : public igsDEAttribute {
 public:
  using igsDEAttribute::igsDEAttribute;
  /// The number; 0, or the one before, where there is a definition.
  int pattern_value() const { return value(); }
  /// A pattern 0 to 5, or a pointer to an entity of type 304.
  bool valid() const;
};

/// Field 5: level number, or a list of levels (type 406 form 1).
class IGS_API igsLevel : public igsDEAttribute {
 public:
  using igsDEAttribute::igsDEAttribute;
  /// The number; 0, or the one before, where there is a definition.
  int level() const { return value(); }
  /// Any number of 0 or more, or a pointer to an entity of type 406.
  bool valid() const;
};

/// Field 13: colour number 0 (none) to 8, or a colour definition (type 314).
class IGS_API igsColour : public igsDEAttribute {
 public:
  using igsDEAttribute::igsDEAttribute;
  /// The number; 0, or the one before, where there is a definition.
  int colour_value() const { return value(); }
  /// A number 0 to 8, or a pointer to an entity of type 314.
  bool valid() const;
};
