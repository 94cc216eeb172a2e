#pragma once

#include "igs/curves/igsCopiousEntity.h"
#include "igs/objects/igsCurve.h"

class igsPolylineBadNumPoints;
class igsPolylineInconsistForm;
class igsPolylineInvalidDimensionality;
class igsPolylineInvalidPoint;
class igsPolylineInvalidZLevel;

/// The errors of the class, by the names that igsCopiousEntity has for them.
struct igsPolylineErrors {
  /// The class of that name.
  using BadNumPoints = igsPolylineBadNumPoints;
  using InconsistForm = igsPolylineInconsistForm;
  using InvalidDimensionality = igsPolylineInvalidDimensionality;
  using InvalidPoint = igsPolylineInvalidPoint;
  using InvalidZLevel = igsPolylineInvalidZLevel;
};

/// Copious Data (IGES 5.3, type 106) of forms 11 to 13: the straight pieces that join the points in their order. Points
/// that follow each other may be the same.
class IGS_API igsPolyline : public igsCopiousEntity<igsPolyline, "igsPolyline", igsCurve, 10, igsPolylineErrors> {
 public:
  igsPolyline();
  void check_pd() const override;
};
