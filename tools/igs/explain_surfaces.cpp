#include "explain_table.h"

std::span<const ErrorText> surface_errors() {
  static constexpr std::string_view with_surface = "The surface is repaired; if that fails, nothing is changed.";
  static constexpr std::string_view with_curve = "The curve is repaired; if that fails, nothing is changed.";
  static constexpr std::string_view with_boundary = "The boundary is repaired; if that fails, nothing is changed.";
  static constexpr std::string_view made_polyline =
      "A sound point set is made a polyline; where other entities use it too, they keep the point set.";
  static constexpr std::string_view once_adopted =
      "Nothing is changed; it is settled when the surface has been taken from the boundaries.";
  static constexpr ErrorText rows[] = {
      // Planes.
      {"igs108InvalidCoefficients", "a coefficient of the plane is undefined", ""},
      {"igs108ZeroNormal", "the plane's normal (A, B, C) is shorter than kelTolMinValue", ""},
      {"igs108UnexpectedBoundary", "the form says an unbounded plane, but there is a boundary",
       "The form is set to 1 (bounded) when the boundary is a sound curve; otherwise the plane loses its boundary."},
      {"igs108NullBoundary", "the form says a plane with a boundary, but the boundary is missing", ""},
      {"igs108WrongBoundaryType", "the plane's boundary is no curve", made_polyline},
      {"igs108InvalidBoundary", "the plane's boundary has faults of its own", with_boundary},
      {"igs108InvalidSymbolSize", "the size of the plane's symbol is {0}; it cannot be below 0", "It becomes 0."},

      // Boundaries.
      {"igs141InvalidBoundedSurfRep", "TYPE (parameter-space curves) is {0}; it has to be 0 or 1", ""},
      {"igs141InvalidPreferrenceFlag", "PREF (preferred representation) is {0}; it has to be 0 to 3", "It becomes 0."},
      {"igs141NullSurfacePtr", "the boundary's surface is missing", ""},
      {"igs141InvalidSurfaceType", "the boundary's surface is of a type that is no surface", ""},
      {"igs141InvalidSurfaceData", "the boundary's surface has faults of its own", with_surface},
      {"igs141BadNumModelSpaceCurves",
       "the number of model-space curves is {0}: none, or more than the record can hold", ""},
      {"igs141InvalidReversalFlag", "SENSE of model-space curve {0} (counted from 0) is {1}; it has to be 1 or 2",
       "It becomes 1."},
      {"igs141NullModelSpaceCurvePtr", "model-space curve {0} (counted from 0) is missing", ""},
      {"igs141InvalidModelSpaceCurveType", "model-space curve {0} (counted from 0) is neither a curve nor a point",
       made_polyline},
      {"igs141InvalidModelSpaceCurveData", "model-space curve {0} (counted from 0) has faults of its own", with_curve},
      {"igs141UnexpectedParamCurves",
       "TYPE says there are no parameter-space curves, but model-space curve {0} (counted from 0) has some", ""},
      {"igs141NullParameterCurvePtr",
       "parameter-space curve {1} of model-space curve {0} (both counted from 0) is missing", ""},
      {"igs141Trim2DNonParametricSurface",
       "the boundary has a parameter-space curve, but its surface is a plane, which has no parameters", ""},
      {"igs141InvalidParameterCurveType",
       "parameter-space curve {1} of model-space curve {0} (both counted from 0) is of a type that is no curve",
       made_polyline},
      {"igs141InvalidParameterCurveData",
       "parameter-space curve {1} of model-space curve {0} (both counted from 0) has faults of its own", with_curve},
      {"igs141BadNumAssocParamCurves",
       "the record cannot hold {1} parameter-space curves for model-space curve {0} (counted from 0); the entity was "
       "left out",
       ""},

      // Curves on surfaces.
      {"igs142InvalidCurveCreation", "CRTN (way of creation) is {0}; it has to be 0 to 3", ""},
      {"igs142InvalidPrefRepresentation", "PREF (preferred representation) is {0}; it has to be 0 to 3", ""},
      {"igs142NullSurfacePtr", "the surface that the curve lies on is missing", ""},
      {"igs142InvalidSurfaceType", "the surface that the curve lies on is of a type that is no surface", ""},
      {"igs142InvalidSurfaceData", "the surface that the curve lies on has faults of its own", with_surface},
      {"igs142InvalidCurve2dType", "the parameter-space curve is of a type that is no curve", ""},
      {"igs142InvalidCurve2dData", "the parameter-space curve has faults of its own", with_curve},
      {"igs142Trim2DNonParametricSurface",
       "there is a parameter-space curve, but the surface is a plane, which has no parameters", ""},
      {"igs142InvalidCurve3dType", "the model-space curve is of a type that is no curve", ""},
      {"igs142InvalidCurve3dData", "the model-space curve has faults of its own", with_curve},
      {"igs142NoTrimCurves", "the curve has neither a parameter-space nor a model-space representation", ""},

      // Bounded surfaces.
      {"igs143InvalidSurfaceRepresentation", "TYPE (parameter-space boundaries) is {0}; it has to be 0 or 1", ""},
      {"igs143NullSurfacePtr", "the bounded surface's basis surface is missing",
       "When the boundaries name one surface, it becomes the basis surface; otherwise nothing is changed."},
      {"igs143InvalidSurfaceType", "the bounded surface's basis surface is of a type that is no surface", ""},
      {"igs143InvalidSurfaceData", "the bounded surface's basis surface has faults of its own", with_surface},
      {"igs143NoBoundaries", "the bounded surface has no boundaries", ""},
      {"igs143NullBoundaryPtr", "boundary {0} (counted from 0) is missing", ""},
      {"igs143InvalidBoundaryType", "boundary {0} (counted from 0) is of a type that is no boundary", ""},
      {"igs143InvalidBoundaryData", "boundary {0} (counted from 0) has faults of its own", with_boundary},
      {"igs143SurfacePointerMismatch", "boundary {0} (counted from 0) lies on another surface than the bounded surface",
       once_adopted},
      {"igs143BadNumBoundaries", "the record cannot hold {0} boundaries; the entity was left out", ""},

      // Trimmed surfaces.
      {"igs144InvalidOuterBoundaryFlag", "N1 (outer boundary) is {0}; it has to be 0 or 1", ""},
      {"igs144NullSurfacePtr", "the surface that is trimmed is missing",
       "When the inner boundaries name one surface, it is taken; otherwise nothing is changed."},
      {"igs144InvalidSurfaceType", "the surface that is trimmed is of a type that is no surface", ""},
      {"igs144InvalidSurfaceData", "the surface that is trimmed has faults of its own", with_surface},
      {"igs144InvalidOuterBoundType", "the outer boundary is no curve on a surface", ""},
      {"igs144InvalidOuterBoundData", "the outer boundary has faults of its own", with_boundary},
      {"igs144OuterBoundSurfaceMismatch", "the outer boundary lies on another surface than the one that is trimmed",
       once_adopted},
      {"igs144NullInnerBoundPtr", "inner boundary {0} (counted from 0) is missing",
       "Missing boundaries are taken out of the list; the others keep their order."},
      {"igs142InvalidInnerBoundType", "inner boundary {0} (counted from 0) is no curve on a surface", ""},
      {"igs144InvalidInnerBoundData", "inner boundary {0} (counted from 0) has faults of its own", with_boundary},
      {"igs144InnerBoundSurfaceMismatch",
       "inner boundary {0} (counted from 0) lies on another surface than the one that is trimmed", once_adopted},
      {"igs144NoBoundaries", "the trimmed surface has neither an outer nor an inner boundary", ""},
      {"igs144BadNumInnerBounds", "the record cannot hold {0} inner boundaries; the entity was left out", ""},
  };
  return rows;
}
