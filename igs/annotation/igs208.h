#pragma once

#include "igs/annotation/igsDimension.h"
#include "igs/fields/igsNamedError.h"

using igs208BadNumLeaders = igsCountErrors<"igs208", "Leaders">::BadNum;

/// Flag Note (IGES 5.3, type 208): a note in a frame with a pointed right end, and leaders, or none, from there.
class IGS_API igs208 : public igsEntity<igs208, "igs208", igsDimension>, public igsLeaderList {
 public:
  igs208();

  /// Lower left corner of the frame. Undefined at first.
  const giPoint3& corner() const { return m_corner; }
  void set_corner(const giPoint3& corner) { m_corner = corner; }
  /// By which the frame is turned around the corner, in radians. Unset (-DBL_MAX) at first.
  double angle() const { return m_angle; }
  void set_angle(double angle) { m_angle = angle; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& leaders = entity.m_leaders.elements();
    visit("Corner", entity.m_corner);
    visit("Angle", entity.m_angle);
    visit("Note", entity.m_note);
    const int count = visit.count("NumberOfLeaders", leaders.size());
    visit.list("Leaders", count, leaders, igsBadCount<igs208BadNumLeaders>());
  }

 private:
  giPoint3 m_corner;
  double m_angle = igs_undefined_real;
};
