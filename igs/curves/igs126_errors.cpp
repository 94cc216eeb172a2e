#include "igs/curves/igs126_errors.h"

#include "igs/file/igsFile.h"
#include "igs/objects/igsPlaceholders.h"

int igs126NoParamRange::fix() {
  return igs_repair<igs126>(object_at_key(), [this](igs126& curve) {
    curve.file().replace_entity(&curve, new igsNull);
    message("Warning : IGES 126 (Nurb Curve) DE %d has been removed.\n", key());
    return 0;
  });
}

int igs126WeightsAndRatFlagDisagree::fix() {
  return igs_repair<igs126>(object_at_key(),
                            [this](igs126& curve) { curve.set_rational_flag(value<0>() == 0 ? 1 : 0); });
}
