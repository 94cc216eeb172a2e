#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsSurface.h"
#include "igs/support/undefined.h"

/// Surface of Revolution (IGES 5.3, type 120): a curve, the generatrix, turned about a line, the axis, from the start
/// angle to the terminate angle. Angles are radians, counted by the right-hand rule about the axis from its start to
/// its end point, and may have any sign; the terminate angle is above the start angle, by a full turn at most.
class IGS_API igs120 : public igsEntity<igs120, "igs120", igsParameterizedSurface> {
 public:
  igs120();

  const igsObjectPtr& axis() const { return m_axis; }
  void set_axis(const igsObjectPtr& line) { m_axis = line; }
  const igsObjectPtr& generator() const { return m_generator; }
  void set_generator(const igsObjectPtr& curve) { m_generator = curve; }
  /// -DBL_MAX until they are set.
  double start_angle() const { return m_start_angle; }
  double terminate_angle() const { return m_terminate_angle; }
  void set_start_angle(double angle) { m_start_angle = angle; }
  void set_terminate_angle(double angle) { m_terminate_angle = angle; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Axis", entity.m_axis);
    visit("Generator", entity.m_generator);
    visit("StartAngle", entity.m_start_angle);
    visit("TerminateAngle", entity.m_terminate_angle);
  }

 private:
  void check_angles() const;

  igsObjectPtr m_axis;
  igsObjectPtr m_generator;
  double m_start_angle = igs_undefined_real;
  double m_terminate_angle = igs_undefined_real;
};
