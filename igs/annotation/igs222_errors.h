#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs222NullNote = igsReferenceErrors<"igs222", "Note">::Null;
using igs222WrongNoteType = igsReferenceErrors<"igs222", "Note">::WrongType;
using igs222InvalidNote = igsReferenceErrors<"igs222", "Note">::Invalid;
using igs222NullLeader = igsReferenceErrors<"igs222", "Leader">::Null;
using igs222WrongLeaderType = igsReferenceErrors<"igs222", "Leader">::WrongType;
using igs222InvalidLeader = igsReferenceErrors<"igs222", "Leader">::Invalid;
using igs222InvalidCentre = igsUndefinedErrors<"igs222", "Centre">::Invalid;
// Form 1.
using igs222WrongLeader2Type = igsReferenceErrors<"igs222", "Leader2">::WrongType;
using igs222InvalidLeader2 = igsReferenceErrors<"igs222", "Leader2">::Invalid;
