#include "igs/curves/igsSimpleClosedPlanarCurve.h"

#include <gtest/gtest.h>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igsSimpleClosedPlanarCurve_errors.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

TEST(SimpleClosedPlanarCurve, ReadsChecksRepairsAndWritesItself) {
  const std::string lowest = "-1.7976931348623157D+308", name = "igsSimpleClosedPlanarCurve";
  const struct {
    std::string data;
    Found found;  // without the class's name
    int fixed;    // what the repair of the first fault answers
    std::string written;
    Found left;  // what another check finds then
  } cases[] = {
      {"1,4,5.,0.,0.,1.,0.,1.,1.,0.,0.", {}, -1, "1,4,5.,0.,0.,1.,0.,1.,1.,0.,0.", {}},
      {"1,4,5.,0.,0.,1.,0.,1.,1.,0.,0.5", {}, -1, "1,4,5.,0.,0.,1.,0.,1.,1.,0.,0.5", {}},
      {"1,3,5.,0.,0.,1.,0.,0.,1.", {"NotClosed 1 1"}, 1, "1,4,5.,0.,0.,1.,0.,0.,1.,0.,0.", {}},
      {"1,2,5.,0.,0.,1.,0.", {"TooFewPoints 1 2"}, 0, "1,2,5.,0.,0.,1.,0.", {"TooFewPoints 1 2"}},
      {"1,0,5.", {"TooFewPoints 1 0"}, 0, "1,0,5.", {"TooFewPoints 1 0"}},
      {"1,3," + lowest + ",0.,0.,1.,0.,0.,0.", {"InvalidZLevel 1"}, 0, "", {"InvalidZLevel 1"}},
      {"1,3,5.,0.,0.,1.,0.", {"InvalidPoint 1 2"}, 0, "", {"InvalidPoint 1 2"}},
      {"1,3,5.," + lowest + ",0.,1.,0.,0.,0.", {"InvalidPoint 1 0"}, 0, "", {"InvalidPoint 1 0"}},
      {"2,3,0.,0.,5.,1.,0.,5.,0.,0.,5.", {"InvalidDimensionality 1 2"}, 1, "1,3,5.,0.,0.,1.,0.,0.,0.", {}},
  };
  const Resource tolerance(kelTolClosureCurve3d, 0.5);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    const auto named = [&name](Found errors) {
      for (std::string& error : errors) error = name + error;
      return errors;
    };
    IgesBuilder builder;
    builder.entity(106, 63, c.data);
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    const auto& curve = entity_of<igsSimpleClosedPlanarCurve>(file);
    EXPECT_EQ(found_by_check(curve), named(c.found));
    if (c.fixed >= 0) {
      EXPECT_EQ(object_errors(file).at(0)->fix(), c.fixed);
    }
    EXPECT_EQ(found_by_check(curve), named(c.left));
    if (c.written.empty()) continue;
    EXPECT_EQ(written_data(file), "106," + c.written + ';');
    const std::string before = printed_data(curve);
    const std::string text = written(file);
    igsFile again;
    ASSERT_EQ(read_text(again, text), 1);
    EXPECT_EQ(printed_data(*again.entity(1)), before);
  }
}

TEST(SimpleClosedPlanarCurve, AnUnusableCountEndsTheRead) {
  IgesBuilder builder;
  builder.entity(106, 63, "1,-3,5.,0.,0.,1.,0.,0.,0.");
  igsFile file;
  read_text(file, builder.text());
  EXPECT_EQ(file.entity(1), nullptr);
  ASSERT_EQ(object_errors(file).size(), 1U);
  EXPECT_EQ(describe(*object_errors(file).front()), "igsSimpleClosedPlanarCurveBadNumPoints 1 -3");
  EXPECT_TRUE(object_errors(file).front()->isa(igsSimpleClosedPlanarCurveBadNumPoints::type()));
}

TEST(SimpleClosedPlanarCurve, ARepairOfWhatIsGoneFails) {
  igsFile file;
  auto* const curve = new igsSimpleClosedPlanarCurve;
  curve->set_z_level(0);
  curve->set_size(3);
  for (int i = 0; i < 3; ++i) curve->set_planar_point(i, {1.0 * i, 0});
  curve->check();
  igsError* const error = object_errors(file).at(0);
  delete curve;
  EXPECT_EQ(error->fix(), 0);
}
}  // namespace
}  // namespace igs_test
