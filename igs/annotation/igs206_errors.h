#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs206NullNote = igsReferenceErrors<"igs206", "Note">::Null;
using igs206WrongNoteType = igsReferenceErrors<"igs206", "Note">::WrongType;
using igs206InvalidNote = igsReferenceErrors<"igs206", "Note">::Invalid;
using igs206NullLeader1 = igsReferenceErrors<"igs206", "Leader1">::Null;
using igs206WrongLeader1Type = igsReferenceErrors<"igs206", "Leader1">::WrongType;
using igs206InvalidLeader1 = igsReferenceErrors<"igs206", "Leader1">::Invalid;
using igs206WrongLeader2Type = igsReferenceErrors<"igs206", "Leader2">::WrongType;
using igs206InvalidLeader2 = igsReferenceErrors<"igs206", "Leader2">::Invalid;
using igs206InvalidCentre = igsUndefinedErrors<"igs206", "Centre">::Invalid;
