#pragma once

#include <vector>

#include "igs/objects/igsCast.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/objects/igsSurface.h"

// What bounded and trimmed surfaces share: their boundaries name the surface that they lie on. What is of another class
// than `Boundary` is no boundary.

/// The boundary; null for what is none.
template <class Boundary>
const Boundary* igs_boundary(const igsObjectPtr& reference) {
  const igsObject* const object = reference.object();
  return object != nullptr && object->isa(Boundary::type()) ? static_cast<const Boundary*>(object) : nullptr;
}

/// True for a boundary that names `surface`, null too, as its own.
template <class Boundary>
bool igs_lies_on(const igsObjectPtr& reference, const igsObjectPtr& surface) {
  const Boundary* const boundary = igs_boundary<Boundary>(reference);
  return boundary != nullptr && boundary->surface() == surface;
}

/// The one surface that the boundaries name, those that name none left out; null when there is no such surface.
template <class Boundary>
igsSurface* igs_common_surface(const std::vector<igsObjectPtr>& boundaries) {
  igsObject* common = nullptr;
  for (const igsObjectPtr& reference : boundaries) {
    const Boundary* const boundary = igs_boundary<Boundary>(reference);
    igsObject* const surface = boundary != nullptr ? boundary->surface().object() : nullptr;
    if (surface == nullptr) continue;
    if (common != nullptr && surface != common) return nullptr;
    common = surface;
  }
  return igs_cast<igsSurface>(common);
}
