#pragma once

#include "igs/annotation/igs106Base.h"

class igsSection;
using igsSectionErrors = igsPlanarPointsErrors<igsSection, "igsSection", igsUnpairedPoint>;

/// Hatching of a section: points 2i and 2i + 1 are the ends of one hatch line. Forms 31 (the default) to 38 tell the
/// material.
class IGS_API igsSection : public igsPlanarPointsEntity<igsSection, "igsSection", igs106Base, igsSectionErrors> {
 public:
  igsSection();
  void check_pd() const override;
};
