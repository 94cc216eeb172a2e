#pragma once

#include "igs/curves/igsCurveConversion.h"
#include "igs/errors/igsErrorClass.h"

// Positions are 0-based: of a model-space curve, then of one of its parameter-space curves.

/// TYPE is neither 0 nor 1; carries it.
class IGS_API igs141InvalidBoundedSurfRep
    : public igsErrorClass<igs141InvalidBoundedSurfRep, "igs141InvalidBoundedSurfRep", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// PREF is outside 0 to 3; carries it.
class IGS_API igs141InvalidPreferrenceFlag
    : public igsErrorClass<igs141InvalidPreferrenceFlag, "igs141InvalidPreferrenceFlag", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 0.
  int fix() override;
};

/// There is no surface.
class IGS_API igs141NullSurfacePtr
    : public igsErrorClass<igs141NullSurfacePtr, "igs141NullSurfacePtr", igsObjectError> {};

/// What should be the surface is none.
class IGS_API igs141InvalidSurfaceType
    : public igsErrorClass<igs141InvalidSurfaceType, "igs141InvalidSurfaceType", igsObjectError> {};

/// The surface fails its own check.
class IGS_API igs141InvalidSurfaceData
    : public igsErrorClass<igs141InvalidSurfaceData, "igs141InvalidSurfaceData", igsReferenceDataError> {};

/// There is no model-space curve, or their number is negative or out of proportion to the record; carries it.
class IGS_API igs141BadNumModelSpaceCurves
    : public igsErrorClass<igs141BadNumModelSpaceCurves, "igs141BadNumModelSpaceCurves", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// SENSE of a model-space curve is neither 1 nor 2; carries its position and the value.
class IGS_API igs141InvalidReversalFlag
    : public igsErrorClass<igs141InvalidReversalFlag, "igs141InvalidReversalFlag", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
  /// Sets it to 1; 0 when there is no such curve.
  int fix() override;
};

/// A pointer to a model-space curve is null; carries its position.
class IGS_API igs141NullModelSpaceCurvePtr
    : public igsErrorClass<igs141NullModelSpaceCurvePtr, "igs141NullModelSpaceCurvePtr", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

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
class IGS_API igs141InvalidModelSpaceCurveData
    : public igsErrorClass<igs141InvalidModelSpaceCurveData, "igs141InvalidModelSpaceCurveData", igsReferenceDataError,
                           int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// TYPE is 0, and a model-space curve has parameter-space curves; carries its position.
class IGS_API igs141UnexpectedParamCurves
    : public igsErrorClass<igs141UnexpectedParamCurves, "igs141UnexpectedParamCurves", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A pointer to a parameter-space curve is null; carries both positions.
class IGS_API igs141NullParameterCurvePtr
    : public igsErrorClass<igs141NullParameterCurvePtr, "igs141NullParameterCurvePtr", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// A parameter-space curve lies on a plane (type 108), which has no parameters.
class IGS_API igs141Trim2DNonParametricSurface
    : public igsErrorClass<igs141Trim2DNonParametricSurface, "igs141Trim2DNonParametricSurface", igsObjectError> {};

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
class IGS_API igs141InvalidParameterCurveData
    : public igsErrorClass<igs141InvalidParameterCurveData, "igs141InvalidParameterCurveData", igsReferenceDataError,
                           int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};

/// The number of parameter-space curves of a model-space curve is negative or out of proportion to the record; carries
/// the position of the model-space curve and the number.
class IGS_API igs141BadNumAssocParamCurves
    : public igsErrorClass<igs141BadNumAssocParamCurves, "igs141BadNumAssocParamCurves", igsObjectError, int, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
