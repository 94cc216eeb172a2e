#include "igs/surfaces/igs144_errors.h"

#include "igs/surfaces/igs142.h"
#include "igs/surfaces/igs144.h"
#include "igs/surfaces/private/igsBoundaries.h"

int igs144NullSurfacePtr::fix() {
  return igs_repair<igs144>(object_at_key(), [](igs144& trimmed) {
    igsSurface* const surface = igs_common_surface<igs142>(trimmed.inner_boundaries());
    if (surface != nullptr) trimmed.set_surface(surface);
    return surface != nullptr ? 1 : 0;
  });
}

int igs144OuterBoundSurfaceMismatch::fix() {
  const igs144* const trimmed = igs_cast<igs144>(object_at_key());
  return trimmed != nullptr && trimmed->lies_on_surface(trimmed->outer_boundary()) ? 1 : 0;
}

int igs144InnerBoundSurfaceMismatch::fix() {
  igsObjectPtr boundary;
  const igs144* const trimmed = igs_cast<igs144>(object_at_key());
  if (trimmed == nullptr || trimmed->inner_boundary(trimmed->get_current_index(value<0>()), boundary) == 0) return 0;
  return trimmed->lies_on_surface(boundary) ? 1 : 0;
}
