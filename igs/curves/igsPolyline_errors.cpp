#include "igs/curves/igsPolyline_errors.h"

#include "igs/curves/igsPolyline.h"
#include "igs/objects/igsCast.h"

int igsPolylineInvalidDimensionality::fix() { return igs_adopt_layout(igs_cast<igsPolyline>(object_at_key())); }

int igsPolylineInconsistForm::fix() { return igs_adopt_layout(igs_cast<igsPolyline>(object_at_key())); }
