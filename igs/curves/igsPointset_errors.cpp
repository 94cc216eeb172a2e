#include "igs/curves/igsPointset_errors.h"

#include "igs/curves/igsPointset.h"
#include "igs/objects/igsCast.h"

int igsPointsetInvalidDimensionality::fix() { return igs_adopt_layout(igs_cast<igsPointset>(object_at_key())); }

int igsPointsetInconsistForm::fix() { return igs_adopt_layout(igs_cast<igsPointset>(object_at_key())); }
