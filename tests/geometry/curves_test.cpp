// Curves, points, matrices and splines in the hands of a host: what no file can say, and what setters and getters
// answer.

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <limits>

#include "geometry/geometry_fixture.h"

namespace igs_test {
namespace {
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

/// What a check finds, each before a semicolon.
std::string found_in(const igsObject& object) {
  std::string all;
  for (const std::string& found : found_by_check(object)) all += found + ';';
  return all;
}
/// Changes a new entity; what a check then finds, and a bar.
template <class T, class Change>
std::string found_in_new(Change change) {
  igsFile file;
  T& entity = *new T;
  change(entity);
  return found_in(entity) + '|';
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

/// The indices, of those around a small list, for which `call` answers that it has done something.
template <class Call>
std::string indices(Call call) {
  std::string found;
  for (const int i : {INT_MIN, -1, 0, 1, 2, 3, 4, 5, 6, INT_MAX}) {
    if (call(i) != 0) found += std::to_string(i);
  }
  return found;
}

/// The indices at which a number that is set comes back.
template <class T>
std::string kept(T& entity, int (T::*set)(int, double), int (T::*get)(int, double&) const) {
  return indices([&](int i) {
    double value = 0;
    const int done = (entity.*set)(i, i), found = (entity.*get)(i, value);
    return static_cast<int>(done != found || (done != 0 && value == i));
  });
}

TEST(Curves, NumbersThatNoFileHolds) {
  for (const double x : {nan, infinity}) {
    const giPoint3 place(x, 0, 0);
    EXPECT_EQ(found_in_new<igs116>([=](igs116& point) { point.set_point(place); }), "|");
    EXPECT_EQ(found_in_new<igs110>([=](igs110& l) { l.set_start_point(place), l.set_end_point(place); }), "|");
  }
  EXPECT_EQ(found_in_new<igs123>([](igs123& direction) { direction.set_direction({0, nan, -DBL_MAX}); }), "|");
  const auto arc = [](double x1, double x2) {
    return found_in_new<igs100>([=](igs100& made) { set_arc(made, {x1, 0}, {x2, 0}, {0, 1}); });
  };
  EXPECT_EQ(arc(0, infinity) + arc(nan, 1), "|igs100ZeroRadius 1;|");
  const auto matrix = [](double r11, double r33, double m44, int form) {
    return found_in_new<igs124>([=](igs124& made) { set_diagonal(made, r11, r33, m44, form); });
  };
  EXPECT_EQ(matrix(nan, 1, 1, 0) + matrix(1, 1, 1.0000001, 0) + matrix(1, -1, 1, 2) + matrix(1, -4, 1, 2),
            "igs124NoConstruct 1;|igs124NotHomogenous 1 1.0000001;||igs124InvalidUnitVectors 1;|");
  EXPECT_EQ(igsConicCoeffs(nan, 0, 1, 0, 0, -1).conic_type(), igsConicUnknown);
  EXPECT_EQ(igsConicCoeffs(0, 0, 0, nan, 0, 0).conic_type(), igsConicUnknown);
}

TEST(Curves, AnArcIsNotRecentredWhereThereIsNoBisector) {
  const giPoint2 ends[][2] = {
      {{1, 0}, {1, 0}}, {{1, 0}, {nan, 0}}, {{-infinity, 0}, {infinity, 0}}, {{0.9 * DBL_MAX, 0.9 * DBL_MAX}, {1, 0}}};
  for (const auto& [start, end] : ends) {
    igsFile file;
    igs100& arc = *new igs100;
    set_arc(arc, {0, 0}, {1, 0}, {2, 0});
    arc.check();
    set_arc(arc, {0, 0}, start, end);  // after the check found the radii to differ
    EXPECT_EQ(object_errors(file).at(0)->fix(), 0) << printed(start) << printed(end);
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
  EXPECT_TRUE(from == giPoint2(3, 4) && to == giPoint2(5, 6));

  igs110& line = *new igs110;
  igs116& point = *new igs116;
  for (const giPoint3& given : {giPoint3(1, 2, 3), giPoint3(), giPoint3(0, 0, DBL_MAX)}) {
    EXPECT_EQ(line.set_start_point(given) + line.set_end_point(given) + point.set_point(given), 3);
    const std::vector<giPoint3> kept{line.start_point(), line.end_point(), point.point()};
    EXPECT_EQ(kept, std::vector<giPoint3>(3, {1, 2, 3}));
  }

  for (int i = 0; i < 6; ++i) {
    double values[6];
    igsConicCoeffs coeffs;
    coeffs.become({1, 2, 3, 4, 5, 6});
    coeffs.coeffs(values);
    EXPECT_TRUE(igsConicCoeffs(values).valid());
    values[i] = -DBL_MAX;
    EXPECT_FALSE(igsConicCoeffs(values).valid() || igsConicCoeffs().valid());
    EXPECT_FALSE(igsConicCoeffs(values) == coeffs);
  }
  igs104& conic = *new igs104;
  conic.set_coeffs({1, 0, -1, 0, 0, -1});
  conic.directory_entry().set_form_number(1);
  conic.check();
  conic.set_coeffs({1, 0, 1, 0, 0, -1});
  EXPECT_EQ(object_errors(file).at(1)->fix(), 1) << "igs104NotEllipse, which is no longer so";
  EXPECT_EQ(conic.directory_entry().form_number(), 1);

  igs124& matrix = *new igs124;
  set_diagonal(matrix, 4, 5, 6);
  double elements[4][4];
  matrix.matrix(elements);
  EXPECT_TRUE(giXform3(elements) == matrix.transform() && elements[2][3] + elements[3][3] == 9);
}

TEST(CopiousData, IsAccessedByLayoutAndIndex) {
  igsFile file;
  igsPointset& points = *new igsPointset;
  EXPECT_EQ(points.directory_entry().form_number(), 1);
  EXPECT_EQ((new igsPolyline)->directory_entry().form_number(), 11);
  EXPECT_EQ(points.set_size(0, 1) + points.set_size(4, 1) + points.set_size(1, -1), 0);
  for (const int layout : {1, 2, 3}) {
    ASSERT_EQ(points.set_size(layout, 2), 1);
    EXPECT_EQ(points.directory_entry().form_number() * 10 + points.dimensionality(), 11 * layout);
    EXPECT_EQ(indices([&](int i) { return !points.is_point_undefined(i); }), "");
    std::string done = indices([&](int i) { return points.set_planar_point(i, {1, 2}); }) + '|';
    done += indices([&](int i) { return points.set_point(i, {1, 2, 3}); }) + '|';
    done += indices([&](int i) { return points.set_vector(i, {4, 5, 6}); });
    EXPECT_EQ(done, layout == 1 ? "01||" : layout == 2 ? "|01|" : "|01|01");
    std::string got = indices([&](int i) { return points.planar_point(i) == giPoint2(1, 2); }) + '|';
    got += indices([&](int i) { return points.point(i) == giPoint3(1, 2, 3); }) + '|';
    got += indices([&](int i) { return points.vector(i) == giVector3(4, 5, 6); });
    EXPECT_EQ(got, done);
    EXPECT_EQ(indices([&](int i) { return !points.is_point_undefined(i); }), "01");
  }
}

TEST(Convert, MakesPolylinesOfLinesAndPointSets) {
  using igs = igsConvert;
  for (const std::string given :
       {"101 110:0 1.,2.,3.,4.,5.,6.", "011 106:1 1,3,7.5,1.,2.,3.,4.,5.,6.", "000 106:3 3,1,1.,2.,3.,4.,5.,6.",
        "000 106:12 2,2,1.,2.,3.,4.,5.,6.", "000 116:0 1."}) {
    igsFile file;
    read_entities(file, given.substr(4));
    std::string made;
    for (const auto convert : {igs::line_to_polyline, igs::pointset_to_polyline, igs::to_curve}) {
      made += convert(file.entity(1)) != nullptr ? '1' : '0';
      EXPECT_EQ(convert(nullptr), nullptr);
    }
    EXPECT_EQ(made, given.substr(0, 3));
    EXPECT_EQ(file.num_entities(), made == "000" ? 1 : 3);
  }
}

TEST(Splines, ANewCurveIsEmpty) {
  igsFile file;
  igs126& curve = *new igs126;
  const std::string unset = "-1.79769313486232e+308";
  const std::string empty =
      "igs126NoConstruct 1;igs126BadDegree 1 -2147483648;igs126BadSumIndex 1 -1;"
      "igs126UnsetTrimmingParams 1;igs126TrimParamsOutOfSequence 1 " +
      unset + ',' + unset + ';';
  EXPECT_EQ(found_in(curve), empty);
  EXPECT_EQ(object_errors(file).at(4)->fix(), 1);  // limits of no range stay as they are
  EXPECT_EQ(printed_data(curve).substr(0, 45), "NumberOfControlPoints = 0\nOrder = -2147483647");
  for (const auto& [order, count] : {std::pair(0, 1), {-3, 4}, {3, 2}, {1, INT_MAX}}) {
    EXPECT_EQ(curve.set_order_size(order, count), 0) << order << ' ' << count;
  }
  EXPECT_EQ(indices([&](int i) { return curve.set_knot(i, 1); }), "");
  curve.direction().snap_knots(1);
  EXPECT_EQ(found_in(curve), empty);

  EXPECT_EQ(found_in_new<igs126>([](igs126& constant) {
              EXPECT_EQ(constant.set_order_size(1, 1), 1);
              for (const int i : {0, 1}) constant.set_knot(i, i);
              constant.set_control_point(0, {1, 2, 3});
              constant.set_parametric_limits(5, 6);  // out of range, which is not looked at without a degree
            }),
            "igs126BadDegree 1 0;igs126BadSumIndex 1 0;|");
}

TEST(Splines, ACurveIsBuiltOnce) {
  igsFile file;
  igs126& curve = *new igs126;
  ASSERT_TRUE(curve.set_order_size(2, 3) == 1 && curve.set_order_size(2, 3) == 0);
  EXPECT_EQ(read_fields(curve, "1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1."), 0);
  double value = 0;
  giPoint3 point;
  EXPECT_EQ(indices([&](int i) { return curve.knot(i, value) != 0 && value == -DBL_MAX; }), "01234");
  EXPECT_EQ(indices([&](int i) { return curve.weight(i, value) != 0 && value == -DBL_MAX; }), "012");
  EXPECT_EQ(kept(curve, &igs126::set_knot, &igs126::knot), "01234");
  EXPECT_EQ(kept(curve, &igs126::set_weight, &igs126::weight), "012");
  const auto set_point = [&](int i) { return curve.set_control_point(i, giPoint3(i, 2, 3)); };
  EXPECT_EQ(indices([&](int i) { return set_point(i) && curve.control_point(i, point) && point.x() == i; }), "012");

  double start = 0, end = 0;
  EXPECT_EQ(curve.set_parametric_limits(2, 1) + curve.set_parametric_limits(nan, nan), 0);
  EXPECT_EQ(curve.set_parametric_limits(1, 1) + curve.set_parametric_limits(3, 4), 2);
  curve.parametric_limits(start, end);
  EXPECT_EQ(start * 10 + end, 34);
  EXPECT_EQ(curve.set_unit_normal(giVector3(0, 1, 0)) + curve.set_unit_normal(giVector3(-DBL_MAX, 0, 0)), 1);
  EXPECT_EQ(curve.unit_normal(), giVector3(0, 1, 0));

  curve.set_parametric_limits(1, 3);
  for (const int i : {0, 1, 2, 3, 4}) curve.set_knot(i, nan);  // which are in no wrong sequence
  EXPECT_EQ(found_in(curve), "igs126ZeroWeight 1 0;igs126WeightsAndRatFlagDisagree 1 1;");
  curve.set_knot(4, 1);
  curve.direction().snap_knots(1);
  EXPECT_EQ(indices([&](int i) { return curve.knot(i, value) != 0 && value != value; }), "0123");
}

TEST(Splines, ParametricCurvesAndSurfacesAreBuiltFromScratch) {
  igsFile file;
  igs112& curve = *new igs112;
  EXPECT_EQ(found_in(curve), "igs112BadNumSegments 1 0;");
  EXPECT_EQ(curve.set_size(0) + curve.set_size(INT_MAX), 0);
  EXPECT_EQ(curve.set_size(2), 1);
  EXPECT_EQ(found_by_check(curve).size(), 3U + 2);
  igsCubicSegment segment;
  segment.x = segment.y = segment.z = igsPolynomial<4>({0, 1, 0, 0});
  EXPECT_EQ(kept(curve, &igs112::set_break_point, &igs112::break_point), "012");
  EXPECT_EQ(indices([&](int i) { return segment.x[0] = i, curve.set_segment(i, segment); }), "01");
  EXPECT_EQ(indices([&](int i) { return curve.segment(i, segment) != 0 && segment.x[0] == i; }), "01");
  EXPECT_EQ(curve.end_values().z, igsPolynomial<4>({0, 0, 0, 0}));
  curve.set_end_values(segment);
  EXPECT_EQ(curve.end_values(), segment);
  EXPECT_EQ(found_in(curve), "");

  igs114& surface = *new igs114;
  EXPECT_EQ(found_in(surface), "igs114BadNumUPatches 3 0;igs114BadNumVPatches 3 0;");
  for (const auto& [m, n] : {std::pair(0, 1), {1, 0}, {INT_MAX, INT_MAX}, {INT_MAX, 1}}) {
    EXPECT_EQ(surface.set_size(m, n), 0);
  }
  EXPECT_EQ(surface.set_size(2, 1), 1);
  EXPECT_EQ(found_by_check(surface).size(), 3U + 2 + 2);
  EXPECT_EQ(kept(surface, &igs114::set_break_point_u, &igs114::break_point_u), "012");
  EXPECT_EQ(kept(surface, &igs114::set_break_point_v, &igs114::break_point_v), "01");
  igsBicubicPatch patch;
  patch.x = patch.y = patch.z = igsPolynomial<16>(std::array<double, 16>{});
  for (const int i : {0, 1, 2}) {
    EXPECT_EQ(indices([&](int j) { return patch.y[9] = 10.0 * i + j, surface.set_patch(i, j, patch); }), "01");
  }
  double u = 0;
  EXPECT_TRUE(surface.set_break_point_v(1, 9) && surface.break_point_u(1, u) && u == 1);
  EXPECT_EQ(surface.patch(-1, 0, patch) + surface.patch(3, 0, patch), 0);
  EXPECT_EQ(found_in(surface), "");
}
}  // namespace
}  // namespace igs_test
