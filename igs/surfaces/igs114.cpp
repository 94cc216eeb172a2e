#include "igs/surfaces/igs114.h"

#include <climits>
#include <cstdint>
#include <string>

#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/fields/igsListAccess.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs114_errors.h"

namespace {
struct BreakPointErrorsU {
  using UnsetKnot = igs114UnsetUBreakPoint;
  using KnotOutOfSequence = igs114UBreakPointOutOfSequence;
  using KnotsTooClose = igs114UBreakPointsTooClose;
};

struct BreakPointErrorsV {
  using UnsetKnot = igs114UnsetVBreakPoint;
  using KnotOutOfSequence = igs114VBreakPointOutOfSequence;
  using KnotsTooClose = igs114VBreakPointsTooClose;
};

/// The patches of a surface as a record that can be printed.
struct Patches {
  const igs114& surface;

  template <class E, class V>
  static void fields(E& patches, V& visit) {
    igsBicubicPatch patch;
    for (int i = 0; i <= patches.surface.number_of_patches_u(); ++i) {
      for (int j = 0; patches.surface.patch(i, j, patch) != 0; ++j) {
        visit(('(' + std::to_string(i) + ',' + std::to_string(j) + ')').c_str(), patch);
      }
    }
  }
};

// With the row and the column that have no meaning.
std::int64_t coefficients_of(std::int64_t count_u, std::int64_t count_v) {
  const std::int64_t patches = (count_u + 1) * (count_v + 1);  // at most 2^62
  constexpr std::int64_t size = igsBicubicPatch::size;
  return std::min(patches, INT64_MAX / size) * size;
}
}  // namespace

igs114::igs114() { set_directory_entry_type(igsEntity114, 0); }

int igs114::set_size(int m, int n) {
  if (m < 1 || n < 1 || coefficients_of(m, n) > INT_MAX) return 0;
  std::vector<double> coefficients(static_cast<std::size_t>(coefficients_of(m, n)), igs_undefined_real);
  m_count_u = m;
  m_count_v = n;
  m_break_points_u.assign(static_cast<std::size_t>(m) + 1, igs_undefined_real);
  m_break_points_v.assign(static_cast<std::size_t>(n) + 1, igs_undefined_real);
  m_coefficients.swap(coefficients);
  default_patches_without_meaning();
  return 1;
}

int igs114::break_point_u(int i, double& value) const { return igs_get_element(m_break_points_u, i, value); }
int igs114::break_point_v(int j, double& value) const { return igs_get_element(m_break_points_v, j, value); }
int igs114::set_break_point_u(int i, double value) { return igs_set_element(m_break_points_u, i, value); }
int igs114::set_break_point_v(int j, double value) { return igs_set_element(m_break_points_v, j, value); }
int igs114::raise_break_point_u(int i, double previous, double tolerance) {
  return igs_raise_knot(m_break_points_u, i, previous, tolerance);
}
int igs114::raise_break_point_v(int j, double previous, double tolerance) {
  return igs_raise_knot(m_break_points_v, j, previous, tolerance);
}

std::size_t igs114::position(int i, int j) const {
  if (i < 0 || i > m_count_u || j < 0 || j > m_count_v) return SIZE_MAX;
  return static_cast<std::size_t>(i) * (static_cast<std::size_t>(m_count_v) + 1) + static_cast<std::size_t>(j);
}

int igs114::patch(int i, int j, igsBicubicPatch& patch) const {
  return igs_get_piece(m_coefficients, position(i, j), patch);
}
int igs114::set_patch(int i, int j, const igsBicubicPatch& patch) {
  return igs_set_piece(m_coefficients, position(i, j), patch);
}

igsObject* igs114::make_one() { return new igs114; }

int igs114::read_pd_data(igsInStream& in) {
  for (int* const field : {&m_spline_type, &m_patch_type, &m_count_u, &m_count_v}) in.read_integer(*field);
  if (m_count_u < 1) {
    tag<igs114BadNumUPatches>(m_count_u);
  } else if (m_count_v < 1) {
    tag<igs114BadNumVPatches>(m_count_v);
  } else if (read_break_points(in) != 0 && read_patches(in) != 0) {
    return 1;
  }
  return refuse_sizes();
}

// The arrays grow as their values arrive.
int igs114::read_break_points(igsInStream& in) {
  if (igs_read_reals(in, std::int64_t{m_count_u} + 1, m_break_points_u) == 0) {
    tag<igs114BadNumUPatches>(m_count_u);
  } else if (igs_read_reals(in, std::int64_t{m_count_v} + 1, m_break_points_v, m_break_points_u.size()) == 0) {
    tag<igs114BadNumVPatches>(m_count_v);
  } else {
    return 1;
  }
  return 0;
}

// Of two numbers whose product is out of proportion, the greater is the one that cannot be right.
int igs114::read_patches(igsInStream& in) {
  const std::size_t read_before = m_break_points_u.size() + m_break_points_v.size();
  if (igs_read_reals(in, coefficients_of(m_count_u, m_count_v), m_coefficients, read_before) != 0) {
    default_patches_without_meaning();
    return 1;
  }
  if (m_count_u >= m_count_v) {
    tag<igs114BadNumUPatches>(m_count_u);
  } else {
    tag<igs114BadNumVPatches>(m_count_v);
  }
  return 0;
}

int igs114::refuse_sizes() {
  m_count_u = m_count_v = 0;
  m_break_points_u = m_break_points_v = m_coefficients = std::vector<double>();
  return 0;
}

void igs114::default_patches_without_meaning() {
  constexpr std::size_t size = igsBicubicPatch::size;
  const auto default_patch = [this](int i, int j) {
    const auto first = m_coefficients.begin() + static_cast<std::ptrdiff_t>(position(i, j) * size);
    std::replace(first, first + size, igs_undefined_real, 0.0);
  };
  for (int i = 0; i < m_count_u; ++i) default_patch(i, m_count_v);
  for (int j = 0; j <= m_count_v; ++j) default_patch(m_count_u, j);
}

template <class V>
void igs114::written_fields(V& visit) const {
  visit("SplineType", m_spline_type);
  visit("PatchType", m_patch_type);
  visit("NumberOfPatchesU", m_count_u);
  visit("NumberOfPatchesV", m_count_v);
  visit.list("BreakPointsU", 0, m_break_points_u, igsBadCount<igs114BadNumUPatches>());
  visit.list("BreakPointsV", 0, m_break_points_v, igsBadCount<igs114BadNumVPatches>());
  visit("Patches", Patches{*this});
}

void igs114::write_pd_data(igsOutStream& out) {
  igsFieldWriter writer(out);
  written_fields(writer);
}

void igs114::visit_fields(igsFieldVisitor& visitor) const {
  igsFieldShower shower(visitor);
  written_fields(shower);
}

void igs114::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  printer("SplineType", m_spline_type);
  printer("PatchType", m_patch_type);
  printer("NumberOfPatchesU", m_count_u);
  printer("NumberOfPatchesV", m_count_v);
  printer.list("BreakPointsU", 0, m_break_points_u, igsBadCount<igs114BadNumUPatches>());
  printer.list("BreakPointsV", 0, m_break_points_v, igsBadCount<igs114BadNumVPatches>());
  printer("Patches", Patches{*this});
}

void igs114::check_pd() const {
  if (m_spline_type < 1 || m_spline_type > 6) tag<igs114InvalidSplineType>(m_spline_type);
  if (!igs_is_flag(m_patch_type)) tag<igs114InvalidPatchType>(m_patch_type);
  if (m_count_u < 1) tag<igs114BadNumUPatches>(m_count_u);
  if (m_count_v < 1) tag<igs114BadNumVPatches>(m_count_v);
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincBreakPoints);
  igs_check_break_points<BreakPointErrorsU>(*this, m_break_points_u, tolerance);
  igs_check_break_points<BreakPointErrorsV>(*this, m_break_points_v, tolerance);
  check_patches();
}

void igs114::check_patches() const {
  for (int i = 0; i < m_count_u; ++i) {
    for (int j = 0; j < m_count_v; ++j) {
      if (igs_piece_is_unset<16>(m_coefficients, position(i, j))) tag<igs114UnsetCoefficient>(i, j);
    }
  }
}
