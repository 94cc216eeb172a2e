#pragma once

#include "igs/annotation/igsDimension.h"

/// Point Dimension (IGES 5.3, type 220): a note with a leader, in a circle, an outline or nothing.
class IGS_API igs220 : public igsEntity<igs220, "igs220", igsDimension> {
 public:
  igs220();

  const igsObjectPtr& leader() const { return m_leader; }
  void set_leader(const igsObjectPtr& leader) { m_leader = leader; }
  /// What encloses the note: an igs100, igs102, igsSimpleClosedPlanarCurve or the igsPolyline that such a curve
  /// has been made; null where nothing does.
  const igsObjectPtr& geometry() const { return m_geometry; }
  void set_geometry(const igsObjectPtr& geometry) { m_geometry = geometry; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Note", entity.m_note);
    visit("Leader", entity.m_leader);
    visit("Geometry", entity.m_geometry);
  }

 private:
  igsObjectPtr m_leader;
  igsObjectPtr m_geometry;
};
