#pragma once

#include "igs/shape/export.h"

class igsFile;

/// From when on geometric faults count. Lengths are model units, angles radians; 0 stands for what follows from the
/// file: with L the diagonal of what it shows and G the minimum resolution of its Global section (IGES 5.3, section
/// 2.2.4.3.19), the tolerance is G or 0.01 mm, whichever is more, but at most L / 1000; where the units are unknown, G
/// or L / 100,000.
struct igsShapeCheckOptions {
  double tolerance = 0;  ///< above it a distance is a warning, above ten times as much an error, below it a note
  double least = 0;      ///< distances up to this are none; 0: G, at most the tolerance, at least the noise of reals
  double tiny = 0;       ///< edges shorter and faces narrower than this are reported; 0: the tolerance
  double angle = 0;      ///< of kinks; 0: 3 degrees
  int degree = 0;        ///< the highest of curves and surfaces that is not reported; 0: 8
};

/// Looks at the geometry of what the file shows, and tags entities with the errors of igsShape_errors.h; those of an
/// earlier call are dropped first. To be called after igsFile::check(), which drops them, too. Returns their number.
IGS_SHAPE_API int igsShapeCheck(const igsFile& file, const igsShapeCheckOptions& options = {});
