#pragma once

#include <limits>

#include "igs/errors/private/igsRepairRun.h"

class igsFile;

// Where the curves lie that trim surfaces of revolution. Private to the library.

/// The range of what holds no point.
inline constexpr igsRepairRun::Range igs_nowhere{std::numeric_limits<double>::infinity(),
                                                 -std::numeric_limits<double>::infinity()};

/// For each surface of revolution on which boundaries (igs141, igs142) of the file lie, by its DE number: angles
/// between which their parameter-space curves lie, the second coordinate of these. Lines, circular arcs, B-splines,
/// polylines and composites of these count; the ends of other conics do. One look at every curve, however many
/// boundaries it is part of.
igsRepairRun::Ranges igs_trimmed_angles(const igsFile& file);
