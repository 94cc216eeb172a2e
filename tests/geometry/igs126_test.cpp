#include "igs/curves/igs126.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

#include "geometry/spline_fixture.h"
#include "igs/curves/igs126_errors.h"
#include "igs/objects/igsPlaceholders.h"

namespace igs_test {
namespace {
/// The fields of a curve: degree 2, four control points, sound.
struct Curve {
  std::string sizes = "3,2";
  std::string flags = "0,0,1,0";
  std::string knots = "0.,0.,0.,1.,2.,2.,2.";
  std::string weights = "1.,1.,1.,1.";
  std::string points = "0.,0.,0.,1.,2.,0.,3.,2.,0.,4.,0.,0.";
  std::string limits = "0.,2.";
  std::string normal = "0.,0.,1.";

  std::string data() const {
    return sizes + ',' + flags + ',' + knots + ',' + weights + ',' + points + ',' + limits + ',' + normal;
  }
};

/// Degree 2, six control points: T(0) is knot 2 and T(N) knot 6.
Curve six_points(const std::string& knots, const std::string& limits = "0.,3.") {
  return {.sizes = "5,2", .knots = knots, .weights = repeated("1.", 6), .points = repeated("1.", 18), .limits = limits};
}

std::string error(const char* name, const std::string& values = "") {
  return std::string("igs126") + name + " 1" + (values.empty() ? "" : ' ' + values);
}

TEST(Igs126, ChecksWhatItRead) {
  const std::string unset = lowest;
  const struct {
    const char* what;
    Curve curve;
    Found found;
  } cases[] = {
      {"sound", {}, {}},
      {"flags",
       {.flags = "2,-1,7,9"},
       {error("InvalidPlanarFlag", "2"), error("InvalidClosedFlag", "-1"), error("InvalidRationalFlag", "7"),
        error("InvalidPeriodicFlag", "9")}},
      {"one knot too low", six_points("0.,0.,0.,1.,0.5,1.,3.,3.,3."), {error("KnotOutOfSequence", "4,0.5,1")}},
      {"two knots too low",
       six_points("0.,0.,0.,3.,1.,2.,3.,3.,3."),
       {error("KnotOutOfSequence", "4,1,3"), error("KnotOutOfSequence", "5,2,3")}},
      {"no knot", {.knots = ",0.,0.,1.,2.,2.,2."}, {error("UnsetKnot", "0")}},
      {"no knot after another",
       {.knots = "0.,,0.,1.,2.,2.,2."},
       {error("UnsetKnot", "1"), error("KnotOutOfSequence", "1," + unset + ",0")}},
      {"limits around the range",
       {.limits = "-1.,3."},
       {error("MinParamOutOfRange", "-1,0,2"), error("MaxParamOutOfRange", "3,0,2")}},
      {"limits above the range",
       {.limits = "2.5,2.75"},
       {error("MinParamOutOfRange", "2.5,0,2"), error("MaxParamOutOfRange", "2.75,0,2")}},
      {"limits within", {.limits = "0.25,1.75"}, {}},
      {"empty range",
       {.knots = repeated("1.", 7), .limits = "1.,1."},
       {error("NoParamRange", "1"), error("TrimParamsOutOfSequence", "1,1")}},
      {"reversed range",
       {.knots = "0.,0.,2.,2.,1.,3.,3.", .limits = "1.,2."},
       {error("KnotOutOfSequence", "4,1,2"), error("MinParamOutOfRange", "1,2,1"), error("MaxParamOutOfRange", "2,2,1"),
        error("NoParamRange", "2")}},
      {"close knots, twice", six_points("0.,0.,0.,1.D-9,2.D-9,2.,3.,3.,3."), {error("KnotsTooClose")}},
      {"close at the end", {.knots = "0.,0.,0.,1.999999999,2.,2.,2."}, {error("KnotsTooClose")}},
      {"close outside the range", {.knots = "-2.D-9,-1.D-9,0.,1.,2.,2.000000001,3."}, {}},
      {"no limits",
       {.limits = ","},
       {error("MinParamOutOfRange", unset + ",0,2"), error("MaxParamOutOfRange", unset + ",0,2"),
        error("UnsetTrimmingParams"), error("TrimParamsOutOfSequence", unset + "," + unset)}},
      {"no start", {.limits = ",2."}, {error("MinParamOutOfRange", unset + ",0,2"), error("UnsetTrimmingParams")}},
      {"limits the same", {.limits = "1.,1."}, {error("TrimParamsOutOfSequence", "1,1")}},
      {"limits reversed", {.limits = "2.,1."}, {error("TrimParamsOutOfSequence", "2,1")}},
      {"undefined points",
       {.points = "-1.7976931348623157D308,0.,0.,0.,-1.7976931348623157D308,0.,0.,0.,1.7976931348623157D308,,,"},
       {error("UnsetControlPoint", "0"), error("UnsetControlPoint", "2")}},
      {"planar", {.flags = "1,0,1,0"}, {}},
      {"planar without normal", {.flags = "1,0,1,0", .normal = ",,"}, {}},
      {"planar, normal undefined",
       {.flags = "1,0,1,0", .normal = "-1.7976931348623157D308,0.,0."},
       {error("InvalidUnitNormal")}},
      {"not planar, normal undefined", {.normal = "-1.7976931348623157D308,0.,0."}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(found_in(126, c.curve.data()), c.found);
  }
}

TEST(Igs126, WeightsAreHeldAgainstTheRationalFlag) {
  const struct {
    const char* weights;
    const char* rational_flag;
    Found found;
  } cases[] = {
      {"2.,2.,2.,2.", "0", {error("WeightsAndRatFlagDisagree", "0")}},
      {"2.,2.,2.,2.", "1", {}},
      {"0.,0.,0.,0.", "0", {error("WeightsAndRatFlagDisagree", "0")}},
      {"0.,0.,0.,0.", "1", {}},
      {"-1.,-1.,-1.,-1.", "1", {}},
      {",,,", "1", {}},
      {"1.,2.,1.,1.", "0", {}},
      {"1.,2.,1.,1.", "1", {error("WeightsAndRatFlagDisagree", "1")}},
      {"1.,2.,1.,1.", "2", {error("InvalidRationalFlag", "2")}},
      {"1.,0.,1.,1.", "0", {error("ZeroWeight", "1")}},
      {"1.,0.,1.,-.005",
       "1",
       {error("ZeroWeight", "1"), error("ZeroWeight", "3"), error("WeightsAndRatFlagDisagree", "1")}},
      {"1.,-2.,,1.", "0", {error("NegativeWeight", "1,-2"), error("UnsetWeight", "2")}},
      // Equal within 0.25 but not exactly: neither flag contradicts them; rational ones are looked at.
      {"0.,.125,.25,1.D-3", "0", {error("ZeroWeight", "0"), error("ZeroWeight", "3")}},
      {"0.,.125,.25,1.D-3", "1", {}},
      {"1.,1.375,1.,1.", "1", {error("WeightsAndRatFlagDisagree", "1")}},
  };
  const Resource equal(kelTolCoincWeights, 0.25);
  const Resource zero(kelTolMinValue, 0.01);
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.weights) + " flag " + c.rational_flag);
    const Curve curve{.flags = std::string("0,0,") + c.rational_flag + ",0", .weights = c.weights};
    EXPECT_EQ(found_in(126, curve.data()), c.found);
  }
}

TEST(Igs126, SizesThatCannotBeUsedEndTheRead) {
  const auto dropped = [](const std::string& name, const std::string& values) {
    return Found{"dropped", error(name.c_str(), values)};
  };
  const std::string knots_of_300 = "299,2,0,0,1,0," + repeated("1.", 302);
  const struct {
    std::string data;
    Found found;
  } cases[] = {
      {"", dropped("BadSumIndex", "0")},
      {"-7,0", dropped("BadSumIndex", "-7")},
      {"3,0", dropped("BadDegree", "0")},
      {"1,2", dropped("SumIndexLessThanDegree", "1,2")},
      {"2147483647,2147483647", dropped("BadSumIndex", "2147483647")},
      {"2147483646,1,0,0,1,0,1.", dropped("BadSumIndex", "2147483646")},
      {"10000000,3,0,0,1,0,1.,2.,3.", dropped("BadSumIndex", "10000000")},
      {"254,1", dropped("BadSumIndex", "254")},  // 257 knots, none supplied
      {knots_of_300 + ",1.", dropped("BadSumIndex", "299")},
      {knots_of_300 + ',' + repeated("1.", 300 + 3 * 74), dropped("BadSumIndex", "299")},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data.substr(0, 40));
    EXPECT_EQ(found_in(126, c.data), c.found);
  }
  for (const std::string& data : {std::string("253,1"), knots_of_300 + ',' + repeated("1.", 300 + 3 * 75)}) {
    igsFile file;
    EXPECT_NE(read_entity(file, 126, data), nullptr);
  }
}

TEST(Igs126, WhatTheRecordDoesNotSupplyIsUnset) {
  const std::string start = "3,2,0,0,1,0,0.,0.,0.,1.,2.,2.,2.,1.,1.,1.,1.";
  const std::string unset = lowest;
  const Found without_limits{error("MinParamOutOfRange", unset + ",0,2"), error("MaxParamOutOfRange", unset + ",0,2"),
                             error("UnsetTrimmingParams"), error("TrimParamsOutOfSequence", unset + "," + unset)};
  Found without_points = without_limits;
  without_points.insert(without_points.begin() + 2, {error("UnsetControlPoint", "2"), error("UnsetControlPoint", "3")});
  EXPECT_EQ(found_in(126, start + ",0.,0.,0.,1.,2."), without_points);  // the cut point is (1, 2, 0)
  EXPECT_EQ(found_in(126, start + ',' + repeated("1.", 12)), without_limits);
  EXPECT_EQ(found_in(126, start + ',' + repeated("1.", 12) + ",0.,2."), Found());
  const Found nothing = found_in(126, "3,2");
  ASSERT_EQ(nothing.size(), 7U + 1 + 4 + 1 + 2);
  EXPECT_EQ(nothing[6], error("UnsetKnot", "6"));
  EXPECT_EQ(nothing[7], error("NoParamRange", unset));
  EXPECT_EQ(nothing[12], error("WeightsAndRatFlagDisagree", "0"));
}

TEST(Igs126, RepairsAreProvedByTheNextCheck) {
  const struct {
    const char* what;
    Curve curve;
    std::vector<int> answers;
    Curve after;
    Found found;
  } cases[] = {
      {"flags",
       {.flags = "2,3,4,5"},
       {0, 1, 1, 1},
       {.flags = "2,0,0,0"},
       {error("InvalidPlanarFlag", "2"), error("WeightsAndRatFlagDisagree", "0")}},
      {"equal weights said to be rational", {.flags = "0,0,0,0"}, {1}, {}, {}},
      {"weights said to be equal", {.weights = "1.,2.,1.,1."}, {1}, {.flags = "0,0,0,0", .weights = "1.,2.,1.,1."}, {}},
      {"knot a little too low",
       six_points("0.,0.,0.,1.,0.875,2.,3.,3.,3."),
       {1, 1},
       six_points("0.,0.,0.,1.,1.,2.,3.,3.,3."),
       {}},
      {"knot too low",
       six_points("0.,0.,0.,1.,0.75,2.,3.,3.,3."),
       {0},
       six_points("0.,0.,0.,1.,0.75,2.,3.,3.,3."),
       {error("KnotOutOfSequence", "4,0.75,1")}},
      {"limits around the range", {.limits = "-1.,3."}, {1, 1}, {}, {}},
      {"limits above the range", {.limits = "3.,4."}, {1, 1}, {}, {}},
      {"limits below the range",
       {.limits = "-4.,-3."},
       {0, 1},
       {.limits = "-4.,2."},
       {error("MinParamOutOfRange", "-4,0,2")}},
      {"limits the same", {.limits = "1.,1."}, {1}, {}, {}},
      {"no limits", {.limits = ","}, {0, 1, 0, 1}, {}, {}},
      // Distinct knots must be 0.25 apart.
      {"first span",
       six_points("0.,0.,0.,0.125,1.,2.,3.,3.,3."),
       {1},
       six_points("0.,0.,0.,0.125,1.,2.,3.,3.,3."),
       {error("KnotsTooClose")}},
      {"last span", six_points("0.,0.,0.,1.,2.,2.875,3.,3.,3."), {1}, six_points("0.,0.,0.,1.,2.,3.,3.,3.,3."), {}},
      {"last spans",
       six_points("0.,0.,0.,1.,2.78125,2.875,3.,3.,3."),
       {1},
       six_points("0.,0.,0.,1.,3.,3.,3.,3.,3."),
       {}},
      {"inner spans",
       six_points("0.,0.,0.,1.,1.125,1.1875,3.,3.,3."),
       {1},
       six_points("0.,0.,0.,1.,1.,1.,3.,3.,3."),
       {}},
      {"not close enough",
       six_points("0.,0.,0.25,0.5,0.75,1.,3.,3.,3.", "0.25,3."),
       {},
       six_points("0.,0.,0.25,0.5,0.75,1.,3.,3.,3.", "0.25,3."),
       {}},
      {"all the way down but the first span",
       six_points("0.,0.,2.8125,2.84375,2.875,2.9375,3.,3.,3.", "2.8125,3."),
       {1},
       six_points("0.,0.,2.8125,3.,3.,3.,3.,3.,3.", "2.8125,3."),
       {error("KnotsTooClose")}},
      {"the last span is just wide enough",
       six_points("0.,0.,0.,1.,1.125,2.75,3.,3.,3."),
       {1},
       six_points("0.,0.,0.,1.,1.,2.75,3.,3.,3."),
       {}},
      {"equal knots end the way down",
       six_points("0.,0.,0.,1.,2.875,3.,3.,3.,3.", "0.,2.5"),
       {1},
       six_points("0.,0.,0.,1.,2.875,2.875,2.875,3.,3.", "0.,2.5"),
       {}},
  };
  const Resource tolerance(kelTolCoincBreakPoints, 0.25);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    igsFile file;
    const igsObject* const entity = read_entity(file, 126, c.curve.data());
    ASSERT_NE(entity, nullptr);
    EXPECT_EQ(fix_all(*entity), c.answers);
    EXPECT_EQ(written_data(file), "126," + c.after.data() + ';');
    EXPECT_EQ(found_by_check(*entity), c.found);
  }
}

TEST(Igs126, TheFlagThatAnErrorCarriesTellsItsRepair) {
  for (const int flag : {0, 1}) {
    igsFile file;
    read_entity(
        file, 126,
        Curve{.flags = "0,0," + std::to_string(flag) + ",0", .weights = flag == 0 ? "2.,2.,2.,2." : "1.,2.,1.,1."}
            .data());
    file.entity(1)->check();
    auto* const error = static_cast<igs126WeightsAndRatFlagDisagree*>(object_errors(file).at(0));
    EXPECT_EQ(error->value<0>(), flag);
    EXPECT_EQ(error->fix() + error->fix(), 2);  // the second does not undo the first
    EXPECT_EQ(entity_of<igs126>(file).rational_flag(), 1 - flag);
  }
}

TEST(Igs126, CurveWithoutRangeIsRemoved) {
  igsFile file;
  RecordingSink sink;
  file.set_message_stream(&sink);
  const Curve curve{.flags = "0,2,1,0", .knots = repeated("1.", 7), .limits = "1.,1."};
  const igsObject* const entity = read_entity(file, 126, curve.data());
  ASSERT_NE(entity, nullptr);
  const igsObjectPtr reference(1);
  entity->check();
  const std::vector<igsError*> errors = object_errors(file);
  ASSERT_EQ(errors.size(), 3U);
  EXPECT_EQ(describe(*errors[1]), error("NoParamRange", "1"));
  EXPECT_EQ(errors[1]->fix(), 0);
  EXPECT_EQ(sink.text, "Warning : IGES 126 (Nurb Curve) DE 1 has been removed.\n");
  EXPECT_EQ(sink.tags, std::vector<std::string>{"iges"});
  ASSERT_NE(file.entity(1), nullptr);
  EXPECT_TRUE(file.entity(1)->isa(igsNull::type()));
  EXPECT_EQ(reference.object(), file.entity(1));
  EXPECT_EQ(file.num_entities(), 1);
  for (igsError* error : errors) EXPECT_EQ(error->fix(), 1);  // it is gone, nothing is left to do
  EXPECT_EQ(sink.tags.size(), 1U);
}

TEST(Igs126, ReadsWritesAndPrintsItself) {
  const Curve curve{.flags = "1,0,0,2",
                    .knots = "0.,0.,0.,0.123456789,2.,2.,2.",
                    .weights = "1.,0.123456789,1.,1.",
                    .points = "0.,0.,0.,0.123456789,2.,0.,3.,2.,0.,4.,0.,0.",
                    .limits = "0.123456789,2."};
  igsFile file;
  ASSERT_NE(read_entity(file, 126, curve.data(), 5), nullptr);
  const igs126& entity = entity_of<igs126>(file);
  EXPECT_EQ(entity.directory_entry().form_number(), 5);
  EXPECT_EQ(written_data(file), "126," + curve.data() + ';');
  EXPECT_EQ(printed_data(entity),
            "NumberOfControlPoints = 4\nOrder = 3\nPlanar = 1(True)\nClosed = 0(False)\nRational = 0(True)\n"
            "Periodic = 2(Unknown)\nKnotVector = {\n\t0,0,0\n\t0.123456789\n\t2,2,2\n}\n"
            "ControlPoints = {\n\t(0) = (0, 0, 0),1\n\t(1) = (0.123456789, 2, 0),0.123456789\n\t(2) = (3, 2, 0),1\n"
            "\t(3) = (4, 0, 0),1\n}\nStartParameter = 0.123456789\nEndParameter = 2\nUnitNormal = (0, 0, 1)\n");
  const Resource precision(kelOptDoubleParametricPrecision, 4);
  EXPECT_EQ(
      written_data(file),
      "126,3,2,1,0,0,2,0.,0.,0.,0.1235,2.,2.,2.,1.,0.123456789,1.,1.,0.,0.,0.,0.123456789,2.,0.,3.,2.,0.,4.,0.,0.,"
      "0.1235,2.,0.,0.,1.;");
}

TEST(Igs126, BuiltByAHost) {
  igsFile file;
  auto* const curve = new igs126;
  EXPECT_EQ(curve->directory_entry().form_number(), 0);
  const Found empty{error("NoConstruct"), error("BadDegree", "-2147483648"), error("BadSumIndex", "-1"),
                    error("UnsetTrimmingParams"), error("TrimParamsOutOfSequence", std::string(lowest) + ',' + lowest)};
  EXPECT_EQ(found_by_check(*curve), empty);
  EXPECT_EQ(
      printed_data(*curve).substr(0, 102),
      "NumberOfControlPoints = 0\nOrder = -2147483647\nPlanar = 0(False)\nClosed = 0(False)\nRational = 1(False)\n");
  double value = 7;
  EXPECT_EQ(curve->knot(0, value) + curve->weight(0, value) + curve->set_knot(0, 1) + curve->set_weight(0, 1), 0);
  EXPECT_EQ(value, 7);

  const int refused[][2] = {{0, 1}, {-3, 4}, {3, 2}, {1, std::numeric_limits<int>::max()}};
  for (const auto& [order, count] : refused) EXPECT_EQ(curve->set_order_size(order, count), 0) << order << ' ' << count;
  EXPECT_EQ(found_by_check(*curve), empty);
  ASSERT_EQ(curve->set_order_size(2, 3), 1);
  EXPECT_EQ(curve->set_order_size(2, 3), 0);
  EXPECT_EQ(curve->number_of_knots(), 5);
  for (const int i : {-1, 0, 4, 5}) {
    EXPECT_EQ(curve->set_knot(i, i), i == 0 || i == 4) << i;
    EXPECT_EQ(curve->set_weight(i, 1), i == 0) << i;
    EXPECT_EQ(curve->set_control_point(i, giPoint3(1, 2, 3)), i == 0) << i;
  }
  EXPECT_EQ(curve->knot(4, value), 1);
  EXPECT_EQ(value, 4);
  EXPECT_EQ(curve->weight(2, value), 1);
  EXPECT_EQ(value, -DBL_MAX);
  EXPECT_EQ(curve->set_parametric_limits(2, 1), 0);
  EXPECT_EQ(curve->set_parametric_limits(1, 1), 1);
  EXPECT_EQ(curve->set_unit_normal(giVector3(-DBL_MAX, 0, 0)), 0);
  EXPECT_EQ(curve->set_unit_normal(giVector3(0, 1, 0)), 1);

  igsFile other;
  auto* const constant = new igs126;
  ASSERT_EQ(constant->set_order_size(1, 1), 1);
  constant->set_knot(0, 0);
  constant->set_knot(1, 1);
  constant->set_control_point(0, {1, 2, 3});
  constant->set_parametric_limits(5, 6);  // out of range, which is not looked at without a degree
  EXPECT_EQ(found_by_check(*constant), (Found{error("BadDegree", "0"), error("BadSumIndex", "0")}));
}

TEST(Igs126, AFailedReadLeavesNothingBehind) {
  igsFile file;
  auto* const curve = new igs126;
  EXPECT_EQ(read_fields(*curve, "299,2,0,0,1,0," + repeated("1.", 302 + 300 + 3)), 0);
  EXPECT_EQ(curve->number_of_knots() + curve->number_of_control_points(), 0);
  EXPECT_EQ(curve->order(), -2147483647);
  EXPECT_EQ(read_fields(*curve, Curve().data()), 1);
  EXPECT_EQ(read_fields(*curve, six_points("0.,0.,0.,1.,1.,2.,3.,3.,3.").data()), 0);  // there are arrays already
  EXPECT_EQ(curve->number_of_knots(), 7);
}

TEST(Igs126, KnotsThatAreNoNumbersDoNotCount) {
  igsFile file;
  ASSERT_NE(read_entity(file, 126, Curve().data()), nullptr);
  igs126& curve = entity_of<igs126>(file);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  for (int i = 0; i < curve.number_of_knots(); ++i) curve.set_knot(i, nan);
  EXPECT_EQ(found_by_check(curve), Found());
  curve.set_knot(6, 1);
  curve.direction().snap_knots(1);
  double value = 0;
  curve.knot(5, value);
  EXPECT_TRUE(value != value);
  EXPECT_EQ(curve.set_parametric_limits(nan, nan), 0);
}
}  // namespace
}  // namespace igs_test
