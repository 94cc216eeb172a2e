#pragma once

class igsGlobalSection;

/// How far apart two points may be that a file means to be one, in model units, as igsShapeCheckOptions says it.
/// `diagonal`: of a box around what the file shows.
double igs_derived_tolerance(const igsGlobalSection& global, double diagonal);
