#pragma once

#include "igs/fields/igsNamedError.h"

// See igsNamedError.h for what each family of errors says.

using igs218NullNote = igsReferenceErrors<"igs218", "Note">::Null;
using igs218WrongNoteType = igsReferenceErrors<"igs218", "Note">::WrongType;
using igs218InvalidNote = igsReferenceErrors<"igs218", "Note">::Invalid;

// Form 0.
using igs218NullWitnessOrLeader = igsReferenceErrors<"igs218", "WitnessOrLeader">::Null;
using igs218WrongWitnessOrLeaderType = igsReferenceErrors<"igs218", "WitnessOrLeader">::WrongType;
using igs218InvalidWitnessOrLeader = igsReferenceErrors<"igs218", "WitnessOrLeader">::Invalid;

// Form 1.
using igs218NullWitness = igsReferenceErrors<"igs218", "Witness">::Null;
using igs218WrongWitnessType = igsReferenceErrors<"igs218", "Witness">::WrongType;
using igs218InvalidWitness = igsReferenceErrors<"igs218", "Witness">::Invalid;
using igs218NullLeader = igsReferenceErrors<"igs218", "Leader">::Null;
using igs218WrongLeaderType = igsReferenceErrors<"igs218", "Leader">::WrongType;
using igs218InvalidLeader = igsReferenceErrors<"igs218", "Leader">::Invalid;
