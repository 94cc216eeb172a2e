#pragma once

#include "igs/annotation/igs212.h"
#include "igs/annotation/igs214.h"
#include "igs/annotation/igsDimension.h"
#include "igs/annotation/igsWitnessLine.h"
#include "igs/fields/igsMemberErrors.h"
#include "igs/fields/igsReferenceTest.h"

// What dimensions check. Private to the library: included by their source files.

inline constexpr igsExactly<igs214> a_leader;
inline constexpr igsExactly<igsWitnessLine> a_witness_line;

/// The checks of the fields of a dimension of the class `Owner`, each error named after the class and the field.
template <igsName Owner>
class igsDimensionCheck {
 public:
  explicit igsDimensionCheck(const igsDimension& dimension) : m_dimension(dimension) {}

  /// The reference test of a field that may not be null ...
  template <igsName Field, class Demand>
  void required(const igsObjectPtr& reference, Demand demand) const {
    igsReferenceErrors<Owner, Field>::Test::check(m_dimension, reference, demand);
  }
  /// ... and of one that may.
  template <igsName Field, class Demand>
  void optional(const igsObjectPtr& reference, Demand demand) const {
    igsReferenceErrors<Owner, Field>::TestUnlessNull::check(m_dimension, reference, demand);
  }
  void note() const { required<"Note">(m_dimension.note(), igsExactly<igs212>()); }

  template <igsName Field, class T, auto DropNulls, class Demand>
  void members(const igsReferenceList& list, Demand demand) const {
    for (int i = 0; const igsObjectPtr& member : list.elements()) {
      igsMemberErrors<Owner, Field, T, DropNulls>::Test::check(m_dimension, member, demand, i++);
    }
  }

  template <igsName Field, class Point>
  void defined(const Point& point) const {
    if (point.is_undefined()) m_dimension.tag<typename igsUndefinedErrors<Owner, Field>::Invalid>();
  }
  template <igsName Field>
  void defined(double value) const {
    if (igs_is_undefined_real(value)) m_dimension.tag<typename igsUndefinedErrors<Owner, Field>::Invalid>();
  }
  template <igsName Field>
  void above_0(double value) const {
    if (!(value > 0)) m_dimension.tag<typename igsRealErrors<Owner, Field>::Invalid>(value);
  }

 private:
  const igsDimension& m_dimension;
};
