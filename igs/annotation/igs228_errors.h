#pragma once

#include "igs/annotation/igs228.h"
#include "igs/fields/igsMemberErrors.h"

// See igsNamedError.h and igsMemberErrors.h for what each family of errors says.

/// Of form 1.
using igs228NullNote = igsReferenceErrors<"igs228", "Note">::Null;
using igs228WrongNoteType = igsReferenceErrors<"igs228", "Note">::WrongType;
using igs228InvalidNote = igsReferenceErrors<"igs228", "Note">::Invalid;
/// There is no geometry.
using igs228NoGeometry = igsNamedError<"igs228NoGeometry">;
using igs228GeometryErrors = igsMemberErrors<"igs228", "Geometry", igs228, &igs228::remove_null_geometry>;
using igs228NullGeometry = igs228GeometryErrors::Null;
using igs228InvalidGeometry = igs228GeometryErrors::Invalid;
using igs228LeaderErrors = igsMemberErrors<"igs228", "Leader", igs228, &igs228::remove_null_leaders>;
using igs228NullLeader = igs228LeaderErrors::Null;
using igs228WrongLeaderType = igs228LeaderErrors::WrongType;
using igs228InvalidLeader = igs228LeaderErrors::Invalid;
