// Parametric Spline Curve and Parametric Spline Surface.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include "geometry/spline_fixture.h"
#include "igs/curves/igs112.h"
#include "igs/surfaces/igs114.h"

namespace igs_test {
namespace {
using testing::HasSubstr;
using testing::StartsWith;

/// "first,first + 1,...": `count` numbers as a file writes them.
std::string numbers(int first, int count) {
  std::string all;
  for (int i = 0; i < count; ++i) all += (i > 0 ? "," : "") + std::to_string(first + i) + '.';
  return all;
}

/// The fields of a curve of two segments, sound.
struct Curve {
  std::string flags = "3,1,3";
  std::string count = "2";
  std::string break_points = "0.,1.,3.";
  std::string segments = numbers(0, 24);
  std::string end = numbers(100, 12);

  std::string data() const { return flags + ',' + count + ',' + break_points + ',' + segments + ',' + end; }
};

/// The fields of a surface of two by one patches, sound.
struct Surface {
  std::string flags = "3,1";
  std::string counts = "2,1";
  std::string break_points_u = "0.,1.,3.";
  std::string break_points_v = "5.,6.";
  std::string patches = numbers(0, 6 * 48);

  std::string data() const {
    return flags + ',' + counts + ',' + break_points_u + ',' + break_points_v + ',' + patches;
  }
};

Found errors(const std::string& type, const Found& words) {
  Found all;
  for (const std::string& word : words) all.push_back("igs" + type + word);
  return all;
}

TEST(Igs112, Checks) {
  const std::string unset = lowest;
  const struct {
    Curve curve;
    Found found;
  } cases[] = {
      {{}, {}},
      {{.flags = "6,3,3"}, {}},
      {{.flags = "0,4,1"}, {"InvalidSplineType 1 0", "InvalidContinuity 1 4", "InvalidDimension 1 1"}},
      {{.flags = "7,-1,4"}, {"InvalidSplineType 1 7", "InvalidContinuity 1 -1", "InvalidDimension 1 4"}},
      {{.break_points = ",1.,3."}, {"UnsetBreakPoint 1 0"}},
      {{.break_points = "0.,,3."}, {"UnsetBreakPoint 1 1", "BreakPointOutOfSequence 1 1," + unset + ",0"}},
      {{.break_points = ",,"}, {"UnsetBreakPoint 1 0", "UnsetBreakPoint 1 1", "UnsetBreakPoint 1 2"}},
      {{.break_points = "2.,1.,1.5"}, {"BreakPointOutOfSequence 1 1,1,2", "BreakPointOutOfSequence 1 2,1.5,2"}},
      {{.break_points = "1.,1.,1."}, {"BreakPointsTooClose 1"}},
      {{.break_points = "0.,3.,3.000000001"}, {"BreakPointsTooClose 1"}},
      {{.segments = "0.,,2.," + numbers(3, 21)}, {"UnsetCoefficient 1 0"}},
      {{.segments = numbers(0, 23) + ','}, {"UnsetCoefficient 1 1"}},
      {{.flags = "3,1,2"}, {"NotPlanar 1 0"}},
      {{.flags = "3,1,2", .segments = repeated("1.,2.,3.,4.,1.,2.,3.,4.,5.,0.,-1.D-7,0.", 2)}, {}},
      {{.flags = "3,1,2", .segments = repeated("0.", 23) + ",-1.D-5"}, {"NotPlanar 1 1"}},
      {{.flags = "3,1,2", .segments = repeated("0.", 23) + ','}, {"UnsetCoefficient 1 1"}},
      {{.end = repeated("", 12)}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.curve.data());
    EXPECT_EQ(found_in(112, c.curve.data()), errors("112", c.found));
  }
}

TEST(Igs114, Checks) {
  const std::string unset = lowest;
  const struct {
    Surface surface;
    Found found;
  } cases[] = {
      {{}, {}},
      {{.flags = "0,-1"}, {"InvalidSplineType 1 0", "InvalidPatchType 1 -1"}},
      {{.flags = "7,2"}, {"InvalidSplineType 1 7", "InvalidPatchType 1 2"}},
      {{.break_points_u = "0.,,3."}, {"UnsetUBreakPoint 1 1", "UBreakPointOutOfSequence 1 1," + unset + ",0"}},
      {{.break_points_u = "0.,2.,1."}, {"UBreakPointOutOfSequence 1 2,1,2"}},
      {{.break_points_u = "0.,0.,0.", .break_points_v = "2.,2."}, {"UBreakPointsTooClose 1", "VBreakPointsTooClose 1"}},
      {{.break_points_v = ","}, {"UnsetVBreakPoint 1 0", "UnsetVBreakPoint 1 1"}},
      {{.break_points_v = "2.,1."}, {"VBreakPointOutOfSequence 1 1,1,2"}},
      {{.patches = "," + numbers(0, 287)}, {"UnsetCoefficient 1 0,0"}},
      {{.patches = numbers(0, 143) + ",," + numbers(0, 144)}, {"UnsetCoefficient 1 1,0"}},
      // Patches without a meaning.
      {{.patches = numbers(0, 48) + ',' + repeated("", 48) + ',' + numbers(0, 48) + ',' + repeated("", 144)}, {}},
      {{.patches = numbers(0, 144)}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.surface.data());
    EXPECT_EQ(found_in(114, c.surface.data()), errors("114", c.found));
  }
}

TEST(ParametricSplines, Repairs) {
  const std::string close = "0.,1.,.9999999999";
  const struct {
    int type;
    std::string data;
    std::vector<int> answers;
    Found left;
  } cases[] = {
      {112, Curve{.flags = "0,4,1"}.data(), {1, 1, 1}, {}},
      {112, Curve{.flags = "3,1,2"}.data(), {1}, {}},
      {112, Curve{.break_points = "0.,1.,.5"}.data(), {0}, {"igs112BreakPointOutOfSequence 1 2,0.5,1"}},
      {112,
       Curve{.break_points = "0.,,3."}.data(),
       {0, 0},
       {"igs112UnsetBreakPoint 1 1", "igs112BreakPointOutOfSequence 1 1," + std::string(lowest) + ",0"}},
      // In sequence, but now equal, which is a fault that stays.
      {112, Curve{.break_points = close}.data(), {1}, {"igs112BreakPointsTooClose 1"}},
      {112, Curve{.break_points = "0.,1.,1."}.data(), {0}, {"igs112BreakPointsTooClose 1"}},
      {114, Surface{.flags = "0,2"}.data(), {1, 1}, {}},
      {114, Surface{.break_points_u = close}.data(), {1}, {"igs114UBreakPointsTooClose 1"}},
      {114, Surface{.break_points_v = "1.,.9999999999"}.data(), {1}, {"igs114VBreakPointsTooClose 1"}},
      {114, Surface{.break_points_v = "1.,.5"}.data(), {0}, {"igs114VBreakPointOutOfSequence 1 1,0.5,1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data.substr(0, 40));
    igsFile file;
    const igsObject* const spline = read_entity(file, c.type, c.data);
    EXPECT_EQ(fix_all(*spline), c.answers);
    EXPECT_EQ(found_by_check(*spline), c.left);
  }
  igsFile file;
  const igsObject* const curve = read_entity(file, 112, Curve{.flags = "0,4,1"}.data());
  fix_all(*curve);
  EXPECT_THAT(written_data(file), StartsWith("112,3,0,3,2,"));
  igsFile other;
  fix_all(*read_entity(other, 114, Surface{.flags = "0,2"}.data()));
  EXPECT_THAT(written_data(other), StartsWith("114,3,1,2,1,"));
}

TEST(ParametricSplines, CountsThatCannotBeUsedEndTheRead) {
  const struct {
    int type;
    std::string data, error;
  } cases[] = {
      {112, "", "igs112BadNumSegments 1 0"},
      {112, "3,1,3,-1", "igs112BadNumSegments 1 -1"},
      {112, "3,1,3,2147483647,0.,1.", "igs112BadNumSegments 1 2147483647"},
      {112, "3,1,3,100," + numbers(0, 101) + ',' + numbers(0, 250), "igs112BadNumSegments 1 100"},
      {114, "3,1,0,1,0.", "igs114BadNumUPatches 1 0"},
      {114, "3,1,1,-1,0.", "igs114BadNumVPatches 1 -1"},
      {114, "3,1,2147483647,2147483647,0.", "igs114BadNumUPatches 1 2147483647"},
      {114, "3,1,1,2147483647,0.", "igs114BadNumVPatches 1 2147483647"},
      {114, "3,1,5,6," + numbers(0, 100), "igs114BadNumVPatches 1 6"},
      {114, "3,1,6,5," + numbers(0, 100), "igs114BadNumUPatches 1 6"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data.substr(0, 40));
    const Found found = found_in(c.type, c.data);
    EXPECT_EQ(std::count(found.begin(), found.end(), "dropped"), 1);
    EXPECT_EQ(std::count(found.begin(), found.end(), c.error), 1);
  }
}

TEST(Igs112, ReadsWritesAndPrints) {
  igsFile file;
  const auto& curve = *igs_cast<igs112>(read_entity(file, 112, Curve().data()));
  EXPECT_EQ(written_data(file), "112," + Curve().data() + ';');
  const std::string data = printed_data(curve);
  EXPECT_THAT(data, StartsWith("SplineType = 3\nContinuity = 1\nDimension = 3\nNumberOfSegments = 2\n"
                               "BreakPoints = {\n\t(0) = 0\n\t(1) = 1\n\t(2) = 3\n}\n"
                               "Segments = {\n\t(0) = {\n\t\tX = (0, 1, 2, 3)\n\t\tY = (4, 5, 6, 7)\n"));
  EXPECT_THAT(data, HasSubstr("EndValues = {\n\tX = (100, 101, 102, 103)\n"));
  igsCubicSegment last, none;
  EXPECT_EQ(curve.segment(1, last), 1);
  EXPECT_EQ(last.y, (igsPolynomial<4>({16, 17, 18, 19})));
  EXPECT_EQ(curve.segment(2, none), 0);
  EXPECT_EQ(curve.segment(-1, none), 0);
  EXPECT_EQ(none, igsCubicSegment());
  igsFile again;
  read_text(again, written(file));
  EXPECT_EQ(printed_data(*again.entity(1)), data);
}

TEST(Igs114, ReadsWritesAndPrints) {
  igsFile file;
  const auto& surface = *igs_cast<igs114>(read_entity(file, 114, Surface().data()));
  EXPECT_EQ(written_data(file), "114," + Surface().data() + ';');
  const std::string data = printed_data(surface);
  EXPECT_THAT(data, StartsWith("SplineType = 3\nPatchType = 1\nNumberOfPatchesU = 2\nNumberOfPatchesV = 1\n"
                               "BreakPointsU = {\n\t(0) = 0\n\t(1) = 1\n\t(2) = 3\n}\n"
                               "BreakPointsV = {\n\t(0) = 5\n\t(1) = 6\n}\nPatches = {\n\t(0,0) = {\n\t\tX = (0, 1, "));
  EXPECT_THAT(data, HasSubstr("\t(2,1) = {\n\t\tX = (240, 241, "));
  igsBicubicPatch patch;
  EXPECT_EQ(surface.patch(1, 0, patch), 1);
  EXPECT_EQ(patch.z[4 * 3 + 1], 2 * 48 + 2 * 16 + 13);
  for (const auto& [i, j] : {std::pair(-1, 0), {0, -1}, {3, 0}, {0, 2}}) EXPECT_EQ(surface.patch(i, j, patch), 0);
  igsFile again;
  read_text(again, written(file));
  EXPECT_EQ(printed_data(*again.entity(1)), data);
}

TEST(Igs114, PatchesWithoutAMeaningAreZeroUnlessGiven) {
  igsFile file;
  const auto& surface = *igs_cast<igs114>(read_entity(file, 114, "3,1,1,1,0.,1.,0.,1.," + numbers(1, 50)));
  igsBicubicPatch patch;
  surface.patch(0, 1, patch);
  EXPECT_EQ(patch.x[1], 50);
  EXPECT_EQ(patch.x[2], 0);
  EXPECT_EQ(found_by_check(surface), Found());
  EXPECT_THAT(written_data(file), testing::EndsWith(",48.,49.,50.," + repeated("0.", 142) + ';'));
}

TEST(Igs112, IsBuiltFromScratch) {
  igsFile file;
  auto* const curve = new igs112;
  EXPECT_EQ(found_by_check(*curve), Found{"igs112BadNumSegments 1 0"});
  EXPECT_EQ(curve->set_size(0), 0);
  EXPECT_EQ(curve->set_size(INT_MAX), 0);
  EXPECT_EQ(curve->set_size(1), 1);
  EXPECT_EQ(found_by_check(*curve),
            errors("112", {"UnsetBreakPoint 1 0", "UnsetBreakPoint 1 1", "UnsetCoefficient 1 0"}));
  EXPECT_EQ(curve->set_break_point(0, 0) + curve->set_break_point(1, 2), 2);
  EXPECT_EQ(curve->set_break_point(2, 0) + curve->set_break_point(-1, 0), 0);
  igsCubicSegment segment;
  segment.x = segment.y = segment.z = igsPolynomial<4>({0, 1, 0, 0});
  EXPECT_EQ(curve->set_segment(0, segment), 1);
  EXPECT_EQ(curve->set_segment(1, segment), 0);
  curve->set_end_values(segment);
  EXPECT_EQ(curve->end_values(), segment);
  EXPECT_EQ(found_by_check(*curve), Found());
  EXPECT_EQ(written_data(file), "112,3,0,3,1,0.,2.," + repeated("0.,1.,0.,0.", 6) + ';');
}

TEST(Igs114, IsBuiltFromScratch) {
  igsFile file;
  auto* const surface = new igs114;
  EXPECT_EQ(found_by_check(*surface), errors("114", {"BadNumUPatches 1 0", "BadNumVPatches 1 0"}));
  for (const auto& [m, n] : {std::pair(0, 1), {1, 0}, {INT_MAX, INT_MAX}, {INT_MAX, 1}}) {
    EXPECT_EQ(surface->set_size(m, n), 0);
  }
  EXPECT_EQ(surface->set_size(1, 1), 1);
  EXPECT_EQ(found_by_check(*surface),
            errors("114", {"UnsetUBreakPoint 1 0", "UnsetUBreakPoint 1 1", "UnsetVBreakPoint 1 0",
                           "UnsetVBreakPoint 1 1", "UnsetCoefficient 1 0,0"}));
  for (const int i : {0, 1}) EXPECT_EQ(surface->set_break_point_u(i, i) + surface->set_break_point_v(i, i + 7), 2);
  EXPECT_EQ(surface->set_break_point_u(2, 0) + surface->set_break_point_v(-1, 0), 0);
  double value = 0;
  EXPECT_EQ(surface->break_point_v(1, value), 1);
  EXPECT_EQ(value, 8);
  EXPECT_EQ(surface->break_point_u(1, value), 1);
  EXPECT_EQ(value, 1);
  igsBicubicPatch patch;
  for (igsPolynomial<16>* const polynomial : {&patch.x, &patch.y, &patch.z})
    *polynomial = igsPolynomial<16>(std::array<double, 16>{});
  EXPECT_EQ(surface->set_patch(0, 0, patch), 1);
  EXPECT_EQ(surface->set_patch(0, 2, patch), 0);
  EXPECT_EQ(found_by_check(*surface), Found());
}
}  // namespace
}  // namespace igs_test
