#pragma once

#include <utility>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/fields/igsReferenceList.h"

using igs144BadNumInnerBounds = igsCountErrors<"igs144", "InnerBounds">::BadNum;

/// Trimmed (Parametric) Surface (IGES 5.3, type 144): the region of a surface inside the outer boundary and outside the
/// inner boundaries, all of them curves on that surface (igs142). Positions are 0-based.
class IGS_API igs144 : public igsEntity<igs144, "igs144", igsObject> {
 public:
  igs144();

  const igsObjectPtr& surface() const { return m_surface; }
  void set_surface(const igsObjectPtr& surface) { m_surface = surface; }
  /// N1 as it stands in the file: 0 the outer boundary is that of the surface, 1 it is outer_boundary().
  int outer_boundary_flag() const { return m_outer_boundary_flag; }
  void set_outer_boundary_flag(int flag) { m_outer_boundary_flag = flag; }
  /// Null where the outer boundary is that of the surface.
  const igsObjectPtr& outer_boundary() const { return m_outer_boundary; }
  void set_outer_boundary(const igsObjectPtr& boundary) { m_outer_boundary = boundary; }

  int number_of_inner_boundaries() const { return m_inner_boundaries.size(); }
  const std::vector<igsObjectPtr>& inner_boundaries() const;
  void set_inner_boundaries(std::vector<igsObjectPtr> boundaries) { m_inner_boundaries.assign(std::move(boundaries)); }
  /// Makes `boundary` a reference to inner boundary `i`, which counts like any other, and returns 1; returns 0 and
  /// leaves it alone outside the list.
  int inner_boundary(int i, igsObjectPtr& boundary) const;
  /// Stores inner boundary `i` and returns 1; 0 outside the list.
  int set_inner_boundary(int i, const igsObjectPtr& boundary) { return m_inner_boundaries.set(i, boundary); }

  /// Where the inner boundary that was at `original` at the last check is now; -1 when it was taken out or never
  /// existed.
  int get_current_index(int original) const { return m_inner_boundaries.current_index(original); }
  /// Takes the null inner boundaries out, the others keeping their order, and notes where they went. `original`: the
  /// position, at the last check, of one that was null. A thousand calls for one list cost no more than one.
  void remove_null_inner_boundaries(int original) { m_inner_boundaries.drop_nulls(original); }
  /// True when this is a curve on a surface that names the surface of this entity as its own.
  bool lies_on_surface(const igsObjectPtr& boundary) const;

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& inner_boundaries = entity.m_inner_boundaries.elements();
    visit("Surface", entity.m_surface);
    visit("OuterBoundaryFlag", entity.m_outer_boundary_flag);
    const int count = visit.count("NumberOfInnerBoundaries", inner_boundaries.size());
    visit("OuterBoundary", entity.m_outer_boundary);
    visit.list("InnerBoundaries", count, inner_boundaries, igsBadCount<igs144BadNumInnerBounds>());
  }

 private:
  void check_inner_boundaries() const;

  [[no_unique_address]] igsObjectPtr m_surface;
  int m_outer_boundary_flag = 0;
  igsObjectPtr m_outer_boundary;
  mutable igsReferenceList m_inner_boundaries;  // a check, which is const, starts the index list anew
};
