#pragma once

#include "igs/annotation/igs210.h"
#include "igs/fields/igsMemberErrors.h"

// See igsNamedError.h and igsMemberErrors.h for what each family of errors says.

using igs210NullNote = igsReferenceErrors<"igs210", "Note">::Null;
using igs210WrongNoteType = igsReferenceErrors<"igs210", "Note">::WrongType;
using igs210InvalidNote = igsReferenceErrors<"igs210", "Note">::Invalid;
/// There is no leader.
using igs210NoLeaders = igsNamedError<"igs210NoLeaders">;
using igs210LeaderErrors = igsMemberErrors<"igs210", "Leader", igs210, &igs210::remove_null_leaders>;
using igs210NullLeader = igs210LeaderErrors::Null;
using igs210WrongLeaderType = igs210LeaderErrors::WrongType;
using igs210InvalidLeader = igs210LeaderErrors::Invalid;
