#pragma once

#include "igs/annotation/igs208.h"
#include "igs/fields/igsMemberErrors.h"

// See igsNamedError.h and igsMemberErrors.h for what each family of errors says.

using igs208NullNote = igsReferenceErrors<"igs208", "Note">::Null;
using igs208WrongNoteType = igsReferenceErrors<"igs208", "Note">::WrongType;
using igs208InvalidNote = igsReferenceErrors<"igs208", "Note">::Invalid;
using igs208LeaderErrors = igsMemberErrors<"igs208", "Leader", igs208, &igs208::remove_null_leaders>;
using igs208NullLeader = igs208LeaderErrors::Null;
using igs208WrongLeaderType = igs208LeaderErrors::WrongType;
using igs208InvalidLeader = igs208LeaderErrors::Invalid;
using igs208InvalidCorner = igsUndefinedErrors<"igs208", "Corner">::Invalid;
using igs208InvalidAngle = igsUndefinedErrors<"igs208", "Angle">::Invalid;
