// Copious data as point sets and polylines.

#include "igs/curves/igsPointset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <limits>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igsPolyline.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

/// An entity of type 106 read from its data; the file owns it.
const igsObject* read_copious(igsFile& file, int form, const std::string& data) {
  IgesBuilder builder;
  builder.entity(106, form, data);
  read_text(file, builder.text());
  return file.entity(1);
}

TEST(CopiousData, ReadsChecksPrintsAndWritesItself) {
  const struct {
    const char* what;
    int form;
    const char* data;
    Found found;
    const char* printed;
    const char* written;  // null: as read
  } cases[] = {
      {"planar",
       1,
       "1,2,5.,1.,2.,3.,4.",
       {},
       "Dimensionality = 1\nNumberOfPoints = 2\nZLevel = 5\nPoints = {\n\t(0) = (1, 2)\n\t(1) = (3, 4)\n}\n",
       nullptr},
      {"in space",
       12,
       "2,2,1.,2.,3.,4.,5.,6.",
       {},
       "Dimensionality = 2\nNumberOfPoints = 2\nPoints = {\n\t(0) = (1, 2, 3)\n\t(1) = (4, 5, 6)\n}\n",
       nullptr},
      {"sextuple",
       3,
       "3,1,1.,2.,3.,4.,5.,6.",
       {},
       "Dimensionality = 3\nNumberOfPoints = 1\nPoints = {\n\t(0) = {\n\t\tPoint = (1, 2, 3)\n\t\tVector = (4, 5, "
       "6)\n\t}\n}\n",
       nullptr},
      {"empty fields", 11, "1,2,,,2.,3.,", {}, nullptr, "1,2,0.,0.,2.,3.,0."},
      {"no point", 2, "2,0", {"igsPointsetNoPoints 1"}, nullptr, nullptr},
      {"count omitted", 2, "2", {"igsPointsetNoPoints 1"}, nullptr, "2,0"},
      {"too few", 12, "2,1,1.,2.,3.", {"igsPolylineTooFewPoints 1 1"}, nullptr, nullptr},
      {"equal neighbours", 12, "2,2,1.,2.,3.,1.,2.,3.", {}, nullptr, nullptr},
      {"cut within a point", 12, "2,3,1.,2.,3.,4.", {"igsPolylineInvalidPoint 1 2"}, nullptr, nullptr},
      {"nothing but the count",
       1,
       "1,2,0.",
       {"igsPointsetInvalidPoint 1 0", "igsPointsetInvalidPoint 1 1"},
       nullptr,
       nullptr},
      {"form of another dimensionality", 1, "2,1,1.,2.,3.", {"igsPointsetInconsistForm 1 1,2"}, nullptr, nullptr},
      {"no dimensionality", 12, "7,2,1.,2.,3.,4.,5.,6.", {"igsPolylineInvalidDimensionality 1 7"}, nullptr, nullptr},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    igsFile file;
    const igsObject* const entity = read_copious(file, c.form, c.data);
    ASSERT_NE(entity, nullptr);
    EXPECT_EQ(found_by_check(*entity), c.found);
    if (c.printed != nullptr) {
      EXPECT_EQ(printed_data(*entity), c.printed);
    }
    const std::string expected = std::string("106,") + (c.written != nullptr ? c.written : c.data) + ';';
    if (std::string(c.what).find("cut") == std::string::npos &&
        std::string(c.what).find("nothing") == std::string::npos) {
      EXPECT_EQ(written_data(file), expected);
    }
  }
}

TEST(CopiousData, RepairsFollowTheData) {
  const struct {
    int form;
    const char* data;
    int form_after;
    const char* written;
  } cases[] = {{1, "2,1,1.,2.,3.", 2, "106,2,1,1.,2.,3.;"},
               {13, "1,2,0.,1.,2.,3.,4.", 11, "106,1,2,0.,1.,2.,3.,4.;"},
               {12, "7,2,1.,2.,3.,4.,5.,6.", 12, "106,2,2,1.,2.,3.,4.,5.,6.;"},
               {3, "-1,1,1.,2.,3.,4.,5.,6.", 3, "106,3,1,1.,2.,3.,4.,5.,6.;"}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    igsFile file;
    const igsObject* const entity = read_copious(file, c.form, c.data);
    ASSERT_NE(entity, nullptr);
    EXPECT_EQ(fix_the_fault(*entity), 1);
    EXPECT_EQ(entity->directory_entry().form_number(), c.form_after);
    EXPECT_EQ(found_by_check(*entity), Found());
    EXPECT_EQ(written_data(file), c.written);
  }
}

TEST(CopiousData, CountsAreBelievedInProportionToTheRecord) {
  const auto data = [](int count, int supplied) {
    std::string text = "2," + std::to_string(count);
    for (int i = 0; i < supplied; ++i) text += ",1.,2.,3.";
    return text;
  };
  const struct {
    int count, supplied;
    bool usable;
  } cases[] = {{256, 1, true},    {257, 1, false}, {256, 0, true},         {257, 64, false},        {400, 100, true},
               {401, 100, false}, {-1, 1, false},  {2147483647, 1, false}, {-2147483647, 0, false}, {3, 5, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.count) + " announced, " + std::to_string(c.supplied) + " supplied");
    igsFile file;
    const igsObject* const entity = read_copious(file, 12, data(c.count, c.supplied));
    if (!c.usable) {
      EXPECT_EQ(entity, nullptr);  // nothing was read, so that the reader dropped it
      const std::vector<igsError*> errors = object_errors(file);
      ASSERT_EQ(errors.size(), 1U);
      EXPECT_EQ(describe(*errors[0]), "igsPolylineBadNumPoints 1 " + std::to_string(c.count));
      continue;
    }
    ASSERT_NE(entity, nullptr);
    const auto& polyline = entity_of<igsPolyline>(file);
    EXPECT_EQ(polyline.number_of_points(), c.count);
    EXPECT_EQ(polyline.point(std::min(c.count, c.supplied) - 1).is_undefined(), c.supplied == 0);
    EXPECT_TRUE(polyline.point(std::max(c.count - 1, c.supplied)).is_undefined());
  }
}

TEST(CopiousData, AccessIsByLayoutAndIndex) {
  igsFile file;
  auto* const pointset = new igsPointset;
  EXPECT_EQ(pointset->directory_entry().form_number(), 1);
  EXPECT_EQ((new igsPolyline)->directory_entry().form_number(), 11);
  EXPECT_EQ(pointset->set_size(0, 1), 0);
  EXPECT_EQ(pointset->set_size(4, 1), 0);
  EXPECT_EQ(pointset->set_size(1, -1), 0);
  EXPECT_EQ(pointset->set_size(igsCopiousData::planar, 2), 1);
  EXPECT_EQ(found_by_check(*pointset),
            (Found{"igsPointsetInvalidZLevel 1", "igsPointsetInvalidPoint 1 0", "igsPointsetInvalidPoint 1 1"}));
  for (igsError* error : object_errors(file)) EXPECT_EQ(error->fix(), 0);
  pointset->set_z_level(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(pointset->set_planar_point(0, {0, -DBL_MAX}), 1);
  EXPECT_EQ(pointset->set_planar_point(1, {std::numeric_limits<double>::quiet_NaN(), 0}), 1);
  EXPECT_EQ(found_by_check(*pointset), Found());

  const struct {
    int layout;
    bool takes_planar, takes_points, takes_vectors;
  } cases[] = {{1, true, false, false}, {2, false, true, false}, {3, false, true, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.layout);
    ASSERT_EQ(pointset->set_size(c.layout, 2), 1);
    EXPECT_EQ(pointset->directory_entry().form_number(), c.layout);
    EXPECT_EQ(pointset->dimensionality(), c.layout);
    for (const int i : {-1, 0, 1, 2}) {
      const bool exists = i == 0 || i == 1;
      EXPECT_EQ(pointset->set_planar_point(i, {1, 2}) != 0, exists && c.takes_planar);
      EXPECT_EQ(pointset->set_point(i, {1, 2, 3}) != 0, exists && c.takes_points);
      EXPECT_EQ(pointset->set_vector(i, {4, 5, 6}) != 0, exists && c.takes_vectors);
      EXPECT_EQ(pointset->planar_point(i).is_undefined(), !(exists && c.takes_planar));
      EXPECT_EQ(pointset->point(i).is_undefined(), !(exists && c.takes_points));
      EXPECT_EQ(pointset->vector(i).is_undefined(), !(exists && c.takes_vectors));
    }
  }
}
}  // namespace
}  // namespace igs_test
