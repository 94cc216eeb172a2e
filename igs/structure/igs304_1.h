#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsStructure.h"
#include "igs/support/undefined.h"

/// Line Font Definition (IGES 5.3, type 304), form 1: a subfigure that is repeated along a curve.
class IGS_API igs304_1 : public igsEntity<igs304_1, "igs304_1", igsStructure> {
 public:
  igs304_1();

  /// How every copy lies: 1 along the axes of the subfigure's own space, 2 along the curve.
  int orientation() const { return m_orientation; }
  void set_orientation(int orientation) { m_orientation = orientation; }
  /// The subfigure definition (igs308) that is repeated.
  const igsObjectPtr& subfigure() const { return m_subfigure; }
  void set_subfigure(const igsObjectPtr& subfigure) { m_subfigure = subfigure; }
  /// Length of the curve from one copy to the next, in model units; undefined until it is set.
  double spacing() const { return m_spacing; }
  void set_spacing(double spacing) { m_spacing = spacing; }
  /// Of the copies.
  double scale() const { return m_scale; }
  void set_scale(double scale) { m_scale = scale; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Orientation", entity.m_orientation);
    visit("Template", entity.m_subfigure);
    visit("Spacing", entity.m_spacing);
    visit("Scale", entity.m_scale, 1.0);
  }

 private:
  int m_orientation = 1;
  igsObjectPtr m_subfigure;
  double m_spacing = igs_undefined_real;
  double m_scale = 1;
};
