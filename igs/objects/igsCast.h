#pragma once

#include <type_traits>

#include "igs/objects/igsPlaceholders.h"

/// The object as a `T`; null for null and for an object that is neither a `T` nor of a class derived from it.
template <class T>
T* igs_cast(igsObject* object) {
  return object != nullptr && object->typeof(T::type()) ? static_cast<T*>(object) : nullptr;
}
template <class T>
const T* igs_cast(const igsObject* object) {
  return object != nullptr && object->typeof(T::type()) ? static_cast<const T*>(object) : nullptr;
}

/// True for an entity class whose repairs are done when the entity has been removed, an igsNull standing in its place.
template <class T>
inline constexpr bool igs_done_when_removed = false;

/// For repairs: hands the object to `repair` when it is a `T`. Returns what `repair` returns, 1 when that is nothing,
/// and 0 when there is no such object.
template <class T, class Repair>
int igs_repair(igsObject* object, Repair repair) {
  T* const entity = igs_cast<T>(object);
  if (entity == nullptr) return igs_done_when_removed<T> && igs_cast<igsNull>(object) != nullptr ? 1 : 0;
  if constexpr (std::is_void_v<std::invoke_result_t<Repair&, T&>>) {
    repair(*entity);
    return 1;
  } else {
    return repair(*entity);
  }
}
