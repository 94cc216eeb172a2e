#pragma once

#include <cstdint>
#include <vector>

#include "igs/curves/igsKnotVector.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/objects/igsList.h"
#include "igs/objects/igsSurface.h"
#include "igs/support/giPoint.h"

/// Rational B-Spline Surface (IGES 5.3, type 128), forms 0 to 9. Knots, weights and limits that were never set are
/// -DBL_MAX; indices are 0-based, u first.
///
/// A new surface is empty: set_order_size() makes its arrays. Setters and getters that name an element return 1; they
/// return 0 and leave everything as it is when there is no such element.
class IGS_API igs128 : public igsWrittenEntity<igs128, "igs128", igsParameterizedSurface> {
 public:
  igs128();

  /// Makes the control points and weights, `count_u` x `count_v`, and the knots, all unset, and returns 1. Returns 0
  /// and changes nothing when an order is < 1, a count less than its order or there are arrays already.
  int set_order_size(int order_u, int order_v, int count_u, int count_v);
  /// Degree + 1; -2147483647 while there are no knots.
  int order_u() const { return m_u.order(); }
  int order_v() const { return m_v.order(); }
  int number_of_control_points_u() const { return m_count_u; }
  int number_of_control_points_v() const { return m_count_v; }
  int number_of_knots_u() const { return m_u.number_of_knots(); }
  int number_of_knots_v() const { return m_v.number_of_knots(); }

  /// In model units.
  int control_point(int i, int j, giPoint3& point) const {
    return igs_get_element(m_control_points, position(i, j), point);
  }
  int set_control_point(int i, int j, const giPoint3& point) {
    return igs_set_element(m_control_points, position(i, j), point);
  }
  /// Above 0 in a sound surface.
  int weight(int i, int j, double& weight) const { return igs_get_element(m_weights, position(i, j), weight); }
  int set_weight(int i, int j, double weight) { return igs_set_element(m_weights, position(i, j), weight); }
  /// None is below the one before it in a sound surface.
  int knot_u(int i, double& value) const { return m_u.knot(i, value); }
  int knot_v(int i, double& value) const { return m_v.knot(i, value); }
  int set_knot_u(int i, double value) { return m_u.set_knot(i, value); }
  int set_knot_v(int i, double value) { return m_v.set_knot(i, value); }

  /// All of them, u running fastest; unset ones are there, too.
  const igsList<giPoint3>& control_points() const { return m_control_points; }
  const igsList<double>& weights() const { return m_weights; }

  /// The limits of the parameters in use: U(0), U(1) and V(0), V(1).
  void parametric_limits_u(double& start, double& end) const;
  void parametric_limits_v(double& start, double& end) const;
  /// Return 1; return 0 and store nothing unless `end` >= `start`.
  int set_parametric_limits_u(double start, double end) { return m_u.set_limits(start, end); }
  int set_parametric_limits_v(double start, double end) { return m_v.set_limits(start, end); }
  /// A parametric direction as a whole.
  const igsKnotVector& direction_u() const { return m_u; }
  const igsKnotVector& direction_v() const { return m_v; }
  igsKnotVector& direction_u() { return m_u; }
  igsKnotVector& direction_v() { return m_v; }

  /// The flags PROP1 to PROP5 as they stand in the file. A rational flag of 0 says rational, 1 polynomial; of the
  /// others 0 says no and 1 yes.
  int closed_flag_u() const { return m_closed_flag_u; }
  int closed_flag_v() const { return m_closed_flag_v; }
  int rational_flag() const { return m_rational_flag; }
  int periodic_flag_u() const { return m_periodic_flag_u; }
  int periodic_flag_v() const { return m_periodic_flag_v; }
  void set_closed_flag_u(int flag) { m_closed_flag_u = flag; }
  void set_closed_flag_v(int flag) { m_closed_flag_v = flag; }
  void set_rational_flag(int flag) { m_rational_flag = flag; }
  void set_periodic_flag_u(int flag) { m_periodic_flag_u = flag; }
  void set_periodic_flag_v(int flag) { m_periodic_flag_v = flag; }

  /// Returns 0, no array made, when the sizes cannot be used or there are arrays already.
  int read_pd_data(igsInStream& in) override;
  void print_pd_data(utOstream& os) const override;
  void check_pd() const override;

  /// States what is written.
  template <class V>
  static void fields(const igs128& surface, V& visit) {
    visit("SumIndexU", surface.m_count_u - 1);
    visit("SumIndexV", surface.m_count_v - 1);
    visit("DegreeU", surface.order_u() - 1);
    visit("DegreeV", surface.order_v() - 1);
    visit("ClosedU", surface.m_closed_flag_u);
    visit("ClosedV", surface.m_closed_flag_v);
    visit("Rational", surface.m_rational_flag);
    visit("PeriodicU", surface.m_periodic_flag_u);
    visit("PeriodicV", surface.m_periodic_flag_v);
    visit.parametric([&] {
      visit.list("KnotsU", 0, surface.m_u.knots(), igsBadCount<void>());
      visit.list("KnotsV", 0, surface.m_v.knots(), igsBadCount<void>());
    });
    visit.list("Weights", 0, surface.m_weights, igsBadCount<void>());
    visit.list("ControlPoints", 0, surface.m_control_points, igsBadCount<void>());
    visit.parametric([&] {
      visit("StartParameterU", surface.m_u.start());
      visit("EndParameterU", surface.m_u.end());
      visit("StartParameterV", surface.m_v.start());
      visit("EndParameterV", surface.m_v.end());
    });
  }

 protected:
  /// The sizes that a record announces.
  struct Size {
    int sum_index_u = 0;  ///< K1
    int sum_index_v = 0;  ///< K2
    int degree_u = 0;     ///< M1
    int degree_v = 0;     ///< M2

    /// Degree along u and one.
    std::int64_t order_u() const { return std::int64_t{degree_u} + 1; }
    /// Degree along v and one.
    std::int64_t order_v() const { return std::int64_t{degree_v} + 1; }
    /// Control points along u.
    std::int64_t count_u() const { return std::int64_t{sum_index_u} + 1; }
    /// Control points along v.
    std::int64_t count_v() const { return std::int64_t{sum_index_v} + 1; }
  };

  // The steps of read_pd_data(), in their order. Each returns 1; or 0 where the read of the surface ends, the error
  // tagged.

  /// K1, K2, M1 and M2.
  int read_surface_size(igsInStream& in, Size& size);
  /// PROP1 to PROP5.
  int read_flags(igsInStream& in);
  /// Those along u, then those along v.
  int read_knot_vectors(igsInStream& in, const Size& size);
  /// The weights, then the points.
  int read_homogenous_control_points(igsInStream& in, const Size& size);
  /// U(0), U(1), V(0) and V(1).
  int read_parametric_limits(igsInStream& in);

  // The steps of check_pd(), in their order.

  void check_surface_size() const;
  void check_flags() const;
  void check_knot_vectors() const;
  void check_homogenous_control_points() const;
  void check_parametric_limits() const;

 private:
  int refuse_sizes(const Size& size);
  void check_weights() const;
  void print_control_points(utOstream& os) const;

  /// Of a control point and its weight in their lists, where u runs fastest; -1 where there is no such point.
  int position(int i, int j) const {
    return i < 0 || i >= m_count_u || j < 0 || j >= m_count_v ? -1 : j * m_count_u + i;
  }

  int m_closed_flag_u = 0;
  int m_closed_flag_v = 0;
  int m_rational_flag = 1;
  int m_periodic_flag_u = 0;
  int m_periodic_flag_v = 0;
  igsKnotVector m_u;
  igsKnotVector m_v;
  int m_count_u = 0;
  int m_count_v = 0;
  igsList<giPoint3> m_control_points;
  igsList<double> m_weights;
};
