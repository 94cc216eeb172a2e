#pragma once

#include "igs/shape/igsShapes.h"

class igs100;
class igs102;
class igs104;
class igs108;
class igs110;
class igs112;
class igs114;
class igs118;
class igs120;
class igs122;
class igs126;
class igs128;
class igs130;
class igs140;
class igs141;
class igs142;
class igs143;
class igs144;
class igs190_0;
class igs190_1;
class igs192_0;
class igs192_1;
class igs194_0;
class igs194_1;
class igs196_0;
class igs196_1;
class igs198_0;
class igs198_1;
class igs510;
class igsPointset;
class igsPolyline;
class igsSimpleClosedPlanarCurve;

// The shape of an entity of each class, without its matrices: one overload a class, and a row in the tables of
// igsShapes.cpp. Null where the data make no shape. Shapes of entities that it refers to are asked of `shapes`.

igsShapeCurvePtr igs_make_shape(const igs100& arc, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs102& composite, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs104& arc, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igsPointset& points, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igsPolyline& polyline, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igsSimpleClosedPlanarCurve& curve, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs110& line, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs112& spline, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs126& entity, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs130& offset, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs141& boundary, igsShapes& shapes);
igsShapeCurvePtr igs_make_shape(const igs142& entity, igsShapes& shapes);

igsShapeSurfacePtr igs_make_shape(const igs108& plane, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs114& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs118& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs120& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs122& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs128& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs140& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs143& face, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs144& face, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs190_0& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs190_1& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs192_0& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs192_1& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs194_0& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs194_1& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs196_0& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs196_1& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs198_0& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs198_1& surface, igsShapes& shapes);
igsShapeSurfacePtr igs_make_shape(const igs510& face, igsShapes& shapes);
