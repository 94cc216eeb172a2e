#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsAnnotation.h"
#include "igs/support/giPoint.h"

using igs214BadNumSegments = igsCountErrors<"igs214", "Segments">::BadNum;

/// Leader or Arrow (IGES 5.3, type 214): segments from an arrowhead to tail 0, from there to tail 1, and so on. The
/// form, 1 to 12, is the shape of the arrowhead (1 wedge, 2 triangle, 3 filled triangle, 4 none, 5 circle, 6 filled
/// circle, 7 rectangle, 8 filled rectangle, 9 slash, 10 integral sign, 11 open triangle, 12 dimension origin). All
/// points lie at z_level(). Positions are 0-based, lengths model units.
class IGS_API igs214 : public igsEntity<igs214, "igs214", igsAnnotation> {
 public:
  /// Form 1, without segments, head and level undefined.
  igs214();

  /// Size of the arrowhead along the leader (AD1) and across it (AD2).
  double arrow_height() const { return m_arrow_height; }
  void set_arrow_height(double height) { m_arrow_height = height; }
  double arrow_width() const { return m_arrow_width; }
  void set_arrow_width(double width) { m_arrow_width = width; }
  double z_level() const { return m_z_level; }
  void set_z_level(double z) { m_z_level = z; }
  const giPoint2& arrow_head() const { return m_arrow_head; }
  void set_arrow_head(const giPoint2& point) { m_arrow_head = point; }

  /// Also the number of tails.
  int number_of_segments() const { return static_cast<int>(m_tails.size()); }
  /// Cuts the list of tails, or lengthens it by undefined points, and returns 1; 0 for a negative number.
  int set_number_of_segments(int number) { return igs_resize(m_tails, number); }
  /// Good until their number changes; an undefined point outside the list.
  const giPoint2& tail(int i) const { return igs_element(m_tails, i); }
  /// Stores tail `i` and returns 1; 0 outside the list.
  int set_tail(int i, const giPoint2& point) { return igs_set_element(m_tails, i, point); }
  /// Lengthens the leader by a segment to `point`.
  void add_tail(const giPoint2& point) { m_tails.push_back(point); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfSegments", entity.m_tails.size());
    visit("ArrowHeight", entity.m_arrow_height);
    visit("ArrowWidth", entity.m_arrow_width);
    visit("ZLevel", entity.m_z_level);
    visit("ArrowHead", entity.m_arrow_head);
    visit.list("Tails", count, entity.m_tails, igsBadCount<igs214BadNumSegments>());
  }

 private:
  double m_arrow_height = 0;
  double m_arrow_width = 0;
  double m_z_level = igs_undefined_real;
  giPoint2 m_arrow_head;
  std::vector<giPoint2> m_tails;
};
