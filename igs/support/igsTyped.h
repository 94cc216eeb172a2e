#pragma once

#include <algorithm>
#include <cstddef>

#include "igs/support/export.h"
#include "igs/support/kluTypeInfo.h"

/// A class name as a template argument.
template <std::size_t N>
struct igsName {
  // NOLINTNEXTLINE(google-explicit-constructor): a literal is to be written where a name is wanted
  constexpr igsName(const char (&literal)[N]) { std::copy_n(literal, N, text); }
  /// With a zero at its end.
  char text[N] = {};
};

/// Holds the record of the root of a hierarchy. It is no member of the root class itself, which hosts on Windows
/// import: the address of something imported is not constant, and the records of the classes below need it.
template <igsName Name>
class IGS_API_TEMPLATE igsTypedRoot {
 public:
  /// The type record of the class.
  static constexpr kluTypeInfo id{Name.text};
  /// As `id`.
  static const kluTypeInfo& type() { return id; }
};

/// The type protocol of one class, written once: a class `igsX` under `igsParent` derives from
/// `igsTyped<igsX, "igsX", igsParent>`. The root of a hierarchy has igsTypedRoot and declares the three operations
/// itself.
///
/// `isa` asks for the exact class; `typeof` asks for the class or one of its descendants.
template <class Self, igsName Name, class Parent>
class IGS_API_TEMPLATE igsTyped : public Parent {
 public:
  /// The type record of the class.
  static constexpr kluTypeInfo id{Name.text, &Parent::id};

  /// As `id`.
  static const kluTypeInfo& type() { return id; }
  /// True when the object is of the class `t` or of one derived from it.
  bool typeof(const kluTypeInfo& t) const override { return id.childof(t); }
  /// The type record of the object's class.
  const kluTypeInfo& objtype() const override { return id; }
  /// True when the object is of exactly the class `t`.
  bool isa(const kluTypeInfo& t) const override { return id == t; }

 protected:
  using Parent::Parent;
  igsTyped() = default;
};
