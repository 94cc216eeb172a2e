#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igsCompound_errors.h"

// Faults of a Subfigure Definition (igs308). Positions of members are 0-based, as they were when it was checked.

/// The nesting depth is negative; carries it. Repaired to 0.
using igs308InvalidDepth = igsNamedError<"igs308InvalidDepth", igsStoredDefault<igs308, &igs308::set_depth, 0>, int>;
/// A pointer to a member is null; carries its position.
using igs308NullGeometryPointer = igsNamedError<"igs308NullGeometryPointer", igsCompoundEntityError>;
/// A member fails its own check; carries its position.
using igs308BadSubEntity = igsNamedError<"igs308BadSubEntity", igsCompoundEntityError>;
