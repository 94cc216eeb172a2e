#pragma once

#include <numbers>
#include <utility>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/fields/igsReferenceList.h"
#include "igs/objects/igsAnnotation.h"
#include "igs/support/giPoint.h"

using igs230BadNumIslands = igsCountErrors<"igs230", "Islands">::BadNum;

/// Sectioned Area (IGES 5.3, type 230, form 0): the region inside a closed curve and outside its islands, filled with
/// parallel lines. Positions are 0-based.
class IGS_API igs230 : public igsEntity<igs230, "igs230", igsAnnotation> {
 public:
  igs230();

  const igsObjectPtr& boundary() const { return m_boundary; }
  void set_boundary(const igsObjectPtr& boundary) { m_boundary = boundary; }
  /// 0 none, 1 iron, 2 steel, ...: a material of the standard.
  int pattern() const { return m_pattern; }
  void set_pattern(int pattern) { m_pattern = pattern; }
  /// A point that one of the lines runs through; undefined until it is set.
  const giPoint3& point() const { return m_point; }
  void set_point(const giPoint3& point) { m_point = point; }
  /// From line to line, in model units.
  double distance() const { return m_distance; }
  void set_distance(double distance) { m_distance = distance; }
  /// From the XT axis to the lines, in radians.
  double angle() const { return m_angle; }
  void set_angle(double angle) { m_angle = angle; }

  int number_of_islands() const { return m_islands.size(); }
  /// The closed curves whose insides are left out.
  const std::vector<igsObjectPtr>& islands() const { return std::as_const(m_islands).elements(); }
  void set_islands(std::vector<igsObjectPtr> islands) { m_islands.assign(std::move(islands)); }
  /// Good until the list is changed; null outside it.
  const igsObjectPtr& island(int i) const { return m_islands.get(i); }
  /// Stores island `i` and returns 1; 0 outside the list.
  int set_island(int i, const igsObjectPtr& island) { return m_islands.set(i, island); }
  /// Where the island that was at `original` at the last check is now; -1 when it was taken out or never existed.
  int get_current_index(int original) const { return m_islands.current_index(original); }
  /// Takes the null islands out. `original`: the position, at the last check, of one that was null.
  void remove_null_islands(int original) { m_islands.drop_nulls(original); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& islands = entity.m_islands.elements();
    visit("Boundary", entity.m_boundary);
    visit("Pattern", entity.m_pattern);
    visit("Point", entity.m_point);
    visit("Distance", entity.m_distance);
    visit("Angle", entity.m_angle, usual_angle);
    const int count = visit.count("NumberOfIslands", islands.size());
    visit.list("Islands", count, islands, igsBadCount<igs230BadNumIslands>());
  }

 private:
  static constexpr double usual_angle = std::numbers::pi / 4;

  igsObjectPtr m_boundary;
  int m_pattern = 0;
  giPoint3 m_point;
  double m_distance = 0;
  double m_angle = usual_angle;
  mutable igsReferenceList m_islands;  // a check, which is const, starts the index list anew
};
