// Point, Line and Direction.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igs123.h"
#include "igs/curves/igsPolyline.h"

namespace igs_test {
namespace {
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(Igs116, UndefinedIsOnlyWhatTheTestSays) {
  const struct {
    giPoint3 point;
    bool undefined;
  } cases[] = {{{}, true},
               {{-DBL_MAX, 0, 0}, true},
               {{DBL_MAX, 0, 0}, true},
               {{0, DBL_MAX, 0}, true},
               {{0, 0, DBL_MAX}, true},
               {{0, -DBL_MAX, 0}, false},
               {{0, 0, -DBL_MAX}, false},
               {{nan, nan, nan}, false},
               {{infinity, 0, 0}, false}};
  for (const auto& c : cases) {
    SCOPED_TRACE(printed(c.point));
    igsFile file;
    auto* const point = new igs116;
    if (c.undefined) {
      point->set_point({1, 2, 3});
      EXPECT_EQ(point->set_point(c.point), 1);
      EXPECT_EQ(point->point(), giPoint3(1, 2, 3));
    } else {
      EXPECT_EQ(point->set_point(c.point), 1);
      EXPECT_THAT(found_by_check(*point), IsEmpty());
    }
    EXPECT_THAT(found_by_check(*new igs116), ElementsAre("igs116InvalidPoint 3"));
    EXPECT_EQ(object_errors(file).front()->fix(), 0);
  }
}

TEST(Igs116, ReadsWritesAndPrintsItsSymbol) {
  IgesBuilder builder;
  builder.entity(116, 0, "1.,-2.5,3.D5,3");
  builder.entity(116, 0, "4.");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  const igs116& with_symbol = entity_of<igs116>(file, 1);
  const igs116& cut_short = entity_of<igs116>(file, 3);
  EXPECT_EQ(with_symbol.point(), giPoint3(1, -2.5, 3e5));
  EXPECT_EQ(with_symbol.display_symbol().object(), &cut_short);
  EXPECT_EQ(cut_short.point(), giPoint3(4, 0, 0));
  EXPECT_EQ(written_data(file, 1), "116,1.,-2.5,300000.,3;");
  EXPECT_EQ(written_data(file, 3), "116,4.,0.,0.,0;");
  EXPECT_THAT(printed_data(with_symbol),
              testing::StartsWith("Coordinates = (1, -2.5, 3e+05)\nDisplaySymbol = {\n\t@3(116) = {\n"));
  EXPECT_EQ(printed_data(cut_short), "Coordinates = (4, 0, 0)\nDisplaySymbol = {\n\t(NullPointer)\n}\n");

  delete file.entity(3);
  EXPECT_EQ(with_symbol.display_symbol().object(), nullptr);
  EXPECT_EQ(written_data(file, 1), "116,1.,-2.5,300000.,0;");
}

TEST(Igs110, ChecksEndPoints) {
  const struct {
    giPoint3 start, end;
    std::vector<std::string> found;
  } cases[] = {
      {{0, 0, 0}, {1, 0, 0}, {}},
      {{}, {1, 0, 0}, {"igs110InvalidStartPoint 1"}},
      {{}, {}, {"igs110InvalidStartPoint 1", "igs110InvalidEndPoint 1"}},
      {{1, 2, 3}, {1, 2, 3}, {"igs110CoincidentPoints 1 0.25"}},
      {{0, 0, 0}, {0, 0.25, 0}, {"igs110CoincidentPoints 1 0.25"}},
      {{0, 0, 0}, {0, 0.26, 0}, {}},
      {{nan, 0, 0}, {nan, 0, 0}, {}},
      {{infinity, 0, 0}, {infinity, 0, 0}, {}},
  };
  const Resource tolerance(kelTolZeroLength, 0.25);
  for (const auto& c : cases) {
    SCOPED_TRACE(printed(c.start) + printed(c.end));
    igsFile file;
    auto* const line = new igs110;
    EXPECT_EQ(line->set_start_point(c.start), 1);
    EXPECT_EQ(line->set_end_point(c.end), 1);
    EXPECT_EQ(found_by_check(*line), c.found);
    EXPECT_EQ(line->set_start_point(giPoint3()), 1);
    EXPECT_EQ(line->set_end_point(giPoint3()), 1);
    EXPECT_EQ(printed(line->start_point()), printed(c.start));
    EXPECT_EQ(printed(line->end_point()), printed(c.end));
  }
}

TEST(Igs110, CoincidentLineBecomesAPolylineWithItsAttributes) {
  IgesBuilder builder;
  De de;
  de.level = 7;
  de.colour = 3;
  de.status = "01010100";
  builder.entity(110, 0, "1.,2.,3.,1.,2.,3.", de);
  builder.entity(116, 0, "0.,0.,0.,1");
  igsFile file;
  ASSERT_EQ(read_text(file, builder.text()), 1);
  EXPECT_EQ(printed_data(entity_of<igs110>(file)), "StartPoint = (1, 2, 3)\nEndPoint = (1, 2, 3)\n");
  EXPECT_EQ(fix_the_fault(*file.entity(1)), 1);

  const igsPolyline& polyline = entity_of<igsPolyline>(file);
  EXPECT_EQ(entity_of<igs116>(file, 3).display_symbol().object(), &polyline);
  const igsDirectoryEntry& entry = polyline.directory_entry();
  EXPECT_EQ(entry.entity_type(), igsEntity106);
  EXPECT_EQ(entry.form_number(), 12);
  EXPECT_EQ(entry.level().level(), 7);
  EXPECT_EQ(entry.colour().colour_value(), 3);
  EXPECT_EQ(entry.status_flags(), igsStatusFlags(1, 1, 1, 0));
  EXPECT_EQ(file.num_entities(), 2);
  EXPECT_THAT(found_by_check(polyline), IsEmpty());
  EXPECT_EQ(written_data(file), "106,2,2,1.,2.,3.,1.,2.,3.;");
}

TEST(Igs123, HasItsOwnDirectoryCheckAndFormat) {
  igsFile file;
  auto* const direction = new igs123;
  EXPECT_THAT(found_by_check(*direction), ElementsAre("igs123NoConstruct 1"));
  EXPECT_EQ(object_errors(file).front()->fix(), 0);
  direction->set_direction({0.123456789, nan, -DBL_MAX});
  EXPECT_THAT(found_by_check(*direction), IsEmpty());

  direction->set_direction({0.123456789, 0, 1});
  auto* const line = new igs110;
  line->set_start_point({0.123456789, 0, 0});
  line->set_end_point({0, 0, 1});
  const Resource precision(kelOptDoubleParametricPrecision, 4);
  EXPECT_EQ(written_data(file, 1), "123,0.1235,0.,1.;");
  EXPECT_EQ(written_data(file, 3), "110,0.123456789,0.,0.,0.,0.,1.;");
  EXPECT_EQ(printed_data(*direction), "Direction = (0.123456789, 0, 1)\n");

  igsDirectoryEntry& entry = direction->directory_entry();
  entry.set_line_font(igsLineFont(6));
  entry.set_level(igsLevel(-3));
  entry.set_matrix(line);
  entry.set_colour(igsColour(9));
  entry.set_status_flags({2, 0, 0, 0});
  entry.set_line_weight(-1);
  entry.set_entity_subscript(-1);
  EXPECT_THAT(found_by_check(*direction),
              ElementsAre(HasSubstr("igsDEInvalidLineFont 1"), HasSubstr("igsDEInvalidLevel 1"),
                          HasSubstr("igsDEInvalidColour 1"), HasSubstr("igsDEInvalidStatusFlags 1"),
                          HasSubstr("igsDEInvalidEntitySubscript 1")));
}
}  // namespace
}  // namespace igs_test
