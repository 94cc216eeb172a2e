#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsDefinition.h"
#include "igs/support/giPoint.h"

/// Singular Subfigure Instance (IGES 5.3, type 408): a subfigure definition (igs308), scaled about its origin and then
/// moved.
class IGS_API igs408 : public igsEntity<igs408, "igs408", igsDefinition> {
 public:
  igs408();

  const igsObjectPtr& subfigure() const { return m_subfigure; }
  void set_subfigure(const igsObjectPtr& subfigure) { m_subfigure = subfigure; }
  /// Model units; undefined at first.
  const giPoint3& translation() const { return m_translation; }
  void set_translation(const giPoint3& translation) { m_translation = translation; }
  /// Not 0; 1 where the record does not give it.
  double scale() const { return m_scale; }
  void set_scale(double scale) { m_scale = scale; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Subfigure", entity.m_subfigure);
    visit("Translation", entity.m_translation);
    visit("Scale", entity.m_scale, 1.0);
  }

 private:
  igsObjectPtr m_subfigure;
  giPoint3 m_translation;
  double m_scale = 1;
};
