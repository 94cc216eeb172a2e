#pragma once

#include "igs/annotation/igs106Base.h"

class igsCentreLine;
using igsCentreLineErrors = igsPlanarPointsErrors<igsCentreLine, "igsCentreLine", igsUnpairedPoint>;

/// Centre lines: points 2i and 2i + 1 are the ends of one stroke. Form 20 (the default): through points; 21: through
/// the centres of circles.
class IGS_API igsCentreLine
    : public igsPlanarPointsEntity<igsCentreLine, "igsCentreLine", igs106Base, igsCentreLineErrors> {
 public:
  igsCentreLine();
  void check_pd() const override;
};
