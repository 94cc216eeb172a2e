#pragma once

#include "igs/annotation/igsDimension.h"
#include "igs/fields/igsNamedError.h"

using igs228BadNumGeometry = igsCountErrors<"igs228", "Geometry">::BadNum;
using igs228BadNumLeaders = igsCountErrors<"igs228", "Leaders">::BadNum;

/// General Symbol (IGES 5.3, type 228): geometry that forms a symbol, with a note, which in form 0 may be null, and
/// with leaders, or none. Positions are 0-based.
class IGS_API igs228 : public igsEntity<igs228, "igs228", igsDimension>, public igsLeaderList {
 public:
  /// Form 0.
  igs228();

  int number_of_geometry() const { return m_geometry.size(); }
  const std::vector<igsObjectPtr>& geometry() const { return std::as_const(m_geometry).elements(); }
  void set_geometry(std::vector<igsObjectPtr> geometry) { m_geometry.assign(std::move(geometry)); }
  /// Of any class; good until the list is changed, null outside it.
  const igsObjectPtr& geometry(int i) const { return m_geometry.get(i); }
  /// Stores entity `i` and returns 1; 0 outside the list.
  int set_geometry(int i, const igsObjectPtr& geometry) { return m_geometry.set(i, geometry); }
  /// Where the entity that was at `original` at the last check is now; -1 when it was taken out or never existed.
  int current_geometry_index(int original) const { return m_geometry.current_index(original); }
  /// Takes the null entities out. `original`: the position, at the last check, of one that was null.
  void remove_null_geometry(int original) { m_geometry.drop_nulls(original); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& geometry = entity.m_geometry.elements();
    auto& leaders = entity.m_leaders.elements();
    visit("Note", entity.m_note);
    const int geometry_count = visit.count("NumberOfGeometry", geometry.size());
    visit.list("Geometry", geometry_count, geometry, igsBadCount<igs228BadNumGeometry>());
    const int leader_count = visit.count("NumberOfLeaders", leaders.size());
    visit.list("Leaders", leader_count, leaders, igsBadCount<igs228BadNumLeaders>());
  }

 private:
  mutable igsReferenceList m_geometry;  // a check, which is const, starts the index list anew
};
