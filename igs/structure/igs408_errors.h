#pragma once

#include "igs/errors/igsRepairs.h"
#include "igs/fields/igsNamedError.h"
#include "igs/structure/igs408.h"

// Faults of a singular subfigure instance (igs408).

using igs408NullSubfigure = igsReferenceErrors<"igs408", "Subfigure">::Null;
using igs408WrongSubfigureType = igsReferenceErrors<"igs408", "Subfigure">::WrongType;
using igs408InvalidSubfigure = igsReferenceErrors<"igs408", "Subfigure">::Invalid;
/// The translation is undefined.
using igs408InvalidTranslation = igsNamedError<"igs408InvalidTranslation">;
/// The scale is 0 or undefined; carries it. Repaired to 1.
using igs408InvalidScale = igsNamedError<"igs408InvalidScale", igsStoredDefault<igs408, &igs408::set_scale, 1>, double>;
