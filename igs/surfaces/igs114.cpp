#include "igs/surfaces/igs114.h"

#include <climits>
#include <cstdint>

#include "igs/curves/private/igsSplineData.h"
#include "igs/fields/igsEntityFields.h"
#include "igs/support/coResourceTable.h"
#include "igs/surfaces/igs114_errors.h"

igs114::igs114() { set_directory_entry_type(igsEntity114, 0); }

int igs114::set_size(int m, int n) {
  if (m < 1 || n < 1 || number_of_patches(m, n) > INT_MAX / std::int64_t{igsBicubicPatch::size}) return 0;
  std::vector<igsBicubicPatch> patches(static_cast<std::size_t>(number_of_patches(m, n)));
  m_break_points_u.assign(static_cast<std::size_t>(m) + 1, igs_undefined_real);
  m_break_points_v.assign(static_cast<std::size_t>(n) + 1, igs_undefined_real);
  m_patches.swap(patches);
  default_patches_without_meaning();
  return 1;
}

int igs114::raise_break_point_u(int i, double previous, double tolerance) {
  return igs_raise_knot(m_break_points_u, i, previous, tolerance);
}
int igs114::raise_break_point_v(int j, double previous, double tolerance) {
  return igs_raise_knot(m_break_points_v, j, previous, tolerance);
}

int igs114::position(int i, int j) const {
  const int m = number_of_patches_u(), n = number_of_patches_v();
  return i < 0 || i > m || j < 0 || j > n ? -1 : i * (n + 1) + j;
}

int igs114::read_pd_data(igsInStream& in) {
  const int is_usable = igsEntity::read_pd_data(in);
  if (is_usable == 0) {
    m_break_points_u = m_break_points_v = std::vector<double>();
    m_patches.clear();
  }
  default_patches_without_meaning();
  return is_usable;
}

// Of two numbers whose product is out of proportion, the greater is the one that cannot be right.
void igs114::read_patches(igsFieldReader& reader, int m, int n) {
  if (m >= n) {
    reader.list(nullptr, number_of_patches(m, n), m_patches, igsBadCount<igs114BadNumUPatches>{m});
  } else {
    reader.list(nullptr, number_of_patches(m, n), m_patches, igsBadCount<igs114BadNumVPatches>{n});
  }
}

void igs114::default_patches_without_meaning() {
  const int m = number_of_patches_u(), n = number_of_patches_v();
  const auto default_patch = [this](int i, int j) {
    if (igsBicubicPatch* const patch = igs_place(m_patches, position(i, j))) patch->set_unset_to_zero();
  };
  for (int i = 0; i < m; ++i) default_patch(i, n);
  for (int j = 0; j <= n; ++j) default_patch(m, j);
}

void igs114::check_pd() const {
  if (m_spline_type < 1 || m_spline_type > 6) tag<igs114InvalidSplineType>(m_spline_type);
  if (!igs_is_flag(m_patch_type)) tag<igs114InvalidPatchType>(m_patch_type);
  if (number_of_patches_u() < 1) tag<igs114BadNumUPatches>(number_of_patches_u());
  if (number_of_patches_v() < 1) tag<igs114BadNumVPatches>(number_of_patches_v());
  const double tolerance = kel_resource_table_inquire().value(kelTolCoincBreakPoints);
  igs_check_break_points<igs114UBreakPointErrors>(*this, m_break_points_u, tolerance);
  igs_check_break_points<igs114VBreakPointErrors>(*this, m_break_points_v, tolerance);
  check_patches();
}

void igs114::check_patches() const {
  const int m = number_of_patches_u(), n = number_of_patches_v();
  for (int i = 0; i < m; ++i) {
    for (int j = 0; j < n; ++j) {
      if (igs_element(m_patches, position(i, j)).has_unset()) tag<igs114UnsetCoefficient>(i, j);
    }
  }
}
