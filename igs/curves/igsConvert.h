#pragma once

#include "igs/support/export.h"

class igsObject;

/// Conversions used by repairs that replace an entity by one of another type. Each returns a new entity in the current
/// file with the attributes of the old one, or null when the old one (or null) cannot be converted. The old entity is
/// left alone.
class IGS_API igsConvert {
 public:
  /// A line or point set as a curve.
  static igsObject* to_curve(const igsObject* object);
  /// Exactly an igs110 or an igsPointset.
  static igsObject* to_polyline(const igsObject* object);
  static igsObject* line_to_polyline(const igsObject* object);
  /// Null for sextuples, which a polyline's points alone cannot hold.
  static igsObject* pointset_to_polyline(const igsObject* object);
  /// An igsSimpleClosedPlanarCurve as a polyline through the same points: form 11, or 12 or 13 where they have no
  /// common z.
  static igsObject* closed_curve_to_polyline(const igsObject* object);
};
