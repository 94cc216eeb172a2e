#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"

using igs143BadNumBoundaries = igsCountErrors<"igs143", "Boundaries">::BadNum;

/// Bounded Surface (IGES 5.3, type 143): the region of a surface inside boundaries (igs141). Positions are 0-based.
class IGS_API igs143 : public igsEntity<igs143, "igs143", igsObject> {
 public:
  igs143();

  /// TYPE as it stands in the file: 0 the boundaries are given in model space alone, 1 in parameter space too.
  int surface_representation() const { return m_surface_representation; }
  void set_surface_representation(int type) { m_surface_representation = type; }
  const igsObjectPtr& basis_surface() const { return m_basis_surface; }
  void set_basis_surface(const igsObjectPtr& surface) { m_basis_surface = surface; }

  int number_of_boundaries() const { return static_cast<int>(m_boundaries.size()); }
  const std::vector<igsObjectPtr>& boundaries() const { return m_boundaries; }
  /// Cuts the list, or lengthens it by null pointers, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_boundaries, size); }
  /// Makes `boundary` a reference to boundary `i`, which counts like any other, and returns 1; returns 0 and leaves it
  /// alone outside the list.
  int boundary(int i, igsObjectPtr& boundary) const { return igs_get_element(m_boundaries, i, boundary); }
  /// Stores boundary `i` and returns 1; 0 outside the list.
  int set_boundary(int i, const igsObjectPtr& boundary) { return igs_set_element(m_boundaries, i, boundary); }

  /// True when this is a Boundary entity that names the basis surface as its own.
  bool lies_on_surface(const igsObjectPtr& boundary) const;

  void check_pd() const override;
  /// The common check; the entity is part of a model: no logical or positional reference, not 2D parametric.
  void check_de() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("SurfaceRepresentation", entity.m_surface_representation);
    visit("BasisSurface", entity.m_basis_surface);
    const int count = visit.count("NumberOfBoundaries", entity.m_boundaries.size());
    visit.list("Boundaries", count, entity.m_boundaries, igsBadCount<igs143BadNumBoundaries>());
  }

 private:
  int m_surface_representation = 0;
  igsObjectPtr m_basis_surface;
  std::vector<igsObjectPtr> m_boundaries;
};
