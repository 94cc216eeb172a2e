#pragma once

#include <cstddef>
#include <vector>

#include "igs/curves/igsSplinePiece.h"
#include "igs/objects/igsSurface.h"

/// Of one coordinate as a function of the distances s and t from the patch's break points: coefficient 4 * b + a
/// belongs to s^a * t^b.
using igsBicubicPatch = igsSplinePiece<16>;

/// Parametric Spline Surface (IGES 5.3, type 114): M by N bicubic patches; patch (i, j) goes from break point TU(i) to
/// TU(i + 1) and from TV(j) to TV(j + 1). Indices are 0-based. Break points and coefficients that were never set are
/// -DBL_MAX; lengths are model units. The standard adds a row (i = M) and a column (j = N) of patches that have no
/// meaning: they are kept as they are, 0 where a file does not supply them.
///
/// A new surface is empty: set_size() makes its arrays. Setters and getters that name an element return 1; they return
/// 0 and leave everything as it is when there is no such element.
class IGS_API igs114 : public igsTyped<igs114, "igs114", igsParameterizedSurface> {
 public:
  igs114();

  /// Makes `m` by `n` unset patches, those without a meaning and the break points, and returns 1; the old ones are
  /// lost. Returns 0 and changes nothing for a size below 1, or when there would be more coefficients than an int can
  /// count.
  int set_size(int m, int n);
  /// M and N; those without a meaning do not count.
  int number_of_patches_u() const { return m_count_u; }
  int number_of_patches_v() const { return m_count_v; }

  /// CTYPE, what the surface was before: 1 linear, 2 quadratic, 3 cubic, 4 Wilson-Fowler, 5 modified Wilson-Fowler,
  /// 6 B-spline.
  int spline_type() const { return m_spline_type; }
  void set_spline_type(int type) { m_spline_type = type; }
  /// PTYPE: 0 Cartesian product, 1 unspecified.
  int patch_type() const { return m_patch_type; }
  void set_patch_type(int type) { m_patch_type = type; }

  /// Break points `i`, from 0 to M, and `j`, from 0 to N.
  int break_point_u(int i, double& value) const;
  int break_point_v(int j, double& value) const;
  int set_break_point_u(int i, double value);
  int set_break_point_v(int j, double value);
  /// Raise a break point to `previous`, the largest one before it, and return 1; return 0 and change nothing where it
  /// is not less than `tolerance` below.
  int raise_break_point_u(int i, double previous, double tolerance);
  int raise_break_point_v(int j, double previous, double tolerance);

  /// Patch (i, j), `i` from 0 to M and `j` from 0 to N.
  int patch(int i, int j, igsBicubicPatch& patch) const;
  int set_patch(int i, int j, const igsBicubicPatch& patch);

  igsObject* make_one() override;
  /// Returns 0, no array made, when the numbers of patches cannot be used.
  int read_pd_data(igsInStream& in) override;
  void write_pd_data(igsOutStream& out) override;
  void print_pd_data(utOstream& os) const override;
  void visit_fields(igsFieldVisitor& visitor) const override;
  void check_pd() const override;

 private:
  /// What is written, stated once for the writer and for field visitors.
  template <class V>
  void written_fields(V& visit) const;

  std::size_t position(int i, int j) const;
  int read_break_points(igsInStream& in);
  int read_patches(igsInStream& in);
  int refuse_sizes();
  void default_patches_without_meaning();
  void check_patches() const;

  int m_spline_type = 3;
  int m_patch_type = 1;
  int m_count_u = 0;
  int m_count_v = 0;
  std::vector<double> m_break_points_u;
  std::vector<double> m_break_points_v;
  std::vector<double> m_coefficients;  ///< by patch (v the fastest), x y z, powers
};
