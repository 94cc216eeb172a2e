#pragma once

#include "igs/errors/igsErrorClass.h"

/// The name of the file that an external reference (igs416) refers to is empty or blank.
using igs416NoFileName = igsNamedError<"igs416NoFileName">;
