#pragma once

#include <vector>

#include "igs/curves/igsKnotVector.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsList.h"
#include "igs/support/giPoint.h"
#include "igs/support/giVector.h"
#include "igs/support/undefined.h"

/// Rational B-Spline Curve (IGES 5.3, type 126), forms 0 to 5. Knots, weights and limits that were never set are
/// -DBL_MAX; indices are 0-based.
///
/// A new curve is empty: set_order_size() makes its arrays. Setters and getters that name an element return 1; they
/// return 0 and leave everything as it is when there is no such element.
class IGS_API igs126 : public igsWrittenEntity<igs126, "igs126", igsCurve> {
 public:
  igs126();

  /// Makes `count` control points, `count` weights and `order` + `count` knots, all unset, and returns 1. Returns 0 and
  /// changes nothing when `order` < 1, `count` < `order` or there are arrays already.
  int set_order_size(int order, int count);
  /// Degree + 1; -2147483647 while there are no knots.
  int order() const { return m_direction.order(); }
  int number_of_control_points() const { return static_cast<int>(m_control_points.size()); }
  int number_of_knots() const { return m_direction.number_of_knots(); }

  /// In model units.
  int control_point(int i, giPoint3& point) const { return igs_get_element(m_control_points, i, point); }
  int set_control_point(int i, const giPoint3& point) { return igs_set_element(m_control_points, i, point); }
  /// Above 0 in a sound curve.
  int weight(int i, double& weight) const { return igs_get_element(m_weights, i, weight); }
  int set_weight(int i, double weight) { return igs_set_element(m_weights, i, weight); }
  /// None is below the one before it in a sound curve.
  int knot(int i, double& value) const { return m_direction.knot(i, value); }
  int set_knot(int i, double value) { return m_direction.set_knot(i, value); }

  /// All of them, in their order; unset ones are there, too.
  const igsList<giPoint3>& control_points() const { return m_control_points; }
  const igsList<double>& weights() const { return m_weights; }

  /// The start and end of the curve's parameter, V(0) and V(1).
  void parametric_limits(double& start, double& end) const;
  /// Returns 1; returns 0 and stores nothing unless `end` >= `start`.
  int set_parametric_limits(double start, double end) { return m_direction.set_limits(start, end); }
  /// The parametric direction as a whole.
  const igsKnotVector& direction() const { return m_direction; }
  igsKnotVector& direction() { return m_direction; }

  /// The flags PROP1 to PROP4 as they stand in the file. A rational flag of 0 says rational, 1 polynomial; of the
  /// others 0 says no and 1 yes.
  int planar_flag() const { return m_planar_flag; }
  int closed_flag() const { return m_closed_flag; }
  int rational_flag() const { return m_rational_flag; }
  int periodic_flag() const { return m_periodic_flag; }
  void set_planar_flag(int flag) { m_planar_flag = flag; }
  void set_closed_flag(int flag) { m_closed_flag = flag; }
  void set_rational_flag(int flag) { m_rational_flag = flag; }
  void set_periodic_flag(int flag) { m_periodic_flag = flag; }

  /// Of the curve's plane, where it is planar.
  const giVector3& unit_normal() const { return m_unit_normal; }
  /// Returns 1; returns 0 and stores nothing for an undefined vector.
  int set_unit_normal(const giVector3& normal) { return igs_set_defined(m_unit_normal, normal); }

  /// Returns 0, no array made, when the sizes cannot be used or there are arrays already.
  int read_pd_data(igsInStream& in) override;
  void print_pd_data(utOstream& os) const override;
  void check_pd() const override;

  /// States what is written.
  template <class V>
  static void fields(const igs126& curve, V& visit) {
    visit("SumIndex", curve.number_of_control_points() - 1);
    visit("Degree", curve.order() - 1);
    visit("Planar", curve.m_planar_flag);
    visit("Closed", curve.m_closed_flag);
    visit("Rational", curve.m_rational_flag);
    visit("Periodic", curve.m_periodic_flag);
    visit.parametric([&] { visit.list("Knots", 0, curve.m_direction.knots(), igsBadCount<void>()); });
    visit.list("Weights", 0, curve.m_weights, igsBadCount<void>());
    visit.list("ControlPoints", 0, curve.m_control_points, igsBadCount<void>());
    visit.parametric([&] {
      visit("StartParameter", curve.m_direction.start());
      visit("EndParameter", curve.m_direction.end());
    });
    visit.optional("UnitNormal", curve.m_unit_normal);  // of planar curves
  }

 protected:
  // The steps of read_pd_data(), in their order. Each returns 1; or 0 where the read of the curve ends, the error
  // tagged.

  /// Reads the sum index and the degree; gives the order and the number of control points that they announce.
  int read_curve_size(igsInStream& in, int& order, int& count);
  int read_flags(igsInStream& in);
  int read_knots(igsInStream& in, int order, int count);
  int read_homogenous_control_points(igsInStream& in, int count);
  int read_parametric_limits(igsInStream& in);
  int read_unit_normal(igsInStream& in);

  // The steps of check_pd(), in their order.

  void check_curve_size() const;
  void check_flags() const;
  void check_knots() const;
  void check_homogenous_control_points() const;
  void check_parametric_limits() const;
  void check_unit_normal() const;

 private:
  int refuse_size(int sum_index);
  void check_weights() const;

  int m_planar_flag = 0;
  int m_closed_flag = 0;
  int m_rational_flag = 1;
  int m_periodic_flag = 0;
  giVector3 m_unit_normal;
  igsKnotVector m_direction;
  igsList<giPoint3> m_control_points;
  igsList<double> m_weights;
};
