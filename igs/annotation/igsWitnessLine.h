#pragma once

#include "igs/annotation/igs106Base.h"

class igsWitnessLine;
using igsWitnessLineErrors = igsPlanarPointsErrors<igsWitnessLine, "igsWitnessLine">;

/// Witness line (form 40): an odd number of points, at least 3, on a straight line. Point 0 is what is measured; from
/// there on gaps and strokes take turns, beginning with a gap, which has no length where points 0 and 1 are the same.
class IGS_API igsWitnessLine
    : public igsPlanarPointsEntity<igsWitnessLine, "igsWitnessLine", igs106Base, igsWitnessLineErrors> {
 public:
  igsWitnessLine();
  void check_pd() const override;

 private:
  void check_line() const;
};
