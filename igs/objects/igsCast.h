#pragma once

#include "igs/objects/igsObject.h"

/// The object as a `T`; null for null and for an object that is neither a `T` nor of a class derived from it.
template <class T>
T* igs_cast(igsObject* object) {
  return object != nullptr && object->typeof(T::type()) ? static_cast<T*>(object) : nullptr;
}
template <class T>
const T* igs_cast(const igsObject* object) {
  return object != nullptr && object->typeof(T::type()) ? static_cast<const T*>(object) : nullptr;
}
