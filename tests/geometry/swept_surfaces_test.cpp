// Ruled Surface, Surface of Revolution, Tabulated Cylinder, Offset Curve and Offset Surface.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "geometry/spline_fixture.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs130.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/surfaces/igs118.h"
#include "igs/surfaces/igs120.h"
#include "igs/surfaces/igs122.h"
#include "igs/surfaces/igs140.h"

namespace igs_test {
namespace {
using testing::ElementsAre;
using testing::HasSubstr;

// What the entity under test, DE 1, may refer to.
constexpr int line = 3, bad_line = 5, point = 7, pointset = 9, cylinder = 11, bad_cylinder = 13;

/// A file of the entity under test and of all of these.
std::string file_with(int type, const std::string& data, int form = 0) {
  IgesBuilder builder;
  builder.entity(type, form, data);
  builder.line(4);
  builder.line(0);
  builder.point();
  builder.entity(106, 2, "2,2,0.,0.,0.,4.,5.,6.");
  builder.entity(122, 0, "3,0.,0.,5.");
  builder.entity(122, 0, "0,0.,0.,5.");
  builder.entity(106, 12, "2,2,0.,0.,1.,4.,5.,6.");
  builder.entity(106, 11, "1,2,7.,0.,1.,4.,5.");
  builder.entity(110, 0, "0.,0.,0.,4.,0.,0.", {.matrix = 21});
  builder.entity(124, 0, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,9.");
  return builder.text();
}

/// What a check finds in entity 1 itself.
Found faults_of_1(const igsFile& file) {
  Found found;
  for (const std::string& fault : found_by_check(*file.entity(1))) {
    if (fault.find(" 1") == fault.find(' ') && (fault + ' ').find(" 1 ") != std::string::npos) found.push_back(fault);
  }
  return found;
}

igsError& only_fault_of_1(const igsFile& file) {
  for (igsError* const error : object_errors(file)) {
    if (static_cast<igsObjectError*>(error)->key() == 1) return *error;
  }
  throw std::runtime_error("no fault");
}

/// A pointer field: the fields before it and behind it, its name, and what it may refer to and what not.
struct Reference {
  int type;
  std::string before, after, name;
  int sound, faulty, wrong;
  bool converts = true;

  std::string data(int de) const { return before + std::to_string(de) + after; }
  Found error(const char* word, const char* end = "") const {
    return {"igs" + std::to_string(type) + word + name + end + " 1"};
  }
};

const Reference references[] = {
    {118, "", ",3,0,0", "FirstCurve", line, bad_line, pointset},
    {118, "", ",3,0,0", "FirstCurve", point, bad_line, pointset},
    {118, "3,", ",0,0", "SecondCurve", line, bad_line, pointset},
    {118, "3,", ",0,0", "SecondCurve", point, bad_line, cylinder, false},
    {120, "", ",3,0.,1.", "Axis", line, bad_line, pointset, false},
    {120, "", ",3,0.,1.", "Axis", line, bad_line, 15, false},  // a polyline is no axis
    {120, "3,", ",0.,1.", "Generator", line, bad_line, pointset},
    {120, "3,", ",0.,1.", "Generator", 15, bad_line, point, false},
    {122, "", ",0.,0.,5.", "Directrix", line, bad_line, pointset},
    {130, "", ",1,0,0,0,1.,0.,0.,0.,0.,0.,1.,0.,1.", "BaseCurve", line, bad_line, pointset},
    {130, "3,3,", ",1,2,0.,0.,0.,0.,0.,0.,1.,0.,1.", "OffsetFunction", line, bad_line, pointset, false},
    {140, "0.,0.,1.,-2.,", "", "Surface", cylinder, bad_cylinder, line, false},
};

class EachReference : public testing::TestWithParam<Reference> {};

TEST_P(EachReference, IsTested) {
  const Reference& reference = GetParam();
  const auto faults = [&reference](int de) {
    igsFile file;
    read_text(file, file_with(reference.type, reference.data(de)));
    return faults_of_1(file);
  };
  EXPECT_EQ(faults(reference.sound), Found());
  EXPECT_EQ(faults(0), reference.error("Null"));
  EXPECT_EQ(faults(reference.wrong), reference.error("Wrong", "Type"));
  EXPECT_EQ(faults(reference.faulty), reference.error("Invalid"));
}

TEST_P(EachReference, IsRepairedByConversion) {
  const Reference& reference = GetParam();
  for (const bool shared : {false, true}) {
    igsFile file;
    read_text(file, file_with(reference.type, reference.data(reference.wrong)));
    const igsObjectPtr holder = shared ? igsObjectPtr(file.entity(pointset)) : igsObjectPtr();
    file.check();
    igsError& error = only_fault_of_1(file);
    EXPECT_EQ(error.fix(), reference.converts ? 1 : 0);
    EXPECT_EQ(error.fix(), 0);
    EXPECT_EQ(faults_of_1(file), reference.converts ? Found() : reference.error("Wrong", "Type"));
    EXPECT_EQ(file.entity(pointset)->isa(igsPointset::type()), shared || !reference.converts);
  }
}

TEST_P(EachReference, IsCleanOnceItsTargetIs) {
  const Reference& reference = GetParam();
  igsFile file;
  read_text(file, file_with(reference.type, reference.data(reference.faulty)));
  file.check();
  auto& error = static_cast<igsObjectError&>(only_fault_of_1(file));
  EXPECT_EQ(error.obj(), reference.faulty);
  EXPECT_EQ(error.fix(), 0);
  entity_of<igs110>(file, bad_line).set_end_point(giPoint3(1, 1, 1));
  entity_of<igs122>(file, bad_cylinder).set_directrix(file.entity(line));
  file.entity(reference.faulty)->check();
  EXPECT_EQ(error.fix(), 1);
}

INSTANTIATE_TEST_SUITE_P(Swept, EachReference, testing::ValuesIn(references), [](const auto& info) {
  return std::to_string(info.param.type) + info.param.name + "_" + std::to_string(info.index);
});

TEST(SweptSurfaces, ValuesAreChecked) {
  const std::string offset = ",0.,0.,0.,0.,0.,0.,1.,0.,1.";
  const struct {
    int type;
    std::string data;
    Found found;
  } cases[] = {
      {118, "3,3,1,1", {}},
      {118, "3,3", {}},
      {118, "3,3,2,-1", {"igs118InvalidDirectionFlag 1 2", "igs118InvalidDevelopableFlag 1 -1"}},
      {118, "7,7,0,0", {"igs118OnlyPoints 1"}},
      {120, "3,3,-3.25,.0625", {}},
      {120, "3,3,3.625,6.75", {}},
      {120, "3,3,0.,6.283185307179590", {}},
      {120, "3,3", {"igs120CoincidentAngles 1 0,0"}},
      {120, "3,3,1.,.999999", {"igs120CoincidentAngles 1 1,0.999999"}},
      {120, "3,3,1.,.5", {"igs120AnglesOutOfSequence 1 1,0.5"}},
      {120, "3,3,0.,6.5", {"igs120AngleRangeTooLarge 1 0,6.5"}},
      {122, "3,0.,0.,1.D-7", {"igs122CoincidentPoints 1 1e-06"}},
      {122, "3,0.,0.,1.D-5", {}},
      {122, "15,0.,0.,1.", {"igs122CoincidentPoints 1 1e-06"}},
      {122, "17,0.,1.,7.", {"igs122CoincidentPoints 1 1e-06"}},
      {122, "17,0.,1.,0.", {}},
      {122, "19,0.,0.,0.", {}},  // its matrix takes the directrix elsewhere
      {130, "3,1,0,0,0" + offset, {}},
      {130, "3,1,0,9,9" + offset, {}},  // fields that do not apply
      {130, "3,2,0,0,1" + offset, {}},
      {130, "3,2,0,0,0" + offset, {"igs130InvalidTaperType 1 0"}},
      {130, "3,3,3,0,3" + offset, {"igs130InvalidCoordinate 1 0", "igs130InvalidTaperType 1 3"}},
      {130, "3,3,3,4,2" + offset, {"igs130InvalidCoordinate 1 4"}},
      {130, "3,0,0,9,9" + offset, {"igs130InvalidOffsetType 1 0"}},
      {130, "3,4,0,0,0" + offset, {"igs130InvalidOffsetType 1 4"}},
      {130, "3,1", {"igs130ZeroNormal 1", "igs130ParamsOutOfSequence 1 0,0"}},
      {130, "3,1,0,0,0,0.,0.,0.,0.,0.,3.,4.,2.,1.", {"igs130NormalNotUnit 1 5", "igs130ParamsOutOfSequence 1 2,1"}},
      {140, "0.,0.,-3.,0.,11", {}},
      {140, "0.,0.,1.D-7,0.,11", {"igs140ZeroIndicator 1"}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.type) + ',' + c.data);
    igsFile file;
    ASSERT_EQ(read_text(file, file_with(c.type, c.data)), 1);
    EXPECT_EQ(faults_of_1(file), c.found);
  }
}

TEST(SweptSurfaces, ANewOneReportsWhatItLacks) {
  const struct {
    int type;
    Found found;
  } cases[] = {
      {118, {"igs118NullFirstCurve 1", "igs118NullSecondCurve 1"}},
      {120, {"igs120NullAxis 1", "igs120NullGenerator 1", "igs120InvalidAngles 1"}},
      {122, {"igs122NullDirectrix 1", "igs122InvalidTerminatePoint 1"}},
      {130, {"igs130NullBaseCurve 1", "igs130ZeroNormal 1", "igs130ParamsOutOfSequence 1 0,0"}},
      {140, {"igs140ZeroIndicator 1", "igs140InvalidDistance 1", "igs140NullSurface 1"}},
  };
  for (const auto& c : cases) {
    igsFile file;
    EXPECT_EQ(found_by_check(*igsObject::create(static_cast<igsEntityType>(c.type), 0)), c.found);
    for (igsError* const error : object_errors(file)) EXPECT_EQ(error->fix(), 0) << describe(*error);
  }
  igsFile file;
  EXPECT_EQ((new igs122)->set_terminate_point(giPoint3()), 0);
  EXPECT_EQ((new igs130)->set_normal(giVector3()), 0);
  EXPECT_EQ((new igs140)->set_indicator(giVector3()), 0);
}

TEST(SweptSurfaces, ValuesAreRepaired) {
  const std::string start = "130,3,1,0,0,0,0.,0.,0.,0.,";
  const struct {
    int type;
    std::string data, repaired;
  } cases[] = {
      {118, "3,3,2,0", "118,3,3,0,0;"},
      {118, "3,3,1,7", "118,3,3,1,0;"},
      {120, "3,3,1.,.5", "120,3,3,1.,6.78318530717959;"},
      {120, "3,3,0.,-20.", "120,3,3,0.,5.13274122871834;"},
      {120, "3,3,0.,-6.283185307179586", "120,3,3,0.,6.28318530717959;"},
      {120, "3,3,0.,-6.283185", "120,3,3,0.,6.28318530717959;"},  // next to nothing, or a full turn
      {120, "3,3,-1.,1.D300", "120,3,3,-1.,5.28318530717959;"},
      {130, "3,1,0,0,0,0.,0.,0.,0.,0.,3.,4.,0.,1.", start + "0.,0.6,0.8,0.,1.;"},
      {130, "3,1,0,0,0,0.,0.,0.,0.,1.000002,0.,0.,0.,1.", start + "1.,0.,0.,0.,1.;"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::to_string(c.type) + ',' + c.data);
    igsFile file;
    read_text(file, file_with(c.type, c.data));
    file.check();
    EXPECT_EQ(only_fault_of_1(file).fix(), 1);
    EXPECT_EQ(faults_of_1(file), Found());
    EXPECT_EQ(written_data(file), c.repaired);
  }
}

TEST(SweptSurfaces, ValuesBeyondRepairStay) {
  const struct {
    int type;
    std::string data, error;
  } cases[] = {
      {120, "3,3,0.,1.D-6", "igs120CoincidentAngles"},
      {120, "3,3,1.D300,0.", "igs120AnglesOutOfSequence"},  // a turn is nothing there
      {120, "3,3,1.D17,1.D18", "igs120AngleRangeTooLarge"},
      {120, "3,3,0.,-1.D999", "igs120AnglesOutOfSequence"},
      {120, "3,3,-1.D999,0.", "igs120AngleRangeTooLarge"},
      {130, "3,1,0,0,0,0.,0.,0.,0.,1.D999,0.,0.,0.,1.", "igs130NormalNotUnit"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    igsFile file;
    read_text(file, file_with(c.type, c.data));
    file.check();
    const std::string before = printed_data(*file.entity(1));
    igsError& error = only_fault_of_1(file);
    EXPECT_EQ(error.objtype().id_string(), c.error);
    EXPECT_EQ(error.fix(), 0);
    EXPECT_EQ(printed_data(*file.entity(1)), before);
  }
}

TEST(SweptSurfaces, AnglesAreHeldAgainstTheHostsTolerance) {
  const Resource tolerance(kelTolCoincAngles, 0.25);
  igsFile file;
  read_text(file, file_with(120, "3,3,0.,.125"));
  EXPECT_THAT(faults_of_1(file), ElementsAre("igs120CoincidentAngles 1 0,0.125"));
  entity_of<igs120>(file).set_terminate_angle(6.5);
  EXPECT_EQ(faults_of_1(file), Found());
}

TEST(SweptSurfaces, ReadWriteAndPrint) {
  const struct {
    int type, form;
    std::string data, written, printed;
  } cases[] = {
      {118, 1, "7,5,1,1", "118,7,5,1,1;", "\nDirectionFlag = 1\nDevelopableFlag = 1\n"},
      {120, 0, "5,7,1.5,2.5", "120,5,7,1.5,2.5;", "\nStartAngle = 1.5\nTerminateAngle = 2.5\n"},
      {122, 0, "5,1.,,3.", "122,5,1.,0.,3.;", "\nTerminatePoint = (1, 0, 3)\n"},
      {130, 0, "5,3,7,2,1,.5,1.5,2.5,3.5,4.,5.,6.,7.,8.", "130,5,3,7,2,1,0.5,1.5,2.5,3.5,4.,5.,6.,7.,8.;",
       "Coordinate = 2\nTaperType = 1\nDistance1 = 0.5\nParameter1 = 1.5\nDistance2 = 2.5\nParameter2 = 3.5\n"
       "Normal = (4, 5, 6)\nStartParameter = 7\nEndParameter = 8\n"},
      {140, 0, "1.,2.,3.,-4.,11", "140,1.,2.,3.,-4.,11;", "Indicator = (1, 2, 3)\nDistance = -4\nSurface = {\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.data);
    igsFile file;
    ASSERT_EQ(read_text(file, file_with(c.type, c.data, c.form)), 1);
    EXPECT_EQ(written_data(file), c.written);
    const std::string data = printed_data(*file.entity(1));
    EXPECT_THAT(data, HasSubstr(c.printed));
    igsFile again;
    ASSERT_EQ(read_text(again, written(file)), 1);
    EXPECT_EQ(printed_data(*again.entity(1)), data);
    EXPECT_EQ(again.entity(1)->directory_entry().form_number(), c.form);
    file.entity(1)->unreference_children();
    EXPECT_EQ(written_data(file).find(",5,"), std::string::npos);
  }
}
}  // namespace
}  // namespace igs_test
