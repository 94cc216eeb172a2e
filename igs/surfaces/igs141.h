#pragma once

#include <vector>

#include "igs/fields/igsEntity.h"
#include "igs/fields/igsNamedError.h"
#include "igs/surfaces/igsModelSpaceCurve.h"

using igs141BadNumModelSpaceCurves = igsCountErrors<"igs141", "ModelSpaceCurves">::BadNum;

/// Boundary (IGES 5.3, type 141): the curves that bound a region of a surface, each in model space and, where
/// bounded_surface_representation() is 1, in the parameter space of the surface. Positions are 0-based.
class IGS_API igs141 : public igsEntity<igs141, "igs141", igsObject> {
 public:
  igs141();

  /// TYPE as it stands in the file: 0 the boundary is given in model space alone, 1 in parameter space too.
  int bounded_surface_representation() const { return m_bounded_surface_representation; }
  void set_bounded_surface_representation(int type) { m_bounded_surface_representation = type; }
  /// PREF as it stands in the file: the sender prefers 0 none, 1 model space, 2 parameter space, 3 both equally.
  int preferred_representation() const { return m_preferred_representation; }
  void set_preferred_representation(int preference) { m_preferred_representation = preference; }
  const igsObjectPtr& surface() const { return m_surface; }
  void set_surface(const igsObjectPtr& surface) { m_surface = surface; }

  int number_of_model_space_curves() const { return static_cast<int>(m_model_space_curves.size()); }
  /// Cuts the list, or lengthens it by curves with null pointers, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_model_space_curves, size); }
  /// The whole list, which may be changed in place.
  const std::vector<igsModelSpaceCurve>& model_space_curves() const { return m_model_space_curves; }
  std::vector<igsModelSpaceCurve>& model_space_curves() { return m_model_space_curves; }
  /// Gives a pointer to model-space curve `i`, which this entity owns and which is good until the list is changed, and
  /// returns 1; returns 0 and leaves `curve` alone outside the list.
  int model_space_curve(int i, igsModelSpaceCurve** curve);
  /// Copies `*curve` to model-space curve `i` and returns 1; 0 outside the list and for null.
  int set_model_space_curve(int i, const igsModelSpaceCurve* curve);

  int read_pd_data(igsInStream& in) override;
  /// Reads the list of curves alone, from their number on, and returns 1; returns 0, the error tagged, when a number of
  /// curves in it cannot be used.
  int read_model_space_curves(igsInStream& in);
  /// Reads one curve of the list, to stand at `i`. Says whether a field held a value; `ended`, the error tagged, when
  /// the number of its parameter-space curves cannot be used.
  igsSupply read_model_space_curve_data(igsInStream& in, int i, igsModelSpaceCurve& curve) const;
  /// Prints the list of curves alone.
  void print_model_space_curves(utOstream& os) const;
  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    leading_fields(entity, visit);
    curve_fields(entity, visit);
  }

 private:
  template <class E, class V>
  static void leading_fields(E& entity, V& visit) {
    visit("BoundedSurfaceRepresentation", entity.m_bounded_surface_representation);
    visit("PreferredRepresentation", entity.m_preferred_representation);
    visit("Surface", entity.m_surface);
  }
  template <class E, class V>
  static void curve_fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfModelSpaceCurves", entity.m_model_space_curves.size());
    visit.list("ModelSpaceCurves", count, entity.m_model_space_curves, igsBadCount<igs141BadNumModelSpaceCurves>());
  }

  void check_model_space_curve(int i, const igsModelSpaceCurve& curve) const;
  void check_parameter_curves(int i, const igsModelSpaceCurve& curve) const;

  int m_bounded_surface_representation = 0;
  int m_preferred_representation = 0;
  igsObjectPtr m_surface;
  std::vector<igsModelSpaceCurve> m_model_space_curves;
};
