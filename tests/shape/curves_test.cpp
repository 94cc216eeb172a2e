#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "shape/shape_fixture.h"

using namespace igs_test;

namespace {
constexpr double pi = std::numbers::pi;
constexpr double infinity = std::numeric_limits<double>::infinity();

// A rational cubic with a double knot, a quintic with a knot of full multiplicity, at which it jumps.
const std::string rational_cubic =
    "126:0 5,3,0,0,0,0,0,0,0,0,.4,.4,1,1,1,1,1,2,.5,1,3,1,0,0,0,1,2,0,3,2,1,4,0,2,6,1,0,7,3,1,0,1";
const std::string jumping = "126:0 5,2,0,0,1,0,0,0,0,1,1,1,2,2,2,1,1,1,1,1,1,0,0,0,1,2,0,2,0,0,3,0,0,4,-2,1,5,0,0,0,2";
const std::string two_cubics =
    "112:0 3,1,3,2,0,1,3,0,1,2,-1,0,0,1,0,1,0,0,0.5,2,-1,0,.25,1,2,0,0,1,.5,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0";

/// What a curve is made of, the entity itself last.
struct CurveCase {
  const char* name;
  std::string entities;
};

const CurveCase curve_cases[] = {
    {"line", "110:0 1,2,3,4,6,3"},
    {"arc", "100:0 5,1,1,1,3,-1,1"},
    {"roundedArc", "100:0 0,0,0,1,0,0,1.01"},
    {"ellipse", "104:1 .25,0,1,0,0,-1,2,2,0,0,1"},
    {"ellipseAtAnAngle",
     "104:0 5,-6,5,0,0,-8,3,1.4142135623730951,1.4142135623730951,-.70710678118654752,.70710678118654752"},
    {"parabola", "104:3 1,0,0,0,-1,0,0,2,4,-1,1"},
    {"parabolaAtAnAngle", "104:0 1,2,1,-4,4,0,0,0,0,1.5,.5"},
    {"hyperbola", "104:2 1,0,-1,0,0,-1,0,-2,1.7320508075688772,-2,-1.7320508075688772"},
    {"hyperbolaAtAnAngle", "104:0 0,1,0,-1,-2,0,1,3,3,4,2"},
    {"points", "106:2 2,3,0,0,0,1,1,1,2,0,0"},
    {"polyline", "106:11 1,3,2.,0,0,1,1,2,0"},
    {"polylineWithVectors", "106:13 3,2,0,0,0,9,9,9,1,1,1,9,9,9"},
    {"closed", "106:63 1,4,2.,0,0,1,1,2,0,0,0"},
    {"parametricSpline", two_cubics},
    {"rationalSpline", rational_cubic},
    {"jumpingSpline", jumping},
    {"composite", "110:0 0,0,0,1,0,0 116:0 1,0,0 100:0 0,1,1,1,0,2,1 102:0 3,1,3,5"},
    {"compositeOfComposites", rational_cubic + " 110:0 7,3,1,9,9,9 102:0 2,1,3 102:0 2,5,3"},
    {"offsetArc", "100:0 0,0,0,2,0,0,2 130:0 1,1,0,0,0,.5,0,0,0,0,0,1,0,1.5"},
    {"offsetByLength", rational_cubic + " 130:0 1,2,0,0,1,.1,0,.3,9,0,0,1,.1,.9"},
    {"offsetByFunction", "100:0 0,0,0,2,0,0,2 110:0 0,0,1,0,1,2 130:0 1,3,3,2,2,0,0,0,0,0,0,1,0,1.5"},
    {"boundary", "110:0 0,0,0,1,0,0 100:0 0,1,1,2,1,1,0 108:0 0,0,1,0,0,0,0,0,0 141:0 0,0,5,2,1,1,0,3,2,0"},
    {"modelSpaceCurve", two_cubics + " 142:0 0,0,0,1,2"},
    {"curveOnSurface",
     "110:0 0,0,0,0,0,1 110:0 2,0,0,3,0,3 120:0 1,3,0,6.2831853 104:3 1,0,0,0,-1,0,0,0,0,1,1 142:0 0,5,7,0,1"},
};

int last_entity(const ShapedFile& file) { return static_cast<int>(2 * file.file.num_entities() - 1); }

class EveryCurve : public testing::TestWithParam<CurveCase> {};

std::string case_name(const testing::TestParamInfo<CurveCase>& info) { return info.param.name; }
INSTANTIATE_TEST_SUITE_P(Shapes, EveryCurve, testing::ValuesIn(curve_cases), case_name);

// Between the breaks, and up to them from either side.
TEST_P(EveryCurve, hasTheDerivativesThatDifferencesShow) {
  ShapedFile file(GetParam().entities);
  const igsShapeCurvePtr curve = file.curve(last_entity(file));
  ASSERT_NE(curve, nullptr);
  for (std::size_t i = 0; i + 1 < curve->breaks().size(); ++i) {
    const igsRange span{curve->breaks()[i], curve->breaks()[i + 1]};
    const double h = 1e-4 * span.length();
    for (const double fraction : {0.0, 0.1, 0.37, 0.5, 0.81, 1.0}) {
      const double t = span.at(fraction);
      const double s = std::clamp(t, span.low + h, span.high - h);
      const igsSide side = fraction == 1 ? igsSide::before : igsSide::after;
      const igsVec3 a = curve->at(s - h).point, b = curve->at(s).point, c = curve->at(s + h, igsSide::before).point;
      const igsVec3 second = (a + c - b * 2) * (1 / (h * h)), first = (c - a) * (0.5 / h) + second * (t - s);
      const igsCurvePoint at = curve->at(t, side);
      const double scale = first.length() + second.length() * span.length() + 1;
      expect_near(at.first, first, 1e-6 * scale);
      expect_near(at.second, second, (s == t ? 2e-5 : 5e-3) * scale / span.length());
      if (s == t) expect_near(at.point, b, 0);
    }
  }
}

TEST_P(EveryCurve, isFollowedByItsPolylineAndFoundByItsNearestPoint) {
  ShapedFile file(GetParam().entities);
  const igsShapeCurvePtr curve = file.curve(last_entity(file));
  const std::vector<igsPolylinePoint> points = igs_polyline(*curve, {.chord = 1e-3, .angle = 0.1});
  ASSERT_GE(points.size(), 2U);
  expect_near(points.front().point, curve->start(), 0);
  expect_near(points.back().point, curve->end(), 0);
  const igsNearestPointOnCurve nearest(*curve);
  double length = 0;
  for (std::size_t i = 0; i + 1 < points.size(); ++i) {
    const igsPolylinePoint &a = points[i], &b = points[i + 1];
    if (a.parameter == b.parameter) continue;
    length += (b.point - a.point).length();
    EXPECT_LE(nearest((a.point + b.point) * 0.5).distance, 1e-3);
    const igsVec3 on = curve->point((a.parameter + b.parameter) / 2);
    EXPECT_LE(nearest(on).distance, 1e-12);
    EXPECT_LE(nearest.near(on, a.parameter, 1e-9).distance, 1e-9);
  }
  EXPECT_NEAR(igs_length(*curve), length, 2e-3 * length);
}

TEST_P(EveryCurve, isNowhereNearerThanItsNearestPointAndLeavesItsBoxNowhere) {
  ShapedFile file(GetParam().entities);
  const igsShapeCurvePtr curve = file.curve(last_entity(file));
  const igsBox box = igs_box(*curve);
  const igsNearestPointOnCurve nearest(*curve);
  std::vector<igsVec3> samples;
  igsBox sampled;
  for (int i = 0; i <= 1000; ++i) {
    samples.push_back(curve->point(curve->range().at(i / 1000.0)));
    sampled.add(samples.back());
  }
  igsBox both = box;
  both.add(sampled);
  expect_near(both.low, box.low, 1e-12);
  expect_near(both.high, box.high, 1e-12);
  EXPECT_NEAR(box.diagonal(), sampled.diagonal(), 1e-3 * box.diagonal());
  for (int i = 0; i < 60; ++i) {
    const igsVec3 point{std::fmod(i * 1.37, 7.0) - 1, std::fmod(i * 2.11, 6.0) - 2, std::fmod(i * 0.73, 3.0)};
    double least = infinity;
    for (const igsVec3& sample : samples) least = std::min(least, (sample - point).length());
    const igsNearestOnCurve found = nearest(point);
    EXPECT_LE(found.distance, least + 1e-9);
    EXPECT_NEAR((found.point - point).length(), found.distance, 1e-12);
  }
}

TEST(CurveShapes, arcsAndConicsHaveTheirExactMeasures) {
  ShapedFile file(
      "100:0 5.,1.,1.,1.,3.,-1.,1. 104:1 .25,0,1,0,0,-1,2,2,0,0,1 104:3 1,0,0,0,-1,0,0,0,0,1,1 "
      "100:0 0,0,0,2,0,2,0 104:1 .25,0,1,0,0,-1,0,2,0,2,0");
  const igsShapeCurvePtr arc = file.curve(1);
  EXPECT_NEAR(arc->range().low, pi / 2, 1e-15);
  EXPECT_NEAR(arc->range().high, pi, 1e-15);
  expect_near(arc->start(), {1, 3, 5}, 1e-15);
  expect_near(arc->end(), {-1, 1, 5}, 1e-15);
  expect_near(arc->at(3 * pi / 4).first, {-std::sqrt(2), -std::sqrt(2), 0}, 1e-14);
  EXPECT_NEAR(igs_length(*arc), pi, 1e-12);
  const igsShapeCurvePtr quarter = file.curve(3);
  expect_near(quarter->point(pi / 6), {std::sqrt(3), 0.5, 2}, 1e-14);
  EXPECT_NEAR(igs_length(*quarter), 2.4221120551369188, 1e-10);
  const igsShapeCurvePtr parabola = file.curve(5);
  expect_near(parabola->point(0.5), {0.5, 0.25, 0}, 1e-15);
  EXPECT_NEAR(igs_length(*parabola), std::sqrt(5) / 2 + std::asinh(2) / 4, 1e-10);
  for (const int de : {7, 9}) {  // whole turns
    const igsBox box = igs_box(*file.curve(de));
    expect_near(box.low, {-2, de == 7 ? -2.0 : -1.0, 0}, 1e-9);
    expect_near(box.high, {2, de == 7 ? 2.0 : 1.0, 0}, 1e-9);
    EXPECT_TRUE(file.curve(de)->is_closed(1e-12));
  }
}

// Every point satisfies the equation that the file states.
TEST(CurveShapes, conicsInAnyPositionLieOnTheirEquationAndMeetTheirEnds) {
  const std::array<double, 10> conics[] = {
      {5, -6, 5, 0, 0, -8, std::sqrt(2), std::sqrt(2), -std::sqrt(0.5), std::sqrt(0.5)},  //
      {1, 0, 4, -2, -16, 13, 3, 2, 1, 1},                                                 //
      {1, 2, 1, -4, 4, 0, 0, 0, 1.5, .5},                                                 //
      {0, 0, 1, 2, -4, 0, 0, 0, -6, 6},                                                   //
      {0, 1, 0, -1, -2, 0, 3, 3, 4, 2},                                                   //
      {-1, 0, 1, 0, 0, -1, 1, -std::sqrt(2), -1, -std::sqrt(2)}};
  for (const auto& [a, b, c, d, e, f, x1, y1, x2, y2] : conics) {
    std::ostringstream text;
    text.precision(17);
    text << "104:0 " << a << ',' << b << ',' << c << ',' << d << ',' << e << ',' << f << ",7,";
    text << x1 << ',' << y1 << ',' << x2 << ',' << y2;
    SCOPED_TRACE(text.str());
    ShapedFile file(text.str());
    const igsShapeCurvePtr curve = file.curve(1);
    ASSERT_NE(curve, nullptr);
    expect_near(curve->start(), {x1, y1, 7}, 1e-12);
    expect_near(curve->end(), {x2, y2, 7}, 1e-12);
    for (int i = 0; i <= 50; ++i) {
      const igsVec3 p = curve->point(curve->range().at(i / 50.0));
      EXPECT_NEAR(a * p.x * p.x + b * p.x * p.y + c * p.y * p.y + d * p.x + e * p.y + f, 0, 1e-12);
    }
  }
}

/// The definition of B-splines, term by term.
double basis(const std::vector<double>& knots, std::size_t i, std::size_t degree, double t) {
  if (degree == 0) return knots[i] <= t && t < knots[i + 1] ? 1 : 0;
  const double low = knots[i + degree] - knots[i], high = knots[i + degree + 1] - knots[i + 1];
  const double rising = low > 0 ? (t - knots[i]) / low * basis(knots, i, degree - 1, t) : 0;
  return rising + (high > 0 ? (knots[i + degree + 1] - t) / high * basis(knots, i + 1, degree - 1, t) : 0);
}

/// A spline of any degree with weights and knots of any multiplicity, and the entity that states it.
struct Spline {
  std::size_t degree;
  std::vector<double> knots, weights;
  std::vector<igsVec3> points;

  Spline(std::size_t degree, std::vector<double> knots, bool is_rational) : degree(degree), knots(std::move(knots)) {
    for (std::size_t i = 0; i + degree + 1 < this->knots.size(); ++i) {
      const auto x = static_cast<double>(i);
      weights.push_back(is_rational ? 1 + std::fmod(x * 0.7, 2.0) : 1);
      points.push_back({x, std::sin(3 * x) * 4, std::fmod(x * x, 5.0)});
    }
  }
  igsVec3 plain_point(double t) const {
    igsVec3 sum;
    double weight = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double share = weights[i] * basis(knots, i, degree, t);
      sum += points[i] * share;
      weight += share;
    }
    return sum * (1 / weight);
  }
  /// The same polynomial curve with one knot more.
  Spline with_knot(double t) const {
    Spline more = *this;
    const auto k = static_cast<std::size_t>(std::upper_bound(knots.begin(), knots.end(), t) - knots.begin()) - 1;
    more.knots.insert(more.knots.begin() + static_cast<std::ptrdiff_t>(k) + 1, t);
    more.points.push_back(points.back());
    more.weights.push_back(1);
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double span = knots[i + degree] - knots[i];
      const double part = i + degree <= k ? 1 : i > k ? 0 : (t - knots[i]) / span;
      more.points[i] = points[i] * part + points[i - 1] * (1 - part);
    }
    return more;
  }
  std::string entity() const {
    std::ostringstream text;
    text.precision(17);
    text << "126:0 " << points.size() - 1 << ',' << degree << ",0,0,0,0";
    for (const double knot : knots) text << ',' << knot;
    for (const double weight : weights) text << ',' << weight;
    for (const igsVec3& p : points) text << ',' << p.x << ',' << p.y << ',' << p.z;
    text << ',' << knots[degree] << ',' << knots[points.size()];
    return text.str();
  }
};

TEST(CurveShapes, splinesAreWhatTheirDefinitionSays) {
  const std::pair<std::size_t, std::vector<double>> knots[] = {
      {1, {0, 0, 1, 3, 3}},
      {2, {-2, -1, 0, 1, 1.5, 2, 7, 8, 9}},
      {3, {0, 0, 0, 0, 0.25, 0.25, 0.5, 0.5, 0.5, 0.9, 1, 1, 1, 1}},
      {5, {0, 0, 0, 0, 0, 0, 1, 1.0000001, 4, 5, 5, 5, 5, 5, 5}},
      {9, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 3, 3, 3, 3, 3, 3, 3, 3, 3, 3}},
      {3, {0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2}}};
  for (const auto& [degree, vector] : knots) {
    for (const bool is_rational : {false, true}) {
      const Spline spline(degree, vector, is_rational), finer = spline.with_knot(vector[degree] + 0.61);
      ShapedFile file(spline.entity() + ' ' + finer.entity());
      const igsShapeCurvePtr curve = file.curve(1), same = file.curve(3);
      ASSERT_TRUE(curve != nullptr && same != nullptr);
      for (int i = 0; i < 200; ++i) {
        const double t = curve->range().at(i / 200.0);
        expect_near(curve->point(t), spline.plain_point(t), 1e-12);
        if (!is_rational) expect_near(curve->point(t), same->point(t), 1e-12);
      }
    }
  }
}

TEST(CurveShapes, aSplineThatJumpsHasTwoPointsAtTheKnot) {
  ShapedFile file(jumping + ' ' + rational_cubic + ' ' + rational_cubic + ",.1,.6");
  const igsShapeCurvePtr curve = file.curve(1);
  EXPECT_EQ(curve->breaks(), (std::vector<double>{0, 1, 2}));
  expect_near(curve->at(1, igsSide::before).point, {2, 0, 0}, 1e-15);
  expect_near(curve->at(1, igsSide::after).point, {3, 0, 0}, 1e-15);
  expect_near(curve->at(1, igsSide::before).first, {2, -4, 0}, 1e-14);
  int at_knot = 0;
  for (const igsPolylinePoint& point : igs_polyline(*curve, {})) at_knot += point.parameter == 1 ? 1 : 0;
  EXPECT_EQ(at_knot, 2);
  EXPECT_EQ(file.curve(3)->breaks(), (std::vector<double>{0, 0.4, 1}));
}

TEST(CurveShapes, compositesAndBoundariesAddUpTheParametersOfTheirMembers) {
  ShapedFile file("110:0 0,0,0,1,0,0 116:0 1,0,0 100:0 0,1,1,1,0,2,1 102:0 3,1,3,5 102:0 2,7,1 " + jumping +
                  " 108:0 0,0,1,0,0,0,0,0,0 141:0 0,0,13,2,11,2,0,7,1,0");
  const igsShapeCurvePtr composite = file.curve(7), nested = file.curve(9), boundary = file.curve(15);
  const double member = pi / 2;
  EXPECT_EQ(composite->breaks(), (std::vector<double>{0, 1, 1 + member}));
  expect_near(composite->at(1, igsSide::before).first, {1, 0, 0}, 1e-15);
  expect_near(composite->point(1 + member / 2), {1 + std::sqrt(0.5), 1 - std::sqrt(0.5), 0}, 1e-15);
  EXPECT_EQ(nested->breaks(), (std::vector<double>{0, 1, 1 + member, 2 + member}));
  EXPECT_NEAR(igs_length(*nested), 2 + member, 1e-12);
  EXPECT_EQ(boundary->breaks(), (std::vector<double>{0, 1, 2, 3, 3 + member}));
  expect_near(boundary->start(), {5, 0, 0}, 1e-15);
  expect_near(boundary->at(1, igsSide::before).point, {3, 0, 0}, 1e-15);
  expect_near(boundary->at(1, igsSide::after).point, {2, 0, 0}, 1e-15);
  expect_near(boundary->at(1, igsSide::after).first, {-2, 4, 0}, 1e-14);
}

TEST(CurveShapes, aCurveOnASurfaceIsTheOneThatTheSenderPrefersOrElseTheOther) {
  const std::string parts =
      "110:0 0,0,0,0,0,1 110:0 2,0,0,2,0,3 120:0 1,3,0,6.2831853 110:0 0,0,0,1,1.5707963267948966,0";
  ShapedFile file(parts + " 142:0 0,5,7,1,1 142:0 0,5,7,1,2 142:0 0,5,7,0,2 142:0 0,5,0,1,1 142:0 0,1,7,0,1");
  EXPECT_NEAR(igs_length(*file.curve(9)), std::sqrt(9 + pi * pi), 1e-10);  // a helix
  expect_near(file.curve(9)->point(0.5), {std::sqrt(2), std::sqrt(2), 1.5}, 1e-12);
  EXPECT_NEAR(igs_length(*file.curve(11)), 1, 1e-15);
  EXPECT_NEAR(igs_length(*file.curve(13)), std::sqrt(9 + pi * pi), 1e-10);
  EXPECT_NEAR(igs_length(*file.curve(15)), 1, 1e-15);
  EXPECT_EQ(file.curve(17), nullptr);
}

TEST(CurveShapes, offsetCurvesRunAtTheirDistance) {
  ShapedFile file(
      "100:0 0,0,0,2,0,0,2 110:0 0,0,0,10,0,0 110:0 0,0,1,0,1,2 130:0 1,1,0,0,0,.5,0,0,0,0,0,1,0,1 "
      "130:0 3,2,0,0,1,1,2,2,8,0,0,1,.1,.9 130:0 3,2,0,0,2,1,0,2,1,0,0,1,0,0 130:0 3,3,5,2,2,0,0,0,0,0,0,1,0,1");
  expect_near(file.curve(7)->point(0.5), {1.5 * std::cos(0.5), 1.5 * std::sin(0.5), 0}, 1e-14);
  EXPECT_NEAR(igs_length(*file.curve(7)), 1.5, 1e-12);
  expect_near(file.curve(9)->start(), {1, 1 - 1.0 / 3, 0}, 1e-12);  // the length is 0 there, 2 where the distance is 1
  expect_near(file.curve(9)->point(0.4), {4, 1 + 1.0 / 6, 0}, 1e-12);
  expect_near(file.curve(11)->point(0.25), {2.5, 1.25, 0}, 1e-14);
  expect_near(file.curve(13)->point(0.25), {2.5, 0.25, 0}, 1e-14);
}

// An endless chain ends, a circle too, and the same curve named again and again does not grow without limit.
TEST(CurveShapes, hostileCompositesStaySmall) {
  std::string entities = "110:0 0,0,0,1,0,0";
  for (int level = 0; level < 7; ++level) {
    entities += " 102:0 60";
    for (int i = 0; i < 60; ++i) entities += ',' + std::to_string(2 * level + 1);
  }
  entities += " 102:0 1,17";
  for (int level = 0; level < 40; ++level) entities += " 102:0 1," + std::to_string(level == 0 ? 1 : 17 + 2 * level);
  ShapedFile file(entities);
  igsShapes shapes(file.file);
  std::size_t breaks = 0;
  int num_shapes = 0;
  for (int de = 1; de <= last_entity(file); de += 2) {
    const igsShapeCurvePtr curve = shapes.curve(file.file.entity(de));
    breaks += curve != nullptr ? curve->breaks().size() : 0;
    num_shapes += curve != nullptr ? 1 : 0;
  }
  EXPECT_EQ(num_shapes, 1 + 2 + 7);
  EXPECT_LT(breaks, 200'000U);
}

TEST(CurveShapes, whatCannotBeUsedMakesNoCurve) {
  const char* const unusable[] = {"100:0 0,0,0,0,0,1,0",

                                  "104:0 0,0,0,0,0,0,0,0,0,1,1",
                                  "104:2 1,0,-1,0,0,-1,0,1,0,-1,0",
                                  "104:1 1,0,1,0,0,1,0,1,0,1,0",
                                  "106:12 2,1,0,0,0",

                                  "112:0 3,1,3,1,1,0,0,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0",
                                  "126:0 1,1,0,0,1,0,0,0,0,0,1,1,0,0,0,1,1,1,0,1",
                                  "126:0 1,1,0,0,1,0,0,1,0,1,1,1,0,0,0,1,1,1,0,1",
                                  "126:0 1,1,0,0,1,0,0,,1,1,1,1,0,0,0,1,1,1,0,1",
                                  "126:0 1,1,0,0,0,0,0,0,1,1,0,0,0,0,0,1,1,1,0,1",
                                  "126:0 1,1,0,0,0,0,0,0,1,1,1,-1,0,0,0,1,1,1,0,1",
                                  "126:0 2,2,0,0,0,0,0,0,0,1,1,1,1,-1,1,0,0,0,1,1,1,2,0,0,0,1",
                                  "102:0 0",
                                  "102:0 1,1",
                                  "102:0 1,99",
                                  "116:0 0,0,0",
                                  "141:0 0,0,0,0",
                                  "142:0 0,0,0,0,0",
                                  "130:0 1,1,0,0,0,1,0,0,0,0,0,1,0,1"};
  for (const char* const text : unusable) EXPECT_EQ(ShapedFile(text).curve(1), nullptr) << text;
}

TEST(CurveShapes, degenerateDataThatCanBeUsedDo) {
  ShapedFile file(
      "110:0 1,1,1,1,1,1 106:12 2,3,1,1,1,1,1,1,1,1,1 126:0 2,2,0,0,0,0,0,0,0,1,1,1,1,-.5,1,0,0,0,1,1,1,2,0,0,0,1 "
      "126:0 1,1,0,0,0,0,0,0,1,1,-1,-2,0,0,0,1,1,1,5,5 126:0 2,2,0,0,0,0,0,0,0,1e-300,1e-300,1e-300,"
      "1,1,1,0,0,0,1e200,1,1,2,0,0,0,1");
  for (const int de : {1, 3, 5, 7, 9}) {
    SCOPED_TRACE(de);
    const igsShapeCurvePtr curve = file.curve(de);
    ASSERT_NE(curve, nullptr);
    for (int i = 0; i <= 20; ++i) EXPECT_TRUE(curve->point(curve->range().at(i / 20.0)).is_finite());
    EXPECT_GE(igs_polyline(*curve, {.most = 50}).size(), 2U);
    EXPECT_LE(igs_polyline(*curve, {.chord = 1e-9, .most = 50}).size(), 50U);
    igs_length(*curve);
    EXPECT_FALSE(igs_box(*curve).is_empty());
    EXPECT_TRUE(std::isfinite(igsNearestPointOnCurve(*curve)({1, 2, 3}).distance));
    curve->point(std::nan(""));
  }
  EXPECT_EQ(igs_length(*file.curve(1)), 0);
}

TEST(CurveShapes, linesWithoutEndsHaveNearestPointsAlone) {
  igsFile file;
  file.set_options({.unbounded_lines = true});
  read_entities(file, "110:1 0,0,0,2,0,0 110:2 0,0,0,2,0,0 102:0 1,1 130:0 3,1,0,0,0,1,0,0,0,0,0,1,-5,5");
  igsShapes shapes(file);
  for (const int de : {1, 3}) {
    const igsShapeCurvePtr line = shapes.curve(file.entity(de));
    EXPECT_EQ(line->range().low, de == 1 ? 0 : -infinity);
    const igsNearestOnCurve nearest = igsNearestPointOnCurve(*line)({-7, 3, 4});
    EXPECT_NEAR(nearest.parameter, de == 1 ? 0 : -3.5, 1e-15);
    EXPECT_NEAR(nearest.distance, de == 1 ? std::sqrt(74) : 5, 1e-12);
    EXPECT_TRUE(igs_polyline(*line, {}).empty());
    EXPECT_TRUE(igs_box(*line).is_empty());
  }
  EXPECT_EQ(shapes.curve(file.entity(5)), nullptr);
  expect_near(shapes.curve(file.entity(7))->start(), {-10, 1, 0}, 1e-15);
}
}  // namespace
