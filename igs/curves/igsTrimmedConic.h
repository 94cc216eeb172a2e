#pragma once

#include "igs/objects/igsCurve.h"
#include "igs/support/giPoint.h"
#include "igs/support/undefined.h"

/// Base of the conic pieces: they lie in a plane parallel to XY of definition space and run from a start point to an
/// end point, counterclockwise. Model units.
class IGS_API igsTrimmedConic : public igsTyped<igsTrimmedConic, "igsTrimmedConic", igsCurve> {
 public:
  /// The plane's z; -DBL_MAX until it is set.
  double z_level() const { return m_z_level; }
  void set_z_level(double z_level) { m_z_level = z_level; }

  const giPoint2& start_point() const { return m_start_point; }
  const giPoint2& end_point() const { return m_end_point; }
  /// Copies both out.
  void end_points(giPoint2& start, giPoint2& end) const;
  void set_start_point(const giPoint2& start) { m_start_point = start; }
  void set_end_point(const giPoint2& end) { m_end_point = end; }

 protected:
  igsTrimmedConic() = default;
  /// True when both end points and the z level are defined.
  bool valid_pd() const;

  double m_z_level = igs_undefined_real;
  giPoint2 m_start_point;
  giPoint2 m_end_point;
};
