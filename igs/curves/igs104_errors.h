#pragma once

#include "igs/errors/igsErrorClass.h"

/// A coefficient, an end point or the z level is undefined.
class IGS_API igs104NoConstruct : public igsErrorClass<igs104NoConstruct, "igs104NoConstruct", igsObjectError> {};

/// Form 0, and the coefficients are those of no curve.
class IGS_API igs104UnknownType : public igsErrorClass<igs104UnknownType, "igs104UnknownType", igsObjectError> {};

// The repair of the next three sets the form that goes with the coefficients; 0 when these are those of no curve.

/// Form 1, and the coefficients are not those of an ellipse.
class IGS_API igs104NotEllipse : public igsErrorClass<igs104NotEllipse, "igs104NotEllipse", igsObjectError> {
 public:
  int fix() override;
};

/// Form 2, and the coefficients are not those of a hyperbola.
class IGS_API igs104NotHyperbola : public igsErrorClass<igs104NotHyperbola, "igs104NotHyperbola", igsObjectError> {
 public:
  int fix() override;
};

/// Form 3, and the coefficients are not those of a parabola.
class IGS_API igs104NotParabola : public igsErrorClass<igs104NotParabola, "igs104NotParabola", igsObjectError> {
 public:
  int fix() override;
};
