#include "igs/surfaces/igs128.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

#include "geometry/spline_fixture.h"

namespace igs_test {
namespace {
/// The fields of a surface: three control points and degree 2 along u, two and degree 1 along v; sound.
struct Surface {
  std::string sizes = "2,1,2,1";
  std::string flags = "0,0,1,0,0";
  std::string knots_u = "0.,0.,0.,2.,2.,2.";
  std::string knots_v = "0.,0.,1.,1.";
  std::string weights = "1.,1.,1.,1.,1.,1.";
  std::string points = "0.,0.,0.,1.,0.,0.,2.,0.,0.,0.,1.,0.,1.,1.,0.,2.,1.,0.";
  std::string limits_u = "0.,2.";
  std::string limits_v = "0.,1.";

  std::string data() const {
    std::string data = sizes;
    for (const std::string& part : {flags, knots_u, knots_v, weights, points, limits_u, limits_v}) data += ',' + part;
    return data;
  }
};

/// Six control points along u, two along v, degree 2 and 1: T(0) is u knot 2 and T(N) u knot 6.
Surface six_by_two(const std::string& knots_u) {
  return {.sizes = "5,1,2,1",
          .knots_u = knots_u,
          .weights = repeated("1.", 12),
          .points = repeated("1.", 36),
          .limits_u = "0.,3."};
}
/// The same with u and v exchanged.
Surface two_by_six(const std::string& knots_v) {
  return {.sizes = "1,5,1,2",
          .knots_u = "0.,0.,1.,1.",
          .knots_v = knots_v,
          .weights = repeated("1.", 12),
          .points = repeated("1.", 36),
          .limits_u = "0.,1.",
          .limits_v = "0.,3."};
}

std::string error(const char* name, const std::string& values = "") {
  return std::string("igs128") + name + " 1" + (values.empty() ? "" : ' ' + values);
}

TEST(Igs128, ChecksWhatItRead) {
  const std::string unset = lowest;
  const struct {
    const char* what;
    Surface surface;
    Found found;
  } cases[] = {
      {"sound", {}, {}},
      {"flags",
       {.flags = "2,3,-1,5,6"},
       {error("InvalidClosedUFlag", "2"), error("InvalidClosedVFlag", "3"), error("InvalidRationalFlag", "-1"),
        error("InvalidPeriodicUFlag", "5"), error("InvalidPeriodicVFlag", "6")}},
      {"knots",
       {.knots_u = "0.,,0.,2.,1.,2.", .knots_v = ",0.,1.,0.5"},
       {error("UnsetKnotU", "1"), error("KnotUOutOfSequence", "1," + unset + ",0"),
        error("KnotUOutOfSequence", "4,1,2"), error("UnsetKnotV", "0"), error("KnotVOutOfSequence", "3,0.5,1")}},
      {"limits",
       {.limits_u = "-1.,3.", .limits_v = "-2.,4."},
       {error("MinParamUOutOfRange", "-1,0,2"), error("MaxParamUOutOfRange", "3,0,2"),
        error("MinParamVOutOfRange", "-2,0,1"), error("MaxParamVOutOfRange", "4,0,1")}},
      {"empty ranges",
       {.knots_u = repeated("1.", 6), .knots_v = repeated("2.", 4), .limits_u = "1.,1.", .limits_v = "2.,2."},
       {error("NoUParamRange", "1"), error("NoVParamRange", "2"), error("TrimParamsUOutOfSequence", "1,1"),
        error("TrimParamsVOutOfSequence", "2,2")}},
      {"close knots along u, twice", six_by_two("0.,0.,0.,1.D-9,2.D-9,2.,3.,3.,3."), {error("UKnotsTooClose")}},
      {"close knots along v, twice", two_by_six("0.,0.,0.,1.D-9,2.D-9,2.,3.,3.,3."), {error("VKnotsTooClose")}},
      {"close knots both ways",
       {.knots_u = "0.,0.,0.,1.D-9,2.,2.",
        .knots_v = "0.,0.,1.D-9,2.",
        .limits_u = "0.,1.D-9",
        .limits_v = "0.,0.5D-9"},
       {error("UKnotsTooClose"), error("VKnotsTooClose")}},
      {"no limits along v",
       {.limits_v = ","},
       {error("MinParamVOutOfRange", unset + ",0,1"), error("MaxParamVOutOfRange", unset + ",0,1"),
        error("UnsetTrimmingParams"), error("TrimParamsVOutOfSequence", unset + "," + unset)}},
      {"limits reversed along u", {.limits_u = "2.,1."}, {error("TrimParamsUOutOfSequence", "2,1")}},
      {"undefined points",
       {.points = "0.,,,0.,,,1.7976931348623157D308,,,0.,1.7976931348623157D308,,0.,,,0.,-1.7976931348623157D308,"},
       {error("UnsetControlPoint", "2,0"), error("UnsetControlPoint", "0,1")}},
      {"equal weights said to be rational", {.flags = "0,0,0,0,0"}, {}},
      {"no weights", {.flags = "0,0,0,0,0", .weights = ",,,,,"}, {}},
      {"no weight at all but equal", {.weights = "0.,0.,0.,0.,0.,0."}, {}},
      {"weights nearly equal", {.weights = "1.,1.000000001,1.,1.,1.,1."}, {}},
      {"one weight is 0",
       {.weights = "1.,1.,1.,1.,0.,1."},
       {error("ZeroWeight", "1,1"), error("WeightsAndRatFlagDisaggree")}},
      {"weights",
       {.flags = "0,0,0,0,0", .weights = "1.,-1.D-9,-2.,,1.,1."},
       {error("ZeroWeight", "1,0"), error("NegativeWeight", "2,0,-2"), error("UnsetWeight", "0,1")}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    EXPECT_EQ(found_in(128, c.surface.data()), c.found);
  }
}

TEST(Igs128, SizesThatCannotBeUsedEndTheRead) {
  const std::string flags = ",0,0,1,0,0,";
  const struct {
    std::string data;
    std::string found;
  } cases[] = {
      {"0,0,0,0", error("BadUSumIndex", "0")},
      {"3,0,0,0", error("BadVSumIndex", "0")},
      {"3,3,0,0", error("BadUDegree", "0")},
      {"3,3,4,-1", error("BadVDegree", "-1")},
      {"3,3,4,4", error("USumIndexLessThanUDegree", "3,4")},
      {"3,3,3,4", error("VSumIndexLessThanVDegree", "3,4")},
      {"2147483647,2147483647,2147483647,2147483647", error("BadUSumIndex", "2147483647")},
      {"3,2147483647,3,2147483647", error("BadVSumIndex", "2147483647")},
      {"65535,65535,3,3", error("BadUSumIndex", "65535")},  // 2^32 points
      {"10000000,3,3,3" + flags + "1.,2.", error("BadUSumIndex", "10000000")},
      {"3,10000000,3,3" + flags + repeated("1.", 10), error("BadVSumIndex", "10000000")},
      // The knots are all there, the points of the product of the two sizes are not.
      {"15,19,1,1" + flags + repeated("1.", 18 + 22 + 79), error("BadVSumIndex", "19")},
      {"19,15,1,1" + flags + repeated("1.", 22 + 18 + 320 + 3 * 79), error("BadUSumIndex", "19")},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data.substr(0, 50));
    EXPECT_EQ(found_in(128, c.data), (Found{"dropped", c.found}));
  }
  igsFile file;
  ASSERT_NE(read_entity(file, 128, "19,15,1,1" + flags + repeated("1.", 22 + 18 + 320 + 3 * 80)), nullptr);
  const igs128& surface = entity_of<igs128>(file);
  giPoint3 point;
  EXPECT_EQ(surface.control_point(19, 3, point), 1);
  EXPECT_FALSE(point.is_undefined());
  EXPECT_EQ(surface.control_point(0, 4, point), 1);
  EXPECT_TRUE(point.is_undefined());
  EXPECT_EQ(surface.control_point(20, 0, point), 0);
  EXPECT_EQ(surface.control_point(-1, 1, point), 0);
}

TEST(Igs128, AFailedReadLeavesNothingBehind) {
  igsFile file;
  auto* const surface = new igs128;
  for (const char* const sizes : {"300,1,1,1", "1,300,1,1", "19,19,1,1"}) {
    EXPECT_EQ(read_fields(*surface, sizes + (",0,0,1,0,0," + repeated("1.", 50))), 0);
    EXPECT_EQ(surface->number_of_knots_u() + surface->number_of_knots_v(), 0) << sizes;
    EXPECT_EQ(surface->order_v(), -2147483647) << sizes;
  }
  EXPECT_EQ(read_fields(*surface, Surface().data()), 1);
}

TEST(Igs128, RepairsAreProvedByTheNextCheck) {
  const struct {
    const char* what;
    Surface surface;
    std::vector<int> answers;
    Surface after;
    Found found;
  } cases[] = {
      {"flags", {.flags = "2,3,4,5,6"}, {1, 1, 1, 1, 1}, {.flags = "0,0,0,0,0"}, {}},
      {"weights said to be equal",
       {.weights = "1.,2.,1.,1.,1.,1."},
       {1},
       {.flags = "0,0,0,0,0", .weights = "1.,2.,1.,1.,1.,1."},
       {}},
      {"a weight of 0",
       {.weights = "1.,1.,1.,1.,0.,1."},
       {0, 1},
       {.flags = "0,0,0,0,0", .weights = "1.,1.,1.,1.,0.,1."},
       {error("ZeroWeight", "1,1")}},
      {"u knots a little and far too low",
       six_by_two("0.,0.,0.,1.,0.875,2.,3.,2.75,3."),
       {1, 0, 1},
       six_by_two("0.,0.,0.,1.,1.,2.,3.,2.75,3."),
       {error("KnotUOutOfSequence", "7,2.75,3")}},
      {"v knots a little and far too low",
       two_by_six("0.,0.,0.,1.,0.875,2.,3.,2.75,3."),
       {1, 0, 1},
       two_by_six("0.,0.,0.,1.,1.,2.,3.,2.75,3."),
       {error("KnotVOutOfSequence", "7,2.75,3")}},
      {"limits around the ranges", {.limits_u = "-1.,3.", .limits_v = "-1.,3."}, {1, 1, 1, 1}, {}, {}},
      {"limits beside the ranges",
       {.limits_u = "-4.,-3.", .limits_v = "3.,4."},
       {0, 1, 1, 1},
       {.limits_u = "-4.,2."},
       {error("MinParamUOutOfRange", "-4,0,2")}},
      {"limits out of sequence", {.limits_u = "1.,1.", .limits_v = "1.,0."}, {1, 1}, {}, {}},
      {"empty range is kept",
       {.knots_v = "1.,1.,1.,1.", .limits_v = "1.,1."},
       {0, 1},
       {.knots_v = "1.,1.,1.,1.", .limits_v = "1.,1."},
       {error("NoVParamRange", "1"), error("TrimParamsVOutOfSequence", "1,1")}},
      {"close u knots",
       six_by_two("0.,0.,0.,1.,1.125,2.875,3.,3.,3."),
       {1},
       six_by_two("0.,0.,0.,1.,1.,3.,3.,3.,3."),
       {}},
      {"close v knots, the first span being one",
       two_by_six("0.,0.,0.,0.125,1.,2.875,3.,3.,3."),
       {1},
       two_by_six("0.,0.,0.,0.125,1.,3.,3.,3.,3."),
       {error("VKnotsTooClose")}},
  };
  const Resource tolerance(kelTolCoincBreakPoints, 0.25);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    igsFile file;
    const igsObject* const entity = read_entity(file, 128, c.surface.data());
    ASSERT_NE(entity, nullptr);
    EXPECT_EQ(fix_all(*entity), c.answers);
    EXPECT_EQ(written_data(file), "128," + c.after.data() + ';');
    EXPECT_EQ(found_by_check(*entity), c.found);
  }
}

TEST(Igs128, ReadsWritesAndPrintsItself) {
  const Surface surface{.flags = "1,0,0,2,1",
                        .knots_u = "0.,0.,0.,2.,2.,2.123456789",
                        .knots_v = "0.,0.,1.,1.",
                        .weights = "1.,2.,3.,4.,5.,0.123456789",
                        .points = "0.,0.,0.,0.123456789,0.,0.,2.,0.,0.,0.,1.,0.,1.,1.,0.,2.,1.,0.",
                        .limits_u = "0.123456789,2."};
  igsFile file;
  ASSERT_NE(read_entity(file, 128, surface.data(), 9), nullptr);
  const igs128& entity = entity_of<igs128>(file);
  EXPECT_EQ(entity.directory_entry().form_number(), 9);
  EXPECT_EQ(written_data(file), "128," + surface.data() + ';');
  EXPECT_EQ(printed_data(entity),
            "NumberOfControlPointsU = 3\nNumberOfControlPointsV = 2\nOrderU = 3\nOrderV = 2\nClosedU = 1(True)\n"
            "ClosedV = 0(False)\nRational = 0(True)\nPeriodicU = 2(Unknown)\nPeriodicV = 1(True)\n"
            "KnotVectorU = {\n\t0,0,0\n\t2,2\n\t2.123456789\n}\nKnotVectorV = {\n\t0,0\n\t1,1\n}\n"
            "ControlPoints = {\n\t(0,0) = (0, 0, 0),1\n\t(1,0) = (0.123456789, 0, 0),2\n\t(2,0) = (2, 0, 0),3\n"
            "\t(0,1) = (0, 1, 0),4\n\t(1,1) = (1, 1, 0),5\n\t(2,1) = (2, 1, 0),0.123456789\n}\n"
            "StartParameterU = 0.123456789\nEndParameterU = 2\nStartParameterV = 0\nEndParameterV = 1\n");
  const Resource precision(kelOptDoubleParametricPrecision, 4);
  EXPECT_EQ(
      written_data(file),
      "128,2,1,2,1,1,0,0,2,1,0.,0.,0.,2.,2.,2.123,0.,0.,1.,1.,1.,2.,3.,4.,5.,0.123456789,0.,0.,0.,0.123456789,0.,0.,"
      "2.,0.,0.,0.,1.,0.,1.,1.,0.,2.,1.,0.,0.1235,2.,0.,1.;");
}

TEST(Igs128, BuiltByAHost) {
  igsFile file;
  auto* const surface = new igs128;
  const Found empty{error("NoConstruct"),
                    error("BadUDegree", "-2147483648"),
                    error("BadVDegree", "-2147483648"),
                    error("BadUSumIndex", "-1"),
                    error("BadVSumIndex", "-1"),
                    error("UnsetTrimmingParams"),
                    error("TrimParamsUOutOfSequence", std::string(lowest) + ',' + lowest),
                    error("TrimParamsVOutOfSequence", std::string(lowest) + ',' + lowest)};
  EXPECT_EQ(found_by_check(*surface), empty);
  EXPECT_EQ(surface->set_knot_u(0, 1) + surface->set_weight(0, 0, 1) + surface->set_control_point(0, 0, {1, 2, 3}), 0);
  constexpr int most = std::numeric_limits<int>::max();
  const int refused[][4] = {{0, 1, 1, 1}, {1, 0, 1, 1},         {3, 1, 2, 1},
                            {1, 3, 1, 2}, {1, 1, 65536, 65536}, {2, 1, most, 1}};
  for (const auto& r : refused) EXPECT_EQ(surface->set_order_size(r[0], r[1], r[2], r[3]), 0) << r[2] << ' ' << r[3];
  EXPECT_EQ(found_by_check(*surface), empty);
  ASSERT_EQ(surface->set_order_size(2, 3, 2, 4), 1);
  EXPECT_EQ(surface->set_order_size(2, 3, 2, 4), 0);
  EXPECT_EQ(surface->number_of_knots_u(), 4);
  EXPECT_EQ(surface->number_of_knots_v(), 7);
  for (const auto& [i, j] : {std::pair(-1, 0), {0, -1}, {1, 3}, {2, 0}, {0, 4}}) {
    const bool exists = i == 1 && j == 3;
    EXPECT_EQ(surface->set_weight(i, j, 10 * i + j), exists) << i << ',' << j;
    EXPECT_EQ(surface->set_control_point(i, j, giPoint3(i, j, 0)), exists) << i << ',' << j;
  }
  EXPECT_EQ(read_fields(*surface, Surface().data()), 0);  // there are arrays already
  double value = 0;
  EXPECT_EQ(surface->weight(1, 3, value), 1);
  EXPECT_EQ(value, 13);
  EXPECT_EQ(surface->weight(1, 2, value), 1);
  EXPECT_EQ(value, -DBL_MAX);
  EXPECT_EQ(surface->set_parametric_limits_u(2, 1) + surface->set_parametric_limits_v(2, 1), 0);
}
}  // namespace
}  // namespace igs_test
