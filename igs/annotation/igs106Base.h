#pragma once

#include "igs/curves/igsPlanarPoints.h"
#include "igs/errors/igsRepairs.h"
#include "igs/objects/igsAnnotation.h"

/// Base of the Copious Data (IGES 5.3, type 106) of which drawings consist: planar points and what is drawn between
/// them.
class IGS_API igs106Base : public igsTyped<igs106Base, "igs106Base", igsAnnotation>, public igsPlanarPoints {
 public:
  /// Takes the last of an odd number of 3 or more points away and returns 1; 0 for other numbers.
  int remove_unpaired_point();

 protected:
  igs106Base() = default;

  /// True for points that are the ends of strokes, two by two.
  bool has_paired_points() const;
};

/// Kind of the error that says that points which go in pairs do not: a last one without a partner is dropped.
using igsUnpairedPoint = igsRepairedBy<igs106Base, &igs106Base::remove_unpaired_point>;
