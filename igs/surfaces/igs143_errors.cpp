#include "igs/surfaces/igs143_errors.h"

#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs143.h"
#include "igs/surfaces/private/igsBoundaries.h"

int igs143NullSurfacePtr::fix() {
  return igs_repair<igs143>(object_at_key(), [](igs143& bounded) {
    igsSurface* const surface = igs_common_surface<igs141>(bounded.boundaries());
    if (surface != nullptr) bounded.set_basis_surface(surface);
    return surface != nullptr ? 1 : 0;
  });
}

int igs143SurfacePointerMismatch::fix() {
  igsObjectPtr boundary;
  const igs143* const bounded = igs_cast<igs143>(object_at_key());
  if (bounded == nullptr || bounded->boundary(value<0>(), boundary) == 0) return 0;
  return bounded->lies_on_surface(boundary) ? 1 : 0;
}
