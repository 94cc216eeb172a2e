#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsRepairs.h"
#include "igs/surfaces/igs141.h"

// Positions are 0-based: of a model-space curve, then of one of its parameter-space curves.

/// TYPE is neither 0 nor 1; carries it.
using igs141InvalidBoundedSurfRep = igsNamedError<"igs141InvalidBoundedSurfRep", igsObjectError, int>;
/// PREF is outside 0 to 3; carries it. It becomes 0.
using igs141InvalidPreferrenceFlag =
    igsNamedError<"igs141InvalidPreferrenceFlag", igsStoredDefault<igs141, &igs141::set_preferred_representation, 0>,
                  int>;
/// There is no surface.
using igs141NullSurfacePtr = igsNamedError<"igs141NullSurfacePtr">;
/// What should be the surface is none.
using igs141InvalidSurfaceType = igsNamedError<"igs141InvalidSurfaceType">;
/// The surface fails its own check.
using igs141InvalidSurfaceData = igsNamedError<"igs141InvalidSurfaceData", igsReferenceDataError>;

/// SENSE of a model-space curve is neither 1 nor 2; carries its position and the value.
class IGS_API igs141InvalidReversalFlag
    : public igsErrorClass<igs141InvalidReversalFlag, "igs141InvalidReversalFlag", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 1; 0 when there is no such curve.
  int fix() override;
};

/// A pointer to a model-space curve is null; carries its position.
using igs141NullModelSpaceCurvePtr = igsNamedError<"igs141NullModelSpaceCurvePtr", igsObjectError, int>;

/// A model-space curve is neither a curve nor a point; carries its position. Repaired by conversion.
class IGS_API igs141InvalidModelSpaceCurveType
    : public igsErrorClass<igs141InvalidModelSpaceCurveType, "igs141InvalidModelSpaceCurveType", igsCurveTypeError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;

 protected:
  igsObjectPtr reference() const override;
  void set_reference(const igsObjectPtr& curve) const override;
};

/// A model-space curve fails its own check; carries its position.
using igs141InvalidModelSpaceCurveData = igsNamedError<"igs141InvalidModelSpaceCurveData", igsReferenceDataError, int>;
/// TYPE is 0, and a model-space curve has parameter-space curves; carries its position.
using igs141UnexpectedParamCurves = igsNamedError<"igs141UnexpectedParamCurves", igsObjectError, int>;
/// A pointer to a parameter-space curve is null; carries both positions.
using igs141NullParameterCurvePtr = igsNamedError<"igs141NullParameterCurvePtr", igsObjectError, int, int>;
/// A parameter-space curve lies on a plane (type 108), which has no parameters.
using igs141Trim2DNonParametricSurface = igsNamedError<"igs141Trim2DNonParametricSurface">;

/// A parameter-space curve is no curve; carries both positions. Repaired by conversion.
class IGS_API igs141InvalidParameterCurveType
    : public igsErrorClass<igs141InvalidParameterCurveType, "igs141InvalidParameterCurveType", igsCurveTypeError, int,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;

 protected:
  igsObjectPtr reference() const override;
  void set_reference(const igsObjectPtr& curve) const override;
};

/// A parameter-space curve fails its own check; carries both positions.
using igs141InvalidParameterCurveData =
    igsNamedError<"igs141InvalidParameterCurveData", igsReferenceDataError, int, int>;
