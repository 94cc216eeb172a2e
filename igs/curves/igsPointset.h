#pragma once

#include "igs/curves/igsCopiousEntity.h"

class igsPointsetBadNumPoints;
class igsPointsetInconsistForm;
class igsPointsetInvalidDimensionality;
class igsPointsetInvalidPoint;
class igsPointsetInvalidZLevel;

/// The errors of the class, by the names that igsCopiousEntity has for them.
struct igsPointsetErrors {
  /// The class of that name.
  using BadNumPoints = igsPointsetBadNumPoints;
  using InconsistForm = igsPointsetInconsistForm;
  using InvalidDimensionality = igsPointsetInvalidDimensionality;
  using InvalidPoint = igsPointsetInvalidPoint;
  using InvalidZLevel = igsPointsetInvalidZLevel;
};

/// Copious Data (IGES 5.3, type 106) of forms 1 to 3: unconnected points.
class IGS_API igsPointset : public igsCopiousEntity<igsPointset, "igsPointset", igsObject, 0, igsPointsetErrors> {
 public:
  igsPointset();
  void check_pd() const override;
};
