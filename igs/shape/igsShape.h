#pragma once

/// Everything that igs::shape offers: points, lengths, areas, triangles and geometric checks of what a file shows.

#include "igs/shape/igsShapeCheck.h"
#include "igs/shape/igsShapeDrawing.h"
#include "igs/shape/igsShapeFigures.h"
#include "igs/shape/igsShapeMesh.h"
#include "igs/shape/igsShapeModel.h"
#include "igs/shape/igsShapeNearest.h"
#include "igs/shape/igsShapePolyline.h"
#include "igs/shape/igsShape_errors.h"
#include "igs/shape/igsShapes.h"
