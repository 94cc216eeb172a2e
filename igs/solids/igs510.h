#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsList.h"

/// The face has no loops, or their number is negative or out of proportion to the record.
using igs510NoLoops = igsNamedError<"igs510NoLoops">;

/// Face (IGES 5.3, type 510, form 1): the part of a surface within loops. Positions are 0-based.
class IGS_API igs510 : public igsEntity<igs510, "igs510", igsObject> {
 public:
  igs510();

  const igsObjectPtr& surface() const { return m_surface; }
  void set_surface(const igsObjectPtr& surface) { m_surface = surface; }
  /// 1: the first loop is the outer one. 0: no loop is said to be.
  int outer_loop_flag() const { return m_outer_loop_flag; }
  void set_outer_loop_flag(int flag) { m_outer_loop_flag = flag; }

  int number_of_loops() const { return static_cast<int>(m_loops.size()); }
  /// Cuts the list, or lengthens it by null pointers, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_loops, size); }
  /// Good until the size of the list changes; null outside it.
  const igsObjectPtr& loop(int i) const { return igs_element(m_loops, i); }
  /// Stores loop `i` and returns 1; 0 outside the list.
  int set_loop(const igsObjectPtr& loop, int i) { return igs_set_element(m_loops, i, loop); }

  // What igsCompound::add_514_faces() notes about a face that stands for itself from then on. Not part of a file.

  /// DE number of the solid that the face came from, at that time; 0 when there is none.
  int solid_id() const { return m_solid_id; }
  void set_solid_id(int de) { m_solid_id = de; }
  /// Whether the shell used the face with the direction of its surface (1, as before such a note) or against it (0).
  int orientation() const { return m_orientation; }
  void set_orientation(int orientation) { m_orientation = orientation; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Surface", entity.m_surface);
    const int count = visit.count("NumberOfLoops", entity.m_loops.size());
    visit("OuterLoopFlag", entity.m_outer_loop_flag);
    visit.list("Loops", count, entity.m_loops, igsBadCount<igs510NoLoops>());
  }

 private:
  [[no_unique_address]] igsObjectPtr m_surface;
  int m_outer_loop_flag = 0;
  igsList<igsObjectPtr> m_loops;
  int m_solid_id = 0;
  int m_orientation = 1;
};
