#pragma once

#include "igs/curves/igsCopiousEntity.h"
#include "igs/fields/igsNamedError.h"

class igsPointset;
using igsPointsetErrors = igsCopiousErrors<igsPointset, "igsPointset">;

/// Copious Data (IGES 5.3, type 106) of forms 1 to 3: unconnected points.
class IGS_API igsPointset : public igsCopiousEntity<igsPointset, "igsPointset", igsObject, 0, igsPointsetErrors> {
 public:
  igsPointset();
  void check_pd() const override;
};
