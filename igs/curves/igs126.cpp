#include "igs/curves/igs126.h"

#include <climits>

#include "igs/curves/igs126_errors.h"
#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"

namespace {
struct KnotErrors : igs126KnotErrors {
  using NoParamRange = igs126NoParamRange;  // the curve is removed
};
}  // namespace

igs126::igs126() { set_directory_entry_type(igsEntity126, 0); }

int igs126::set_order_size(int order, int count) {
  const bool any_array = number_of_knots() > 0 || !m_weights.empty() || !m_control_points.empty();
  if (order < 1 || count < order || count > INT_MAX - order || any_array) return 0;
  const auto size = static_cast<std::size_t>(count);
  igsList<giPoint3> control_points(size);
  igsList<double> weights(size, igs_undefined_real);
  m_direction.make(order, count);
  m_control_points.swap(control_points);
  m_weights.swap(weights);
  return 1;
}

void igs126::parametric_limits(double& start, double& end) const {
  start = m_direction.start();
  end = m_direction.end();
}

int igs126::read_pd_data(igsInStream& in) {
  int order = 0, count = 0;
  return read_curve_size(in, order, count) != 0 && read_flags(in) != 0 && read_knots(in, order, count) != 0 &&
                 read_homogenous_control_points(in, count) != 0 && read_parametric_limits(in) != 0 &&
                 read_unit_normal(in) != 0
             ? 1
             : 0;
}

// The arrays grow as their values arrive; here only what cannot be counted is refused.
int igs126::read_curve_size(igsInStream& in, int& order, int& count) {
  if (number_of_knots() > 0) return 0;
  int sum_index = 0, degree = 0;
  in.read_integer(sum_index);
  in.read_integer(degree);
  if (sum_index < 1) {
    tag<igs126BadSumIndex>(sum_index);
  } else if (degree < 1) {
    tag<igs126BadDegree>(degree);
  } else if (sum_index < degree) {
    tag<igs126SumIndexLessThanDegree>(sum_index, degree);
  } else if (std::int64_t{sum_index} + degree + 2 > INT_MAX) {
    return refuse_size(sum_index);
  } else {
    order = degree + 1;
    count = sum_index + 1;
    return 1;
  }
  return 0;
}

int igs126::read_flags(igsInStream& in) {
  for (int* const flag : {&m_planar_flag, &m_closed_flag, &m_rational_flag, &m_periodic_flag}) in.read_integer(*flag);
  return 1;
}

int igs126::read_knots(igsInStream& in, int order, int count) {
  return m_direction.read_knots(in, order, count) != 0 ? 1 : refuse_size(count - 1);
}

int igs126::read_homogenous_control_points(igsInStream& in, int count) {
  const auto knots = static_cast<std::size_t>(number_of_knots());
  const bool usable = igs_read_reals(in, count, m_weights, knots) != 0 &&
                      igs_read_points(in, count, m_control_points, m_weights.size()) != 0;
  return usable ? 1 : refuse_size(count - 1);
}

int igs126::read_parametric_limits(igsInStream& in) {
  m_direction.read_limits(in);
  return 1;
}

int igs126::read_unit_normal(igsInStream& in) {
  double x = 0, y = 0, z = 0;
  for (double* const component : {&x, &y, &z}) in.read_double(*component);
  m_unit_normal = giVector3(x, y, z);
  return 1;
}

int igs126::refuse_size(int sum_index) {
  tag<igs126BadSumIndex>(sum_index);
  m_direction.clear();
  m_weights = igsList<double>();
  m_control_points = igsList<giPoint3>();
  return 0;
}

void igs126::print_pd_data(utOstream& os) const {
  os << "NumberOfControlPoints = " << number_of_control_points() << utEndl;
  os << "Order = " << order() << utEndl;
  igs_print_flag(os, "Planar", m_planar_flag);
  igs_print_flag(os, "Closed", m_closed_flag);
  igs_print_flag(os, "Rational", m_rational_flag, rational_means_true);
  igs_print_flag(os, "Periodic", m_periodic_flag);
  m_direction.print_knots(os, "KnotVector");
  os << "ControlPoints = {" << utEndl;
  utOstream inner(os, 1);
  for (std::size_t i = 0; i < m_control_points.size(); ++i) {
    inner << '(' << static_cast<int>(i) << ") = " << m_control_points[i] << ',' << m_weights[i] << utEndl;
  }
  os << '}' << utEndl;
  os << "StartParameter = " << m_direction.start() << utEndl;
  os << "EndParameter = " << m_direction.end() << utEndl;
  os << "UnitNormal = " << m_unit_normal << utEndl;
}

void igs126::check_pd() const {
  check_curve_size();
  check_flags();
  check_knots();
  check_homogenous_control_points();
  check_parametric_limits();
  check_unit_normal();
}

void igs126::check_curve_size() const {
  if (number_of_knots() == 0 || m_weights.empty() || m_control_points.empty()) tag<igs126NoConstruct>();
  if (order() < 2) tag<igs126BadDegree>(order() - 1);
  if (number_of_control_points() < 2) tag<igs126BadSumIndex>(number_of_control_points() - 1);
}

void igs126::check_flags() const {
  if (!igs_is_flag(m_planar_flag)) tag<igs126InvalidPlanarFlag>(m_planar_flag);
  if (!igs_is_flag(m_closed_flag)) tag<igs126InvalidClosedFlag>(m_closed_flag);
  if (!igs_is_flag(m_rational_flag)) tag<igs126InvalidRationalFlag>(m_rational_flag);
  if (!igs_is_flag(m_periodic_flag)) tag<igs126InvalidPeriodicFlag>(m_periodic_flag);
}

void igs126::check_knots() const {
  igs_check_knots<KnotErrors>(*this, m_direction, kel_resource_table_inquire().value(kelTolCoincBreakPoints));
}

void igs126::check_homogenous_control_points() const {
  for (std::size_t i = 0; i < m_control_points.size(); ++i) {
    if (m_control_points[i].is_undefined()) tag<igs126UnsetControlPoint>(static_cast<int>(i));
  }
  if (!m_weights.empty()) check_weights();
}

// Weights that are all the same are never looked at one by one, whatever they are.
void igs126::check_weights() const {
  const coResourceTable& table = kel_resource_table_inquire();
  const double zero_tolerance = table.value(kelTolMinValue);
  const igsWeightSpread spread = igs_weight_spread(m_weights, table.value(kelTolCoincWeights));
  if (!spread.all_close || (!spread.all_exact && m_rational_flag == 0)) {
    for (int i = 0; const double weight : m_weights) {
      const igsWeightFault fault = igs_weight_fault(weight, zero_tolerance);
      if (fault == igsWeightFault::zero) tag<igs126ZeroWeight>(i);
      if (fault == igsWeightFault::unset) tag<igs126UnsetWeight>(i);
      if (fault == igsWeightFault::negative) tag<igs126NegativeWeight>(i, weight);
      ++i;
    }
  }
  if ((spread.all_exact && m_rational_flag == 0) || (!spread.all_close && m_rational_flag == 1)) {
    tag<igs126WeightsAndRatFlagDisagree>(m_rational_flag);
  }
}

void igs126::check_parametric_limits() const {
  const double start = m_direction.start(), end = m_direction.end();
  if (igs_is_undefined_real(start) || igs_is_undefined_real(end)) tag<igs126UnsetTrimmingParams>();
  if (end <= start) tag<igs126TrimParamsOutOfSequence>(start, end);
}

void igs126::check_unit_normal() const {
  if (m_planar_flag == 1 && m_unit_normal.is_undefined()) tag<igs126InvalidUnitNormal>();
}
