// Copious data that drawings consist of: centre lines, sections and witness lines.

#include <gtest/gtest.h>

#include <algorithm>

#include "geometry/geometry_fixture.h"
#include "igs/annotation/igsCentreLine_errors.h"
#include "igs/annotation/igsSection_errors.h"
#include "igs/annotation/igsWitnessLine_errors.h"
#include "igs/curves/igsSimpleClosedPlanarCurve_errors.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

const std::string lowest = "-1.7976931348623157D+308";

const igsObject* read_copious(igsFile& file, int form, const std::string& data) {
  IgesBuilder builder;
  builder.entity(106, form, data);
  read_text(file, builder.text());
  return file.entity(1);
}

/// `#` stands for the class name in what is found. `fixed`: what the repair of the first fault answers, -1 where there
/// is none; `written`: the data after the repair, and `left`: what another check finds then.
struct Case {
  std::string data;
  Found found;
  int fixed;
  std::string written;
  Found left;
};

void run(int form, const std::string& name, const Case& c) {
  SCOPED_TRACE(name + ' ' + c.data);
  const auto named = [&name](Found errors) {
    for (std::string& error : errors) error = error[0] == '#' ? name + error.substr(1) : error;
    return errors;
  };
  igsFile file;
  const igsObject* const entity = read_copious(file, form, c.data);
  ASSERT_NE(entity, nullptr);
  EXPECT_EQ(entity->objtype().id_string(), name);
  EXPECT_EQ(found_by_check(*entity), named(c.found));
  if (c.fixed >= 0) {
    EXPECT_EQ(object_errors(file).at(0)->fix(), c.fixed);
  }
  EXPECT_EQ(written_data(file), "106," + c.written + ';');
  EXPECT_EQ(found_by_check(*entity), named(c.left));
  const std::string before = printed_data(*entity);
  const std::string text = written(file);
  igsFile again;
  ASSERT_EQ(read_text(again, text), 1);
  EXPECT_EQ(printed_data(*again.entity(1)), before);
}

TEST(CopiousAnnotation, PointsAreCheckedRepairedAndWritten) {
  const Case of_pairs[] = {
      {"1,2,5.,1.,2.,3.,4.", {}, -1, "1,2,5.,1.,2.,3.,4.", {}},
      {"1,4,5.,1.,2.,1.,2.,1.,2.,1.,2.", {}, -1, "1,4,5.,1.,2.,1.,2.,1.,2.,1.,2.", {}},
      {"1,0,5.", {"#BadNumPoints 1 0"}, 0, "1,0,5.", {"#BadNumPoints 1 0"}},
      {"1,1,5.,1.,2.", {"#BadNumPoints 1 1"}, 0, "1,1,5.,1.,2.", {"#BadNumPoints 1 1"}},
      {"1,3,5.,1.,2.,3.,4.,5.,6.", {"#BadNumPoints 1 3"}, 1, "1,2,5.,1.,2.,3.,4.", {}},
      {"2,2,1.,2.,5.,3.,4.,7.", {"#InvalidDimensionality 1 2"}, 1, "1,2,5.,1.,2.,3.,4.", {}},
      {"3,2,1.,2.,5.,9.,9.,9.,3.,4.,5.,9.,9.,9.", {"#InvalidDimensionality 1 3"}, 1, "1,2,5.,1.,2.,3.,4.", {}},
      {"0,2,5.,1.,2.,3.,4.", {"#InvalidDimensionality 1 0"}, 1, "1,2,5.,1.,2.,3.,4.", {}},
  };
  const Case of_witness_lines[] = {
      {"1,3,5.,0.,0.,1.,0.,2.,0.", {}, -1, "1,3,5.,0.,0.,1.,0.,2.,0.", {}},
      {"1,5,5.,0.,0.,0.,0.,2.,0.,3.,0.,4.,0.", {}, -1, "1,5,5.,0.,0.,0.,0.,2.,0.,3.,0.,4.,0.", {}},
      {"1,4,5.,0.,0.,1.,0.,2.,0.,3.,0.",
       {"#BadNumPoints 1 4"},
       0,
       "1,4,5.,0.,0.,1.,0.,2.,0.,3.,0.",
       {"#BadNumPoints 1 4"}},
      {"1,1,5.,0.,0.", {"#BadNumPoints 1 1"}, 0, "1,1,5.,0.,0.", {"#BadNumPoints 1 1"}},
      {"1,3,5.,0.,0.,1.,1.,0.,0.05",
       {"#CoincidentPoints 1 0.1"},
       1,
       "1,3,5.,0.,0.,1.,1.,0.,0.05",
       {"#CoincidentPoints 1 0.1"}},
      // Off the line through (0, 0) and (3, 4) by 0.25, 0.75 and 0.2.
      {"1,5,5.,0.,0.,-0.2,0.15,-0.6,0.45,0.16,-0.12,3.,4.",
       {"#NotCollinear 1 2,0.75"},
       1,
       "1,5,5.,0.,0.,-0.2,0.15,-0.6,0.45,0.16,-0.12,3.,4.",
       {"#NotCollinear 1 2,0.75"}},
      {"1,3,5.,0.,0.,1.,0.1,2.,0.", {}, -1, "1,3,5.,0.,0.,1.,0.1,2.,0.", {}},
  };
  const Resource tolerance(kelTolCoincPoint2d, 0.1);
  for (const Case& c : of_pairs) {
    run(21, "igsCentreLine", c);
    run(38, "igsSection", c);
  }
  for (const Case& c : of_witness_lines) run(40, "igsWitnessLine", c);
}

TEST(CopiousAnnotation, WhatIsUndefinedIsReportedAndNothingElse) {
  const struct {
    std::string data;
    Found found;
  } cases[] = {
      {"1,4," + lowest + ",0.,0.,0.,0.,0.,0.,0.,0.", {"InvalidZLevel 1"}},
      {"1,4,0.,0.,0.," + lowest + ",0.,0.,0.,0.,0.", {"InvalidPoint 1 1"}},
      {"1,4,0.,0.,0.,1.,1.", {"InvalidPoint 1 2", "InvalidPoint 1 3"}},
      {"2,4",
       {"InvalidDimensionality 1 2", "InvalidZLevel 1", "InvalidPoint 1 0", "InvalidPoint 1 1", "InvalidPoint 1 2",
        "InvalidPoint 1 3"}},
  };
  const std::pair<int, std::string> classes[] = {{20, "igsCentreLine"}, {31, "igsSection"}, {40, "igsWitnessLine"}};
  for (const auto& [form, name] : classes) {
    for (const auto& c : cases) {
      SCOPED_TRACE(name + ' ' + c.data);
      Found expected;
      for (const std::string& error : c.found) expected.push_back(name + error);
      if (form == 40) {  // 4 points are too many or too few for it; its line is not looked at
        const auto first_point = std::find_if(expected.begin(), expected.end(), [](const std::string& error) {
          return error.find("InvalidPoint") != std::string::npos;
        });
        expected.insert(first_point, name + "BadNumPoints 1 4");
      }
      igsFile file;
      Found found = found_by_check(*read_copious(file, form, c.data));
      std::erase(found, "igsWitnessLineCoincidentPoints 1 0.0001");  // where all points are defined
      EXPECT_EQ(found, expected);
      for (igsError* error : object_errors(file)) {
        const bool accepted = describe(*error).find("Dimensionality") != std::string::npos ||
                              error->isa(igsWitnessLineCoincidentPoints::type());
        EXPECT_EQ(error->fix(), accepted ? 1 : 0);
      }
    }
    for (const char* count : {"-1", "257", "2147483647"}) {
      igsFile file;
      EXPECT_EQ(read_copious(file, form, "1," + std::string(count) + ",5.,1.,2.,3.,4."), nullptr);
      const std::vector<igsError*> errors = object_errors(file);
      ASSERT_EQ(errors.size(), 1U);
      EXPECT_EQ(describe(*errors[0]), name + "BadNumPoints 1 " + count);
      EXPECT_EQ(errors[0]->fix(), 0);
    }
  }
}

TEST(CopiousAnnotation, DimensionalityOneIsWrittenEvenUnrepaired) {
  igsFile file;
  const igsObject* const section = read_copious(file, 31, "2,2,1.,2.,5.,3.,4.,7.");
  EXPECT_EQ(written_data(file), "106,1,2,5.,1.,2.,3.,4.;");
  EXPECT_EQ(printed_data(*section),
            "Dimensionality = 1\nNumberOfPoints = 2\nZLevel = 5\nPoints = {\n\t(0) = (1, 2)\n\t(1) = (3, 4)\n}\n");
  EXPECT_EQ(found_by_check(*section), Found{"igsSectionInvalidDimensionality 1 2"});
}

TEST(CopiousAnnotation, MadeByHand) {
  igsFile file;
  auto* const line = new igsWitnessLine;
  EXPECT_EQ(line->directory_entry().form_number(), 40);
  EXPECT_EQ((new igsCentreLine)->directory_entry().form_number(), 20);
  EXPECT_EQ((new igsSection)->directory_entry().form_number(), 31);
  EXPECT_EQ(found_by_check(*line), (Found{"igsWitnessLineInvalidZLevel 1", "igsWitnessLineBadNumPoints 1 0"}));
  line->set_z_level(2);
  EXPECT_EQ(line->set_size(-1), 0);
  EXPECT_EQ(line->set_size(2), 1);
  line->set_planar_point(0, {0, 0});
  line->set_planar_point(1, {1, 1});
  line->append_point({2, 2});
  EXPECT_EQ(line->check(), 1);
  EXPECT_EQ(written_data(file), "106,1,3,2.,0.,0.,1.,1.,2.,2.;");
  for (int left = 2; left >= -1; --left) line->remove_last_point();
  EXPECT_EQ(line->number_of_points(), 0);
}

template <class... Errors>
std::string names_of() {
  std::string names;
  ((names += Errors::type().id_string() + ", "), ...);
  return names;
}

TEST(CopiousAnnotation, ErrorsAreCalledInReportsAsInCode) {
#define SAME_NAMES(...) EXPECT_EQ((names_of<__VA_ARGS__>()), #__VA_ARGS__ ", ")
  SAME_NAMES(igsCentreLineInvalidDimensionality, igsCentreLineInvalidZLevel, igsCentreLineBadNumPoints,
             igsCentreLineInvalidPoint);
  SAME_NAMES(igsSectionInvalidDimensionality, igsSectionInvalidZLevel, igsSectionBadNumPoints, igsSectionInvalidPoint);
  SAME_NAMES(igsWitnessLineInvalidDimensionality, igsWitnessLineInvalidZLevel, igsWitnessLineBadNumPoints,
             igsWitnessLineInvalidPoint);
  SAME_NAMES(igsSimpleClosedPlanarCurveInvalidDimensionality, igsSimpleClosedPlanarCurveInvalidZLevel,
             igsSimpleClosedPlanarCurveBadNumPoints, igsSimpleClosedPlanarCurveInvalidPoint);
#undef SAME_NAMES
}
}  // namespace
}  // namespace igs_test
