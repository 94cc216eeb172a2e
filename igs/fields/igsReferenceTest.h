#pragma once

#include <type_traits>

#include "igs/objects/igsObject.h"

/// What an entity may demand of one that it refers to: to be of exactly the class `T` ...
template <class T>
struct igsExactly {
  /// True when the demand is met.
  bool operator()(const igsObject& object) const { return object.isa(T::type()); }
};
/// ... or of exactly one of several ...
template <class... T>
struct igsOneOf {
  /// True when the demand is met.
  bool operator()(const igsObject& object) const { return (... || object.isa(T::type())); }
};
/// ... or of `T` or a class derived from it ...
template <class T>
struct igsKindOf {
  /// True when the demand is met.
  bool operator()(const igsObject& object) const { return object.typeof(T::type()); }
};
/// ... or nothing: no error says then that it is of the wrong class. Any other function of that shape will do as well.
struct igsAnyEntity {
  /// Always true.
  bool operator()(const igsObject&) const { return true; }
};

/// Stands in the place of the first error class where the pointer may be null.
struct igsNullIsLegal {};

/// The test of a reference from one entity to another, for use in checks. The first fault found is tagged: the pointer
/// is null, the entity is not what is demanded, or the entity fails its own check. `InvalidError` derives from
/// igsReferenceDataError and concerns the entity referred to.
template <class NullError, class WrongTypeError, class InvalidError>
class igsReferenceTest {
 public:
  /// Tags `owner` when its `reference` has a fault; `values` go to the constructor of the error. Returns the entity
  /// referred to when it is what `demand` asks for, whether or not it passes its own check; null otherwise.
  template <class Demand, class... Values>
  static igsObject* check(const igsObject& owner, const igsObjectPtr& reference, Demand demand, Values... values) {
    igsObject* const object = reference.object();
    if (object == nullptr) {
      if constexpr (!std::is_same_v<NullError, igsNullIsLegal>) owner.tag<NullError>(values...);
      return nullptr;
    }
    if constexpr (!std::is_same_v<Demand, igsAnyEntity>) {
      if (!demand(*object)) {
        owner.tag<WrongTypeError>(values...);
        return nullptr;
      }
    }
    if (object->check() == 0) owner.tag_reference<InvalidError>(reference, values...);
    return object;
  }
};
