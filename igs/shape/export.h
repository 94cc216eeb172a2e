#pragma once

#include "igs/support/export.h"

/// Marks what a host may link against of the component igs::shape, as IGS_API does for the library proper.
#if defined(_WIN32) && !defined(IGS_STATIC)
#if defined(igs_shape_EXPORTS)
#define IGS_SHAPE_API __declspec(dllexport)
#else
#define IGS_SHAPE_API __declspec(dllimport)
#endif
#else
#define IGS_SHAPE_API IGS_API
#endif
