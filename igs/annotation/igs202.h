#pragma once

#include "igs/annotation/igsDimension.h"

/// Angular Dimension (IGES 5.3, type 202): the angle between two lines, with leaders that are arcs around the vertex.
class IGS_API igs202 : public igsEntity<igs202, "igs202", igsDimension>, public igsTwoSidedLines {
 public:
  igs202();

  /// Undefined at first.
  const giPoint2& vertex() const { return m_vertex; }
  void set_vertex(const giPoint2& vertex) { m_vertex = vertex; }
  /// Of the leaders' arcs; above 0. Unset (-DBL_MAX) at first.
  double radius() const { return m_radius; }
  void set_radius(double radius) { m_radius = radius; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Note", entity.m_note);
    visit("Witness1", entity.m_witness1);
    visit("Witness2", entity.m_witness2);
    visit("Vertex", entity.m_vertex);
    visit("Radius", entity.m_radius);
    visit("Leader1", entity.m_leader1);
    visit("Leader2", entity.m_leader2);
  }

 private:
  giPoint2 m_vertex;
  double m_radius = igs_undefined_real;
};
