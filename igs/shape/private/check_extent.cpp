#include <cmath>

#include "igs/file/igsFile.h"
#include "igs/file/igsGlobalSection.h"
#include "igs/shape/private/igsShapeChecking.h"

namespace {
constexpr double least_resolution = 1e-10, greatest_resolution = 1e-3;  // of the size
constexpr double rounding = 1e-6;
constexpr double farthest_centre = 1e5;  // of the size

// The section is handed to the error alone, which may repair it; this one does not.
template <class Error>
void tag_section(igsShapeChecking& checking, double found, double limit) {
  auto* const error = igs_report<Error>(found, limit);
  error->set_key(const_cast<igsGlobalSection*>(&checking.file.global_section()));
  error->set_message_stream(checking.file.message_stream());
  error->set_found_by_check();
  ++checking.num_errors;
}
}  // namespace

// What is no resolution at all, igsGlobalSection::check() says.
void igs_check_extent(igsShapeChecking& checking) {
  const igsGlobalSection& global = checking.file.global_section();
  const double size = checking.diagonal;
  if (!(size > 0)) return;
  const double resolution = global.minimum_resolution();
  if (global.given(19) && std::isfinite(resolution) && resolution > 0 &&
      (resolution < least_resolution * size || resolution > greatest_resolution * size)) {
    tag_section<igsShapeImplausibleResolution>(checking, resolution, size);
  }
  const double largest = global.max_coord_value();
  if (largest > 0 && checking.farthest > largest * (1 + rounding)) {
    tag_section<igsShapeBeyondLargestCoordinate>(checking, checking.farthest, largest);
  }
  const double centre = ((checking.box.low + checking.box.high) * 0.5).length();
  if (centre > farthest_centre * size) tag_section<igsShapeFarFromOrigin>(checking, centre, size);
}
