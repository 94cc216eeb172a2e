#pragma once

#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsObjectPtr.h"
#include "igs/support/export.h"

/// The number of parameter-space curves of a model-space curve is negative or out of proportion to the record; carries
/// the position of the model-space curve and the number.
using igs141BadNumAssocParamCurves = igsNamedError<"igs141BadNumAssocParamCurves", igsObjectError, int, int>;

/// One curve of a Boundary (igs141): a curve in model space, and the curves in the parameter space of the surface that
/// it is the image of, in the same order. Positions are 0-based.
class IGS_API igsModelSpaceCurve {
 public:
  /// The values of sense().
  static constexpr int agrees = 1;
  static constexpr int reversed = 2;

  const igsObjectPtr& curve() const { return m_curve; }
  void set_curve(const igsObjectPtr& curve) { m_curve = curve; }
  /// Whether the boundary runs along the curve or against it. As it stands in the file; `agrees` until it is set.
  int sense() const { return m_sense; }
  void set_sense(int sense) { m_sense = sense; }

  int number_of_parameter_curves() const { return static_cast<int>(m_parameter_curves.size()); }
  /// Cuts the list of parameter-space curves, or lengthens it by null pointers, and returns 1; 0 for a negative size.
  int set_size(int size) { return igs_resize(m_parameter_curves, size); }
  const std::vector<igsObjectPtr>& parameter_curves() const { return m_parameter_curves; }
  /// Makes `curve` a reference to parameter-space curve `j`, which counts like any other, and returns 1; returns 0 and
  /// leaves it alone outside the list.
  int parameter_curve(int j, igsObjectPtr& curve) const { return igs_get_element(m_parameter_curves, j, curve); }
  /// Stores parameter-space curve `j` and returns 1; 0 outside the list.
  int set_parameter_curve(int j, const igsObjectPtr& curve) { return igs_set_element(m_parameter_curves, j, curve); }

  template <class E, class V>
  static void fields(E& curve, V& visit) {
    leading_fields(curve, visit);
    const int count = visit.count("NumberOfParameterCurves", curve.m_parameter_curves.size());
    visit.list("ParameterCurves", count, curve.m_parameter_curves, igsBadCount<igs141BadNumAssocParamCurves>());
  }

 private:
  friend class igs141;

  template <class E, class V>
  static void leading_fields(E& curve, V& visit) {
    visit("Curve", curve.m_curve);
    visit("Sense", curve.m_sense);
  }

  igsObjectPtr m_curve;
  int m_sense = agrees;
  std::vector<igsObjectPtr> m_parameter_curves;
};
