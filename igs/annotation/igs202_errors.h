#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs202NullNote = igsReferenceErrors<"igs202", "Note">::Null;
using igs202WrongNoteType = igsReferenceErrors<"igs202", "Note">::WrongType;
using igs202InvalidNote = igsReferenceErrors<"igs202", "Note">::Invalid;
using igs202WrongWitness1Type = igsReferenceErrors<"igs202", "Witness1">::WrongType;
using igs202InvalidWitness1 = igsReferenceErrors<"igs202", "Witness1">::Invalid;
using igs202WrongWitness2Type = igsReferenceErrors<"igs202", "Witness2">::WrongType;
using igs202InvalidWitness2 = igsReferenceErrors<"igs202", "Witness2">::Invalid;
using igs202NullLeader1 = igsReferenceErrors<"igs202", "Leader1">::Null;
using igs202WrongLeader1Type = igsReferenceErrors<"igs202", "Leader1">::WrongType;
using igs202InvalidLeader1 = igsReferenceErrors<"igs202", "Leader1">::Invalid;
using igs202NullLeader2 = igsReferenceErrors<"igs202", "Leader2">::Null;
using igs202WrongLeader2Type = igsReferenceErrors<"igs202", "Leader2">::WrongType;
using igs202InvalidLeader2 = igsReferenceErrors<"igs202", "Leader2">::Invalid;
using igs202InvalidVertex = igsUndefinedErrors<"igs202", "Vertex">::Invalid;
using igs202InvalidRadius = igsRealErrors<"igs202", "Radius">::Invalid;
