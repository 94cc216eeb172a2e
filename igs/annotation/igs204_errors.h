#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs204NullNote = igsReferenceErrors<"igs204", "Note">::Null;
using igs204WrongNoteType = igsReferenceErrors<"igs204", "Note">::WrongType;
using igs204InvalidNote = igsReferenceErrors<"igs204", "Note">::Invalid;
using igs204NullCurve1 = igsReferenceErrors<"igs204", "Curve1">::Null;
using igs204WrongCurve1Type = igsReferenceErrors<"igs204", "Curve1">::WrongType;
using igs204InvalidCurve1 = igsReferenceErrors<"igs204", "Curve1">::Invalid;
using igs204WrongCurve2Type = igsReferenceErrors<"igs204", "Curve2">::WrongType;
using igs204InvalidCurve2 = igsReferenceErrors<"igs204", "Curve2">::Invalid;
using igs204NullLeader1 = igsReferenceErrors<"igs204", "Leader1">::Null;
using igs204WrongLeader1Type = igsReferenceErrors<"igs204", "Leader1">::WrongType;
using igs204InvalidLeader1 = igsReferenceErrors<"igs204", "Leader1">::Invalid;
using igs204NullLeader2 = igsReferenceErrors<"igs204", "Leader2">::Null;
using igs204WrongLeader2Type = igsReferenceErrors<"igs204", "Leader2">::WrongType;
using igs204InvalidLeader2 = igsReferenceErrors<"igs204", "Leader2">::Invalid;
using igs204WrongWitness1Type = igsReferenceErrors<"igs204", "Witness1">::WrongType;
using igs204InvalidWitness1 = igsReferenceErrors<"igs204", "Witness1">::Invalid;
using igs204WrongWitness2Type = igsReferenceErrors<"igs204", "Witness2">::WrongType;
using igs204InvalidWitness2 = igsReferenceErrors<"igs204", "Witness2">::Invalid;
