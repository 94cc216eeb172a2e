#pragma once

#include <utility>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsIndexedList.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsCurve.h"

using igs102BadNumCurves = igsCountErrors<"igs102", "Curves">::BadNum;

/// Composite Curve (IGES 5.3, type 102): curves that follow each other from end to start, and points among them.
/// Positions are 0-based. The errors of a check name sub-curves by their positions at that check; an index list
/// remembers where these went when repairs took sub-curves out.
class IGS_API igs102 : public igsEntity<igs102, "igs102", igsCurve> {
 public:
  igs102();

  /// Null ones too.
  int number_of_sub_curves() const { return static_cast<int>(sub_curves().size()); }
  /// Cuts the list, or lengthens it by null pointers, and returns 1; 0 for a negative size.
  int set_size(int size);
  /// The whole list, which may be changed in place; the index list knows nothing of it.
  const std::vector<igsObjectPtr>& sub_curves() const { return std::as_const(m_sub_curves).elements(); }
  std::vector<igsObjectPtr>& sub_curves() { return m_sub_curves.elements(); }
  /// Makes `sub_curve` a reference to sub-curve `i`, which counts like any other, and returns 1; returns 0 and leaves
  /// it alone outside the list.
  int sub_curve(int i, igsObjectPtr& sub_curve) const;
  /// Stores sub-curve `i` and returns 1; 0 outside the list.
  int set_sub_curve(int i, const igsObjectPtr& sub_curve);

  /// Starts the index list anew: every sub-curve at its own position. Every check does so.
  void set_index_list() { m_sub_curves.restart_index(); }
  /// Notes that original position `original` is now at `current` (-1: taken out).
  void set_index(int original, int current) { m_sub_curves.set_index(original, current); }
  /// Where original position `original` is now; -1 when it was taken out or never existed.
  int get_current_index(int original) const { return m_sub_curves.current_index(original); }
  /// The original position of what is now at `current`, or -1.
  int get_original_index(int current) const { return m_sub_curves.original_index(current); }

  /// The place of the sub-curve whose original position is `original`; null when it was taken out or never existed.
  /// Good until the list is changed.
  igsObjectPtr* at_original(int original) { return m_sub_curves.at_original(original); }
  /// Takes that sub-curve out of the list, keeping the index list, and returns 1; 0 when there is none. Costs the same
  /// however long the list is.
  int remove_original(int original) { return m_sub_curves.take_out(original); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    auto& sub_curves = entity.m_sub_curves.elements();
    const int count = visit.count("NumberOfSubCurves", sub_curves.size());
    visit.list("SubCurves", count, sub_curves, igsBadCount<igs102BadNumCurves>());
  }

 private:
  void check_points() const;

  mutable igsIndexedList<igsObjectPtr> m_sub_curves;  // a check, which is const, starts the index list anew
};
