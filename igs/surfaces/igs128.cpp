#include "igs/surfaces/igs128.h"

#include <climits>

#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs128_errors.h"

namespace {
bool can_be_counted(std::int64_t order_u, std::int64_t order_v, std::int64_t count_u, std::int64_t count_v) {
  return order_u + count_u <= INT_MAX && order_v + count_v <= INT_MAX && count_u * count_v <= INT_MAX;
}
}  // namespace

igs128::igs128() { set_directory_entry_type(igsEntity128, 0); }

int igs128::set_order_size(int order_u, int order_v, int count_u, int count_v) {
  const bool any_array =
      number_of_knots_u() > 0 || number_of_knots_v() > 0 || !m_weights.empty() || !m_control_points.empty();
  if (any_array || order_u < 1 || order_v < 1 || count_u < order_u || count_v < order_v) return 0;
  if (!can_be_counted(order_u, order_v, count_u, count_v)) return 0;
  const auto size = static_cast<std::size_t>(count_u) * static_cast<std::size_t>(count_v);
  igsList<giPoint3> control_points(size);
  igsList<double> weights(size, igs_undefined_real);
  m_u.make(order_u, count_u);
  m_v.make(order_v, count_v);
  m_count_u = count_u;
  m_count_v = count_v;
  m_control_points.swap(control_points);
  m_weights.swap(weights);
  return 1;
}

void igs128::parametric_limits_u(double& start, double& end) const {
  start = m_u.start();
  end = m_u.end();
}

void igs128::parametric_limits_v(double& start, double& end) const {
  start = m_v.start();
  end = m_v.end();
}

int igs128::read_pd_data(igsInStream& in) {
  Size size;
  return read_surface_size(in, size) != 0 && read_flags(in) != 0 && read_knot_vectors(in, size) != 0 &&
                 read_homogenous_control_points(in, size) != 0 && read_parametric_limits(in) != 0
             ? 1
             : 0;
}

// The arrays grow as their values arrive; here only what cannot be counted is refused.
int igs128::read_surface_size(igsInStream& in, Size& size) {
  if (number_of_knots_u() > 0) return 0;
  for (int* const field : {&size.sum_index_u, &size.sum_index_v, &size.degree_u, &size.degree_v})
    in.read_integer(*field);
  if (size.sum_index_u < 1) {
    tag<igs128BadUSumIndex>(size.sum_index_u);
  } else if (size.sum_index_v < 1) {
    tag<igs128BadVSumIndex>(size.sum_index_v);
  } else if (size.degree_u < 1) {
    tag<igs128BadUDegree>(size.degree_u);
  } else if (size.degree_v < 1) {
    tag<igs128BadVDegree>(size.degree_v);
  } else if (size.sum_index_u < size.degree_u) {
    tag<igs128USumIndexLessThanUDegree>(size.sum_index_u, size.degree_u);
  } else if (size.sum_index_v < size.degree_v) {
    tag<igs128VSumIndexLessThanVDegree>(size.sum_index_v, size.degree_v);
  } else if (!can_be_counted(size.order_u(), size.order_v(), size.count_u(), size.count_v())) {
    return refuse_sizes(size);
  } else {
    return 1;
  }
  return 0;
}

int igs128::read_flags(igsInStream& in) {
  for (int* const flag :
       {&m_closed_flag_u, &m_closed_flag_v, &m_rational_flag, &m_periodic_flag_u, &m_periodic_flag_v}) {
    in.read_integer(*flag);
  }
  return 1;
}

int igs128::read_knot_vectors(igsInStream& in, const Size& size) {
  if (m_u.read_knots(in, static_cast<int>(size.order_u()), static_cast<int>(size.count_u())) == 0) {
    tag<igs128BadUSumIndex>(size.sum_index_u);
    m_u.clear();
    return 0;
  }
  if (m_v.read_knots(in, static_cast<int>(size.order_v()), static_cast<int>(size.count_v())) == 0) {
    tag<igs128BadVSumIndex>(size.sum_index_v);
    m_u.clear();
    m_v.clear();
    return 0;
  }
  return 1;
}

int igs128::read_homogenous_control_points(igsInStream& in, const Size& size) {
  const std::int64_t count = size.count_u() * size.count_v();
  const auto knots = static_cast<std::size_t>(number_of_knots_u()) + static_cast<std::size_t>(number_of_knots_v());
  if (igs_read_reals(in, count, m_weights, knots) == 0 ||
      igs_read_points(in, count, m_control_points, m_weights.size()) == 0) {
    return refuse_sizes(size);
  }
  m_count_u = static_cast<int>(size.count_u());
  m_count_v = static_cast<int>(size.count_v());
  return 1;
}

int igs128::read_parametric_limits(igsInStream& in) {
  m_u.read_limits(in);
  m_v.read_limits(in);
  return 1;
}

// The greater of the two is the one that cannot be right.
int igs128::refuse_sizes(const Size& size) {
  if (size.sum_index_u >= size.sum_index_v) {
    tag<igs128BadUSumIndex>(size.sum_index_u);
  } else {
    tag<igs128BadVSumIndex>(size.sum_index_v);
  }
  m_u.clear();
  m_v.clear();
  m_weights = igsList<double>();
  m_control_points = igsList<giPoint3>();
  return 0;
}

void igs128::print_pd_data(utOstream& os) const {
  os << "NumberOfControlPointsU = " << m_count_u << utEndl;
  os << "NumberOfControlPointsV = " << m_count_v << utEndl;
  os << "OrderU = " << order_u() << utEndl;
  os << "OrderV = " << order_v() << utEndl;
  igs_print_flag(os, "ClosedU", m_closed_flag_u);
  igs_print_flag(os, "ClosedV", m_closed_flag_v);
  igs_print_flag(os, "Rational", m_rational_flag, rational_means_true);
  igs_print_flag(os, "PeriodicU", m_periodic_flag_u);
  igs_print_flag(os, "PeriodicV", m_periodic_flag_v);
  m_u.print_knots(os, "KnotVectorU");
  m_v.print_knots(os, "KnotVectorV");
  print_control_points(os);
  os << "StartParameterU = " << m_u.start() << utEndl;
  os << "EndParameterU = " << m_u.end() << utEndl;
  os << "StartParameterV = " << m_v.start() << utEndl;
  os << "EndParameterV = " << m_v.end() << utEndl;
}

void igs128::print_control_points(utOstream& os) const {
  os << "ControlPoints = {" << utEndl;
  utOstream inner(os, 1);
  std::size_t k = 0;
  for (int j = 0; j < m_count_v; ++j) {
    for (int i = 0; i < m_count_u; ++i, ++k) {
      inner << '(' << i << ',' << j << ") = " << m_control_points[k] << ',' << m_weights[k] << utEndl;
    }
  }
  os << '}' << utEndl;
}

void igs128::check_pd() const {
  check_surface_size();
  check_flags();
  check_knot_vectors();
  check_homogenous_control_points();
  check_parametric_limits();
}

void igs128::check_surface_size() const {
  if (number_of_knots_u() == 0 || number_of_knots_v() == 0 || m_weights.empty() || m_control_points.empty()) {
    tag<igs128NoConstruct>();
  }
  if (order_u() < 2) tag<igs128BadUDegree>(order_u() - 1);
  if (order_v() < 2) tag<igs128BadVDegree>(order_v() - 1);
  if (m_count_u < 2) tag<igs128BadUSumIndex>(m_count_u - 1);
  if (m_count_v < 2) tag<igs128BadVSumIndex>(m_count_v - 1);
}

void igs128::check_flags() const {
  if (!igs_is_flag(m_closed_flag_u)) tag<igs128InvalidClosedUFlag>(m_closed_flag_u);
  if (!igs_is_flag(m_closed_flag_v)) tag<igs128InvalidClosedVFlag>(m_closed_flag_v);
  if (!igs_is_flag(m_rational_flag)) tag<igs128InvalidRationalFlag>(m_rational_flag);
  if (!igs_is_flag(m_periodic_flag_u)) tag<igs128InvalidPeriodicUFlag>(m_periodic_flag_u);
  if (!igs_is_flag(m_periodic_flag_v)) tag<igs128InvalidPeriodicVFlag>(m_periodic_flag_v);
}

void igs128::check_knot_vectors() const {
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincBreakPoints);
  igs_check_knots<igs128UErrors>(*this, m_u, tolerance);
  igs_check_knots<igs128VErrors>(*this, m_v, tolerance);
}

void igs128::check_homogenous_control_points() const {
  for (std::size_t k = 0; k < m_control_points.size(); ++k) {
    if (!m_control_points[k].is_undefined()) continue;
    const auto count_u = static_cast<std::size_t>(m_count_u);
    tag<igs128UnsetControlPoint>(static_cast<int>(k % count_u), static_cast<int>(k / count_u));
  }
  if (!m_weights.empty()) check_weights();
}

// Unlike in a curve, equal weights are never held against the rational flag.
void igs128::check_weights() const {
  const coResourceTable& table = kel_resource_table_inquire();
  const double zero_tolerance = table.value(kelTolMinValue);
  if (igs_weight_spread(m_weights, table.value(kelTolCoincWeights)).all_close) return;
  std::size_t k = 0;
  for (int j = 0; j < m_count_v; ++j) {
    for (int i = 0; i < m_count_u; ++i, ++k) {
      const igsWeightFault fault = igs_weight_fault(m_weights[k], zero_tolerance);
      if (fault == igsWeightFault::zero) tag<igs128ZeroWeight>(i, j);
      if (fault == igsWeightFault::unset) tag<igs128UnsetWeight>(i, j);
      if (fault == igsWeightFault::negative) tag<igs128NegativeWeight>(i, j, m_weights[k]);
    }
  }
  if (m_rational_flag == 1) tag<igs128WeightsAndRatFlagDisaggree>();
}

void igs128::check_parametric_limits() const {
  for (const double limit : {m_u.start(), m_u.end(), m_v.start(), m_v.end()}) {
    if (!igs_is_undefined_real(limit)) continue;
    tag<igs128UnsetTrimmingParams>();
    break;
  }
  if (m_u.end() <= m_u.start()) tag<igs128TrimParamsUOutOfSequence>(m_u.start(), m_u.end());
  if (m_v.end() <= m_v.start()) tag<igs128TrimParamsVOutOfSequence>(m_v.start(), m_v.end());
}
