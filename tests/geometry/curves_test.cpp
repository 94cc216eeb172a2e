// Curves, points, matrices and splines in the hands of a host: what no file can say, and what setters and getters
// answer.

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <limits>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs100.h"
#include "igs/curves/igs104.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs112.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igs123.h"
#include "igs/curves/igs124.h"
#include "igs/curves/igs126.h"
#include "igs/curves/igsConvert.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/surfaces/igs114.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// Changes a new entity; what a check then finds.
template <class T, class Change>
Found found_in_new(Change change) {
  igsFile file;
  T& entity = *new T;
  change(entity);
  return found_by_check(entity);
}
void set_arc(igs100& arc, const giPoint2& centre, const giPoint2& start, const giPoint2& end) {
  arc.set_centre(centre);
  arc.set_z_level(0);
  arc.set_start_point(start);
  arc.set_end_point(end);
}
void set_diagonal(igs124& matrix, double r11, double r33, double m44, int form = 0) {
  const double elements[4][4] = {{r11, 0, 0, 1}, {0, 1, 0, 2}, {0, 0, r33, 3}, {0, 0, 0, m44}};
  matrix.set_matrix(elements);
  matrix.directory_entry().set_form_number(form);
}

using Indices = std::vector<int>;
/// The indices, of those around a small list, for which `call` answers that it has done something.
template <class Call>
Indices indices(Call call) {
  Indices found;
  for (const int i : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, INT_MAX}) {
    if (call(i) != 0) found.push_back(i);
  }
  return found;
}

TEST(Curves, NumbersThatNoFileHolds) {
  EXPECT_EQ(found_in_new<igs116>([](igs116& point) { point.set_point({nan, nan, nan}); }), Found());
  EXPECT_EQ(found_in_new<igs116>([](igs116& point) { point.set_point({infinity, 0, 0}); }), Found());
  EXPECT_EQ(found_in_new<igs123>([](igs123& direction) { direction.set_direction({0, nan, -DBL_MAX}); }), Found());
  for (const double x : {nan, infinity}) {
    EXPECT_EQ(found_in_new<igs110>([x](igs110& line) {
                line.set_start_point({x, 0, 0}), line.set_end_point({x, 0, 0});
              }),
              Found());
  }
  EXPECT_EQ(found_in_new<igs100>([](igs100& arc) { set_arc(arc, {0, 0}, {infinity, 0}, {0, 1}); }), Found());
  EXPECT_EQ(found_in_new<igs100>([](igs100& arc) {
              set_arc(arc, {nan, 0}, {1, 0}, {0, 1});
            }),
            Found{"igs100ZeroRadius 1"});
  EXPECT_EQ(found_in_new<igs124>([](igs124& matrix) { set_diagonal(matrix, nan, 1, 1); }),
            Found{"igs124NoConstruct 1"});
  EXPECT_EQ(found_in_new<igs124>([](igs124& matrix) { set_diagonal(matrix, 1, 1, 1.0000001); }),
            Found{"igs124NotHomogenous 1 1.0000001"});
  EXPECT_EQ(found_in_new<igs124>([](igs124& matrix) { set_diagonal(matrix, 1, -1, 1, 2); }), Found());
  EXPECT_EQ(found_in_new<igs124>([](igs124& matrix) { set_diagonal(matrix, 1, -4, 1, 2); }),
            Found{"igs124InvalidUnitVectors 1"});
  EXPECT_EQ(igsConicCoeffs(nan, 0, 1, 0, 0, -1).conic_type(), igsConicUnknown);
  EXPECT_EQ(igsConicCoeffs(0, 0, 0, nan, 0, 0).conic_type(), igsConicUnknown);
}

TEST(Curves, AnArcIsNotRecentredWhereThereIsNoBisector) {
  const struct {
    giPoint2 start, end;
  } cases[] = {
      {{1, 0}, {1, 0}}, {{1, 0}, {nan, 0}}, {{-infinity, 0}, {infinity, 0}}, {{0.9 * DBL_MAX, 0.9 * DBL_MAX}, {1, 0}}};
  for (const auto& c : cases) {
    SCOPED_TRACE(printed(c.start) + printed(c.end));
    igsFile file;
    igs100& arc = *new igs100;
    set_arc(arc, {0, 0}, {1, 0}, {2, 0});
    arc.check();
    set_arc(arc, {0, 0}, c.start, c.end);  // after the check found the radii to differ
    EXPECT_EQ(object_errors(file).at(0)->fix(), 0);
    EXPECT_EQ(arc.centre(), giPoint2(0, 0));
  }
}

TEST(Curves, SettersKeepWhatIsDefined) {
  igsFile file;
  igs100& arc = *new igs100;
  EXPECT_EQ(arc.set_centre({1, 2}), 1);
  EXPECT_EQ(arc.set_centre({DBL_MAX, 0}), 0);
  EXPECT_EQ(arc.centre(), giPoint2(1, 2));
  set_arc(arc, {0, 0}, {3, 4}, {5, 6});
  giPoint2 from, to;
  arc.end_points(from, to);
  EXPECT_EQ(from, giPoint2(3, 4));
  EXPECT_EQ(to, giPoint2(5, 6));

  igs110& line = *new igs110;
  igs116& point = *new igs116;
  for (const giPoint3& given : {giPoint3(1, 2, 3), giPoint3(), giPoint3(0, 0, DBL_MAX)}) {
    EXPECT_EQ(line.set_start_point(given) + line.set_end_point(given) + point.set_point(given), 3);
    EXPECT_EQ(line.start_point(), giPoint3(1, 2, 3));
    EXPECT_EQ(line.end_point(), giPoint3(1, 2, 3));
    EXPECT_EQ(point.point(), giPoint3(1, 2, 3));
  }

  double values[6] = {1, 2, 3, 4, 5, 6};
  EXPECT_TRUE(igsConicCoeffs(values).valid());
  for (double& value : values) {
    const double kept = std::exchange(value, -DBL_MAX);
    EXPECT_FALSE(igsConicCoeffs(values).valid());
    value = kept;
  }
  igsConicCoeffs conic;
  EXPECT_FALSE(conic.valid());
  conic.become(igsConicCoeffs(6, 5, 4, 3, 2, 1));
  conic.coeffs(values);
  EXPECT_EQ(igsConicCoeffs(values), igsConicCoeffs(6, 5, 4, 3, 2, 1));

  igs124& matrix = *new igs124;
  set_diagonal(matrix, 4, 5, 6);
  double elements[4][4];
  matrix.matrix(elements);
  EXPECT_EQ(giXform3(elements), matrix.transform());
  EXPECT_EQ(elements[2][3] + elements[3][3], 9);
}

TEST(Curves, ARepairThatIsNoLongerNeededSucceeds) {
  igsFile file;
  igs104& conic = *new igs104;
  conic.set_coeffs({1, 0, -1, 0, 0, -1});
  conic.directory_entry().set_form_number(1);
  conic.check();
  conic.set_coeffs({1, 0, 1, 0, 0, -1});
  EXPECT_EQ(object_errors(file).at(1)->fix(), 1);  // igs104NotEllipse
  EXPECT_EQ(conic.directory_entry().form_number(), 1);
}

TEST(CopiousData, IsAccessedByLayoutAndIndex) {
  igsFile file;
  igsPointset& points = *new igsPointset;
  EXPECT_EQ(points.directory_entry().form_number(), 1);
  EXPECT_EQ((new igsPolyline)->directory_entry().form_number(), 11);
  EXPECT_EQ(points.set_size(0, 1) + points.set_size(4, 1) + points.set_size(1, -1), 0);
  for (const int layout : {1, 2, 3}) {
    SCOPED_TRACE(layout);
    ASSERT_EQ(points.set_size(layout, 2), 1);
    EXPECT_EQ(points.directory_entry().form_number(), layout);
    EXPECT_EQ(points.dimensionality(), layout);
    EXPECT_EQ(indices([&](int i) { return !points.is_point_undefined(i); }), Indices());
    const Indices none, both{0, 1}, planar = layout == 1 ? both : none, spatial = layout != 1 ? both : none,
                                    vectors = layout == 3 ? both : none;
    EXPECT_EQ(indices([&](int i) { return points.set_planar_point(i, {1, 2}); }), planar);
    EXPECT_EQ(indices([&](int i) { return points.set_point(i, {1, 2, 3}); }), spatial);
    EXPECT_EQ(indices([&](int i) { return points.set_vector(i, {4, 5, 6}); }), vectors);
    EXPECT_EQ(indices([&](int i) { return points.planar_point(i) == giPoint2(1, 2); }), planar);
    EXPECT_EQ(indices([&](int i) { return points.point(i) == giPoint3(1, 2, 3); }), spatial);
    EXPECT_EQ(indices([&](int i) { return points.vector(i) == giVector3(4, 5, 6); }), vectors);
    EXPECT_EQ(indices([&](int i) { return !points.is_point_undefined(i); }), both);
  }
}

TEST(Convert, MakesPolylinesOfLinesAndPointSets) {
  const struct {
    int type, form;
    const char* data;
    const char* polyline;  ///< empty: not converted
  } cases[] = {
      {110, 0, "1.,2.,3.,4.,5.,6.", "106,2,2,1.,2.,3.,4.,5.,6.;"},
      {106, 1, "1,3,7.5,1.,2.,3.,4.,5.,6.", "106,1,3,7.5,1.,2.,3.,4.,5.,6.;"},
      {106, 3, "3,1,1.,2.,3.,4.,5.,6.", ""},
      {106, 12, "2,2,1.,2.,3.,4.,5.,6.", ""},
      {116, 0, "1.,2.,3.,0", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    IgesBuilder builder;
    builder.entity(c.type, c.form, c.data);
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    const igsObject* const made = igsConvert::to_curve(file.entity(1));
    EXPECT_EQ(file.num_entities(), made != nullptr ? 2 : 1);
    EXPECT_EQ(made != nullptr ? written_data(file, 3) : "", c.polyline);
    const bool is_line = c.type == 110;
    EXPECT_EQ(igsConvert::line_to_polyline(file.entity(1)) != nullptr, is_line);
    EXPECT_EQ(igsConvert::pointset_to_polyline(file.entity(1)) != nullptr, made != nullptr && !is_line);
  }
  igsFile file;
  for (const auto convert : {igsConvert::to_curve, igsConvert::to_polyline, igsConvert::line_to_polyline,
                             igsConvert::pointset_to_polyline}) {
    EXPECT_EQ(convert(nullptr), nullptr);
  }
  EXPECT_EQ(file.num_entities(), 0);
}

TEST(Splines, ANewCurveIsEmpty) {
  igsFile file;
  igs126& curve = *new igs126;
  const std::string unset = "-1.79769313486232e+308";
  const Found empty{"igs126NoConstruct 1", "igs126BadDegree 1 -2147483648", "igs126BadSumIndex 1 -1",
                    "igs126UnsetTrimmingParams 1", "igs126TrimParamsOutOfSequence 1 " + unset + ',' + unset};
  EXPECT_EQ(found_by_check(curve), empty);
  EXPECT_EQ(object_errors(file).at(4)->fix(), 1);  // limits of no range stay as they are
  EXPECT_EQ(printed_data(curve).substr(0, 45), "NumberOfControlPoints = 0\nOrder = -2147483647");
  for (const auto& [order, count] : {std::pair(0, 1), {-3, 4}, {3, 2}, {1, INT_MAX}}) {
    EXPECT_EQ(curve.set_order_size(order, count), 0) << order << ' ' << count;
  }
  EXPECT_EQ(indices([&](int i) { return curve.set_knot(i, 1); }), Indices());
  curve.direction().snap_knots(1);
  EXPECT_EQ(found_by_check(curve), empty);

  EXPECT_EQ(found_in_new<igs126>([](igs126& constant) {
              ASSERT_EQ(constant.set_order_size(1, 1), 1);
              for (const int i : {0, 1}) constant.set_knot(i, i);
              constant.set_control_point(0, {1, 2, 3});
              constant.set_parametric_limits(5, 6);  // out of range, which is not looked at without a degree
            }),
            (Found{"igs126BadDegree 1 0", "igs126BadSumIndex 1 0"}));
}

TEST(Splines, ACurveIsBuiltOnce) {
  igsFile file;
  igs126& curve = *new igs126;
  ASSERT_EQ(curve.set_order_size(2, 3), 1);
  EXPECT_EQ(curve.set_order_size(2, 3), 0);
  EXPECT_EQ(read_fields(curve, "1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1."), 0);
  double value = 0;
  giPoint3 point;
  EXPECT_EQ(indices([&](int i) { return curve.knot(i, value) != 0 && value == -DBL_MAX; }), (Indices{0, 1, 2, 3, 4}));
  EXPECT_EQ(indices([&](int i) { return curve.weight(i, value) != 0 && value == -DBL_MAX; }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int i) { return curve.set_knot(i, i); }), (Indices{0, 1, 2, 3, 4}));
  EXPECT_EQ(indices([&](int i) { return curve.set_weight(i, i + 7); }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int i) { return curve.set_control_point(i, giPoint3(i, 2, 3)); }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int i) { return curve.knot(i, value) != 0 && value == i; }), (Indices{0, 1, 2, 3, 4}));
  EXPECT_EQ(indices([&](int i) { return curve.weight(i, value) != 0 && value == i + 7; }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int i) { return curve.control_point(i, point) != 0 && point.x() == i; }), (Indices{0, 1, 2}));
  EXPECT_EQ(value, 9);  // left alone outside the list

  double start = 0, end = 0;
  EXPECT_EQ(curve.set_parametric_limits(2, 1) + curve.set_parametric_limits(nan, nan), 0);
  EXPECT_EQ(curve.set_parametric_limits(1, 1) + curve.set_parametric_limits(3, 4), 2);
  curve.parametric_limits(start, end);
  EXPECT_EQ(start * 10 + end, 34);
  EXPECT_EQ(curve.set_unit_normal(giVector3(0, 1, 0)), 1);
  EXPECT_EQ(curve.set_unit_normal(giVector3(-DBL_MAX, 0, 0)), 0);
  EXPECT_EQ(curve.unit_normal(), giVector3(0, 1, 0));

  curve.set_parametric_limits(1, 3);
  for (const int i : {0, 1, 2, 3, 4}) curve.set_knot(i, nan);  // which are in no wrong sequence
  EXPECT_EQ(found_by_check(curve), Found{"igs126WeightsAndRatFlagDisagree 1 1"});
  curve.set_knot(4, 1);
  curve.direction().snap_knots(1);
  EXPECT_EQ(indices([&](int i) { return curve.knot(i, value) != 0 && value != value; }), (Indices{0, 1, 2, 3}));
}

TEST(Splines, AParametricCurveIsBuiltFromScratch) {
  igsFile file;
  igs112& curve = *new igs112;
  EXPECT_EQ(found_by_check(curve), Found{"igs112BadNumSegments 1 0"});
  EXPECT_EQ(curve.set_size(0) + curve.set_size(INT_MAX), 0);
  EXPECT_EQ(curve.set_size(2), 1);
  EXPECT_EQ(found_by_check(curve).size(), 3U + 2);
  double value = 0;
  igsCubicSegment segment;
  segment.x = segment.y = segment.z = igsPolynomial<4>({0, 1, 0, 0});
  EXPECT_EQ(indices([&](int i) { return curve.set_break_point(i, i); }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int i) { return curve.break_point(i, value) != 0 && value == i; }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int i) { return segment.x[0] = i, curve.set_segment(i, segment); }), (Indices{0, 1}));
  EXPECT_EQ(indices([&](int i) { return curve.segment(i, segment) != 0 && segment.x[0] == i; }), (Indices{0, 1}));
  EXPECT_EQ(curve.end_values().z, igsPolynomial<4>({0, 0, 0, 0}));
  curve.set_end_values(segment);
  EXPECT_EQ(curve.end_values(), segment);
  EXPECT_EQ(found_by_check(curve), Found());
}

TEST(Splines, AParametricSurfaceIsBuiltFromScratch) {
  igsFile file;
  igs114& surface = *new igs114;
  EXPECT_EQ(found_by_check(surface), (Found{"igs114BadNumUPatches 1 0", "igs114BadNumVPatches 1 0"}));
  for (const auto& [m, n] : {std::pair(0, 1), {1, 0}, {INT_MAX, INT_MAX}, {INT_MAX, 1}}) {
    EXPECT_EQ(surface.set_size(m, n), 0);
  }
  EXPECT_EQ(surface.set_size(2, 1), 1);
  EXPECT_EQ(found_by_check(surface).size(), 3U + 2 + 2);
  double value = 0;
  EXPECT_EQ(indices([&](int i) { return surface.set_break_point_u(i, i); }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int j) { return surface.set_break_point_v(j, j + 7); }), (Indices{0, 1}));
  EXPECT_EQ(indices([&](int i) { return surface.break_point_u(i, value) != 0 && value == i; }), (Indices{0, 1, 2}));
  EXPECT_EQ(indices([&](int j) { return surface.break_point_v(j, value) != 0 && value == j + 7; }), (Indices{0, 1}));
  igsBicubicPatch patch;
  for (auto* const polynomial : {&patch.x, &patch.y, &patch.z})
    *polynomial = igsPolynomial<16>(std::array<double, 16>{});
  for (const int i : {0, 1, 2}) {
    EXPECT_EQ(indices([&](int j) { return patch.y[9] = 10 * i + j, surface.set_patch(i, j, patch); }), (Indices{0, 1}));
  }
  EXPECT_EQ(surface.set_patch(-1, 0, patch) + surface.set_patch(3, 0, patch), 0);
  for (const int i : {0, 1, 2}) {
    EXPECT_EQ(indices([&](int j) { return surface.patch(i, j, patch) != 0 && patch.y[9] == 10 * i + j; }),
              (Indices{0, 1}));
  }
  EXPECT_EQ(surface.patch(-1, 0, patch) + surface.patch(3, 0, patch), 0);
  EXPECT_EQ(found_by_check(surface), Found());
}
}  // namespace
}  // namespace igs_test
