#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs216NullNote = igsReferenceErrors<"igs216", "Note">::Null;
using igs216WrongNoteType = igsReferenceErrors<"igs216", "Note">::WrongType;
using igs216InvalidNote = igsReferenceErrors<"igs216", "Note">::Invalid;
using igs216NullLeader1 = igsReferenceErrors<"igs216", "Leader1">::Null;
using igs216WrongLeader1Type = igsReferenceErrors<"igs216", "Leader1">::WrongType;
using igs216InvalidLeader1 = igsReferenceErrors<"igs216", "Leader1">::Invalid;
using igs216NullLeader2 = igsReferenceErrors<"igs216", "Leader2">::Null;
using igs216WrongLeader2Type = igsReferenceErrors<"igs216", "Leader2">::WrongType;
using igs216InvalidLeader2 = igsReferenceErrors<"igs216", "Leader2">::Invalid;
using igs216WrongWitness1Type = igsReferenceErrors<"igs216", "Witness1">::WrongType;
using igs216InvalidWitness1 = igsReferenceErrors<"igs216", "Witness1">::Invalid;
using igs216WrongWitness2Type = igsReferenceErrors<"igs216", "Witness2">::WrongType;
using igs216InvalidWitness2 = igsReferenceErrors<"igs216", "Witness2">::Invalid;
