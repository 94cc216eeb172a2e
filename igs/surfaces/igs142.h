#pragma once

#include "igs/fields/igsEntity.h"

/// Curve on a Parametric Surface (IGES 5.3, type 142): a curve given in the parameter space of a surface, in model
/// space, or both.
class IGS_API igs142 : public igsEntity<igs142, "igs142", igsObject> {
 public:
  igs142();

  /// CRTN as it stands in the file: how the curve was made, 0 unspecified, 1 projection, 2 intersection, 3
  /// isoparametric.
  int curve_creation() const { return m_curve_creation; }
  void set_curve_creation(int creation) { m_curve_creation = creation; }
  const igsObjectPtr& surface() const { return m_surface; }
  void set_surface(const igsObjectPtr& surface) { m_surface = surface; }
  /// The curve in the parameter space of the surface; null when there is none.
  const igsObjectPtr& curve_2d() const { return m_curve_2d; }
  void set_curve_2d(const igsObjectPtr& curve) { m_curve_2d = curve; }
  /// The curve in model space; null when there is none.
  const igsObjectPtr& curve_3d() const { return m_curve_3d; }
  void set_curve_3d(const igsObjectPtr& curve) { m_curve_3d = curve; }
  /// PREF as it stands in the file: the sender prefers 0 none, 1 parameter space, 2 model space, 3 both equally.
  int preferred_representation() const { return m_preferred_representation; }
  void set_preferred_representation(int preference) { m_preferred_representation = preference; }

  void check_pd() const override;
  /// The common check; the entity may be part of a model or 2D parametric, but no logical or positional reference.
  void check_de() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("CurveCreation", entity.m_curve_creation);
    visit("Surface", entity.m_surface);
    visit("ParameterSpaceCurve", entity.m_curve_2d);
    visit("ModelSpaceCurve", entity.m_curve_3d);
    visit("PreferredRepresentation", entity.m_preferred_representation);
  }

 private:
  int m_curve_creation = 0;
  igsObjectPtr m_surface;
  igsObjectPtr m_curve_2d;
  [[no_unique_address]] igsObjectPtr m_curve_3d;
  int m_preferred_representation = 0;
};
