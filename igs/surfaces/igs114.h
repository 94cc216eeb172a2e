#pragma once

#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "igs/curves/igsSplinePiece.h"
#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/fields/igsListAccess.h"
#include "igs/fields/igsNamedError.h"
#include "igs/objects/igsSurface.h"

/// Fewer than one patch along u or v, which ends the read of the surface, as does a number that the record cannot hold;
/// carries it.
using igs114BadNumUPatches = igsCountErrors<"igs114", "UPatches">::BadNum;
using igs114BadNumVPatches = igsCountErrors<"igs114", "VPatches">::BadNum;

class igsFieldPointers;
class igsFieldReader;

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
class IGS_API igs114 : public igsEntity<igs114, "igs114", igsParameterizedSurface> {
 public:
  igs114();

  /// Makes `m` by `n` unset patches, those without a meaning and the break points, and returns 1; the old ones are
  /// lost. Returns 0 and changes nothing for a size below 1, or when there would be more coefficients than an int can
  /// count.
  int set_size(int m, int n);
  /// M and N; those without a meaning do not count.
  int number_of_patches_u() const { return spans(m_break_points_u); }
  int number_of_patches_v() const { return spans(m_break_points_v); }

  /// CTYPE, what the surface was before: 1 linear, 2 quadratic, 3 cubic, 4 Wilson-Fowler, 5 modified Wilson-Fowler,
  /// 6 B-spline.
  int spline_type() const { return m_spline_type; }
  void set_spline_type(int type) { m_spline_type = type; }
  /// PTYPE: 0 Cartesian product, 1 unspecified.
  int patch_type() const { return m_patch_type; }
  void set_patch_type(int type) { m_patch_type = type; }

  /// Break points `i`, from 0 to M, and `j`, from 0 to N.
  int break_point_u(int i, double& value) const { return igs_get_element(m_break_points_u, i, value); }
  int break_point_v(int j, double& value) const { return igs_get_element(m_break_points_v, j, value); }
  int set_break_point_u(int i, double value) { return igs_set_element(m_break_points_u, i, value); }
  int set_break_point_v(int j, double value) { return igs_set_element(m_break_points_v, j, value); }
  /// Raise a break point to `previous`, the largest one before it, and return 1; return 0 and change nothing where it
  /// is not less than `tolerance` below.
  int raise_break_point_u(int i, double previous, double tolerance);
  int raise_break_point_v(int j, double previous, double tolerance);

  /// Patch (i, j), `i` from 0 to M and `j` from 0 to N.
  int patch(int i, int j, igsBicubicPatch& patch) const { return igs_get_element(m_patches, position(i, j), patch); }
  int set_patch(int i, int j, const igsBicubicPatch& patch) {
    return igs_set_element(m_patches, position(i, j), patch);
  }

  /// Returns 0, the surface empty, when the numbers of patches cannot be used.
  int read_pd_data(igsInStream& in) override;
  void check_pd() const override;

  template <class E, class V>
  static void fields(E& surface, V& visit) {
    using BadU = igsBadCount<igs114BadNumUPatches>;
    using BadV = igsBadCount<igs114BadNumVPatches>;
    visit("SplineType", surface.m_spline_type);
    visit("PatchType", surface.m_patch_type);
    const int m = visit.count("NumberOfPatchesU", static_cast<std::size_t>(surface.number_of_patches_u()), 1, BadU());
    const int n = visit.count("NumberOfPatchesV", static_cast<std::size_t>(surface.number_of_patches_v()), 1, BadV());
    visit.list("BreakPointsU", std::int64_t{m} + 1, surface.m_break_points_u, BadU{m});
    visit.list("BreakPointsV", std::int64_t{n} + 1, surface.m_break_points_v, BadV{n});
    if constexpr (std::is_same_v<V, igsFieldReader>) {
      surface.read_patches(visit, m, n);
    } else if constexpr (!std::is_same_v<V, igsFieldPointers>) {
      visit("Patches", Patches{surface});
    }
  }

 private:
  /// All patches as a record with a label, "(i,j)", for each.
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

  static int spans(const std::vector<double>& break_points) {
    return break_points.empty() ? 0 : static_cast<int>(break_points.size()) - 1;
  }
  /// With the row and the column that have no meaning.
  static std::int64_t number_of_patches(std::int64_t m, std::int64_t n) { return (m + 1) * (n + 1); }
  /// -1 where there is no such patch.
  int position(int i, int j) const;
  void read_patches(igsFieldReader& reader, int m, int n);
  void default_patches_without_meaning();
  void check_patches() const;

  int m_spline_type = 3;
  int m_patch_type = 1;
  std::vector<double> m_break_points_u;
  std::vector<double> m_break_points_v;
  std::vector<igsBicubicPatch> m_patches;  ///< v runs fastest
};
