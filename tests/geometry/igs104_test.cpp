#include "igs/curves/igs104.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <limits>

#include "geometry/geometry_fixture.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

const igsConicCoeffs unit_circle(1, 0, 1, 0, 0, -1), hyperbola(1, 0, -1, 0, 0, -1), parabola(1, 0, 0, 0, -1, 0),
    nothing(0, 0, 0, 0, 0, 0);

igs104* make_conic(const igsConicCoeffs& coeffs, int form) {
  auto* const conic = new igs104;
  conic->set_coeffs(coeffs);
  conic->set_z_level(0);
  conic->set_start_point(giPoint2(1, 0));
  conic->set_end_point(giPoint2(0, 1));
  conic->directory_entry().set_form_number(form);
  return conic;
}

TEST(IgsConicCoeffs, Classes) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    const char* what;
    igsConicCoeffs conic;
    double tolerance;
    igsConicType type;
  } cases[] = {
      {"unit circle", unit_circle, 1e-10, igsConicEllipse},
      {"the same, signs turned", {-1, 0, -1, 0, 0, 1}, 1e-10, igsConicEllipse},
      {"turned and moved ellipse", {2, 1, 3, -4, 5, -6}, 1e-10, igsConicEllipse},
      {"imaginary ellipse", {1, 0, 1, 0, 0, 1}, 1e-10, igsConicUnknown},
      {"point", {1, 0, 1, 0, 0, 0}, 0, igsConicUnknown},
      {"point, by tolerance", {1, 0, 1, 0, 0, 0}, 1e-10, igsConicEllipse},
      {"hyperbola", hyperbola, 1e-10, igsConicHyperbola},
      {"x y = 1", {0, 1, 0, 0, 0, -1}, 1e-10, igsConicHyperbola},
      {"crossing lines", {1, 0, -1, 0, 0, 0}, 1e-10, igsConicUnknown},
      {"parabola", parabola, 1e-10, igsConicParabola},
      {"turned parabola", {1, 2, 1, 1, -1, 0}, 1e-10, igsConicParabola},
      {"parallel lines", {1, 0, 0, 0, 0, -1}, 1e-10, igsConicUnknown},
      {"nothing", nothing, 1e-10, igsConicUnknown},
      // A = C = 1e-2, F = -1: Q2 = 1e-4, Q1 = -1e-4. The tolerance decides which tests speak.
      {"wide circle", {1e-2, 0, 1e-2, 0, 0, -1}, 1e-10, igsConicEllipse},
      {"within both tolerances", {1e-2, 0, 1e-2, 0, 0, -1}, 1e-3, igsConicEllipse},
      {"Q2 alone within", {1e-2, 0, 1e-2, 0, 0, -100}, 1e-3, igsConicParabola},
      {"hyperbola within both", {1e-2, 0, -1e-2, 0, 0, 1}, 1e-3, igsConicHyperbola},
      {"hyperbola, Q2 alone within", {1e-2, 0, -1e-2, 0, 0, 100}, 1e-3, igsConicParabola},
      {"parabola within", {1e-2, 0, 0, 0, 1e-2, 0}, 1e-3, igsConicParabola},
      {"Q2 on the limit", {1, 0, 0.5, 0, 0, -1}, 0.5, igsConicEllipse},  // |Q1| is on the limit too
      {"Q2 on the limit, Q1 above", {1, 0, 0.5, 0, 0, -2}, 0.5, igsConicParabola},
      {"hyperbola on the limit", {1, 0, -0.5, 0, 0, -2}, 0.5, igsConicParabola},
      {"not a number", {nan, 0, 1, 0, 0, -1}, 1e-10, igsConicUnknown},
      {"invariant beyond all numbers", {0, 0, 0, nan, 0, 0}, 1e-10, igsConicUnknown},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    const Resource tolerance(kelTolConicIsParabola, c.tolerance);
    EXPECT_EQ(c.conic.conic_type(), c.type);
  }
  EXPECT_EQ(static_cast<int>(parabola.conic_type()), 2);
  EXPECT_EQ(static_cast<int>(hyperbola.conic_type()), 3);
}

TEST(IgsConicCoeffs, Values) {
  EXPECT_FALSE(igsConicCoeffs().valid());
  double values[6] = {1, 2, 3, 4, 5, 6};
  igsConicCoeffs conic(values);
  EXPECT_TRUE(conic.valid());
  EXPECT_EQ(conic, igsConicCoeffs(1, 2, 3, 4, 5, 6));
  for (double& value : values) {
    const double kept = value;
    value = -DBL_MAX;
    EXPECT_FALSE(igsConicCoeffs(values).valid());
    value = kept;
  }
  conic.become(unit_circle);
  conic.coeffs(values);
  EXPECT_EQ(values[5], -1);
}

TEST(Igs104, Checks) {
  const Found sound, unknown{"igs104UnknownType 1"}, not_ellipse{"igs104NotEllipse 1"},
      not_hyperbola{"igs104NotHyperbola 1"}, not_parabola{"igs104NotParabola 1"};
  const struct {
    igsConicCoeffs coeffs;
    std::vector<Found> by_form;  // forms 0 to 4
  } cases[] = {
      {unit_circle, {sound, sound, not_hyperbola, not_parabola, sound}},
      {hyperbola, {sound, not_ellipse, sound, not_parabola, sound}},
      {parabola, {sound, not_ellipse, not_hyperbola, sound, sound}},
      {nothing, {unknown, not_ellipse, not_hyperbola, not_parabola, sound}},
  };
  for (const auto& c : cases) {
    for (int form = 0; form <= 4; ++form) {
      SCOPED_TRACE(std::to_string(c.coeffs.conic_type()) + " in form " + std::to_string(form));
      igsFile file;
      EXPECT_EQ(found_by_check(*make_conic(c.coeffs, form)), c.by_form[static_cast<std::size_t>(form)]);
    }
  }
}

TEST(Igs104, UndefinedDataDoNotEndTheCheck) {
  const struct {
    const char* what;
    void (*damage)(igs104&);
    Found found;
  } cases[] = {
      {"start", [](igs104& conic) { conic.set_start_point({}); }, {"igs104NoConstruct 1"}},
      {"end", [](igs104& conic) { conic.set_end_point(giPoint2(0, DBL_MAX)); }, {"igs104NoConstruct 1"}},
      {"z level", [](igs104& conic) { conic.set_z_level(-DBL_MAX); }, {"igs104NoConstruct 1"}},
      {"coefficients", [](igs104& conic) { conic.set_coeffs({}); }, {"igs104NoConstruct 1", "igs104NotEllipse 1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    igsFile file;
    igs104* const conic = make_conic(unit_circle, 1);
    c.damage(*conic);
    EXPECT_EQ(found_by_check(*conic), c.found);
    EXPECT_EQ(object_errors(file).front()->fix(), 0);
  }
}

TEST(Igs104, Repairs) {
  const struct {
    igsConicCoeffs coeffs;
    int right_form;  // 0: none
  } cases[] = {{unit_circle, 1}, {hyperbola, 2}, {parabola, 3}, {nothing, 0}};
  for (const auto& c : cases) {
    for (int form = 1; form <= 3; ++form) {
      if (form == c.right_form) continue;
      SCOPED_TRACE(std::to_string(c.coeffs.conic_type()) + " in form " + std::to_string(form));
      igsFile file;
      igs104* const conic = make_conic(c.coeffs, form);
      EXPECT_EQ(fix_the_fault(*conic), c.right_form != 0 ? 1 : 0);
      EXPECT_EQ(conic->directory_entry().form_number(), c.right_form != 0 ? c.right_form : form);
      EXPECT_EQ(conic->check(), c.right_form != 0 ? 1 : 0);
    }
  }
  igsFile file;
  EXPECT_EQ(fix_the_fault(*make_conic(nothing, 0)), 0);
}

TEST(Igs104, ARepairThatIsNoLongerNeededSucceeds) {
  igsFile file;
  igs104* const conic = make_conic(hyperbola, 1);
  conic->check();
  conic->set_coeffs(unit_circle);
  EXPECT_EQ(object_errors(file).front()->fix(), 1);
  EXPECT_EQ(conic->directory_entry().form_number(), 1);
}

TEST(Igs104, ReadsWritesAndPrints) {
  IgesBuilder builder;
  builder.entity(104, 1, "1.,0.,4.,0.5,0.,-4.,7.,2.,0.,0.,1.");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const igs104& conic = entity_of<igs104>(file);
  EXPECT_EQ(conic.coeffs(), igsConicCoeffs(1, 0, 4, 0.5, 0, -4));
  EXPECT_EQ(printed_data(conic),
            "A = 1\nB = 0\nC = 4\nD = 0.5\nE = 0\nF = -4\nZLevel = 7\nStartPoint = (2, 0)\nEndPoint = (0, 1)\n");
  EXPECT_EQ(written_data(file), "104,1.,0.,4.,0.5,0.,-4.,7.,2.,0.,0.,1.;");
  EXPECT_EQ(conic.check(), 1);
}
}  // namespace
}  // namespace igs_test
