#pragma once

#include "igs/curves/igsCopiousEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsCurve.h"

class igsPolyline;
using igsPolylineErrors = igsCopiousErrors<igsPolyline, "igsPolyline">;

/// Copious Data (IGES 5.3, type 106) of forms 11 to 13: the straight pieces that join the points in their order. Points
/// that follow each other may be the same.
class IGS_API igsPolyline : public igsCopiousEntity<igsPolyline, "igsPolyline", igsCurve, 10, igsPolylineErrors> {
 public:
  igsPolyline();
  void check_pd() const override;
};
