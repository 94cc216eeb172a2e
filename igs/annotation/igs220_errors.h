#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs220NullNote = igsReferenceErrors<"igs220", "Note">::Null;
using igs220WrongNoteType = igsReferenceErrors<"igs220", "Note">::WrongType;
using igs220InvalidNote = igsReferenceErrors<"igs220", "Note">::Invalid;
using igs220NullLeader = igsReferenceErrors<"igs220", "Leader">::Null;
using igs220WrongLeaderType = igsReferenceErrors<"igs220", "Leader">::WrongType;
using igs220InvalidLeader = igsReferenceErrors<"igs220", "Leader">::Invalid;
using igs220WrongGeometryType = igsReferenceErrors<"igs220", "Geometry">::WrongType;
using igs220InvalidGeometry = igsReferenceErrors<"igs220", "Geometry">::Invalid;
