#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/solids/igs514.h"

// Faults of a Shell (igs514). Those of a face carry its position, 0-based, as it was when the shell was checked.

/// A pointer to a face is null.
using igs514OrientatedFaceNullFace = igsNamedError<"igs514OrientatedFaceNullFace", igsObjectError, int>;
/// What should be a face is something else. Every face that is not a face or has logged errors is taken out.
using igs514OrientatedFaceWrongFaceType =
    igsNamedError<"igs514OrientatedFaceWrongFaceType", igsRepairedBy<igs514, &igs514::remove_faulty_faces>, int>;
/// A face fails its own check. Repaired in the same way.
using igs514OrientatedFaceInvalidFace =
    igsNamedError<"igs514OrientatedFaceInvalidFace",
                  igsRepairedBy<igs514, &igs514::remove_faulty_faces, igsReferenceDataError>, int>;

/// Where the face has been taken out, the fault has gone with it.
inline void igs_agree_with_face(igs514& shell, int original) { shell.set_orientation_of_original(original, 1); }
/// The orientation is neither 0 nor 1. It becomes 1.
using igs514OrientatedFaceInvalidOrientation =
    igsNamedError<"igs514OrientatedFaceInvalidOrientation", igsRepairedBy<igs514, &igs_agree_with_face>, int>;
