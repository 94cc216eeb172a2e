// Planes, cylinders, cones, spheres and tori, without parameters (form 0) and with them (form 1).

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "geometry/geometry_fixture.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igs123.h"
#include "igs/surfaces/igs190.h"
#include "igs/surfaces/igs190_errors.h"
#include "igs/surfaces/igs192.h"
#include "igs/surfaces/igs192_errors.h"
#include "igs/surfaces/igs194.h"
#include "igs/surfaces/igs194_errors.h"
#include "igs/surfaces/igs196.h"
#include "igs/surfaces/igs196_errors.h"
#include "igs/surfaces/igs198.h"
#include "igs/surfaces/igs198_errors.h"

namespace igs_test {
namespace {
using Found = std::vector<std::string>;

const std::string lowest = "-1.7976931348623157D+308";

// DE numbers of what the surface, entity 1, may refer to.
enum Target {
  null = 0,
  point = 3,
  direction = 5,
  skew = 7,
  opposite = 9,
  zero = 11,
  bad_point = 13,
  bad_direction = 15
};

struct Field {
  std::string name, value;
  bool is_reference() const { return value.find('.') == std::string::npos; }
};
struct Surface {
  int type, form;
  std::vector<Field> fields;

  std::string name() const { return "igs" + std::to_string(type) + '_' + std::to_string(form); }
  std::string data() const {
    std::string text;
    for (const Field& field : fields) text += (text.empty() ? "" : ",") + field.value;
    return text;
  }
  /// With another value in one field.
  Surface with(const std::string& field, const std::string& value) const {
    Surface changed = *this;
    for (Field& each : changed.fields) {
      if (each.name == field) each.value = value;
    }
    return changed;
  }
  Surface with(const std::string& field, Target target) const { return with(field, std::to_string(target)); }
};

/// All ten, without a fault.
std::vector<Surface> sound_surfaces() {
  const Field location{"Location", "3"}, normal{"Normal", "5"}, axis{"Axis", "5"}, ref{"RefDirection", "7"};
  const Field radius{"Radius", "0.123456789"}, angle{"SemiAngle", "30.123456789"};
  const Field major{"MajorRadius", "2.123456789"}, minor{"MinorRadius", "1.123456789"};
  return {{190, 0, {location, normal}},
          {190, 1, {location, normal, ref}},
          {192, 0, {location, axis, radius}},
          {192, 1, {location, axis, radius, ref}},
          {194, 0, {location, axis, radius, angle}},
          {194, 1, {location, axis, radius, angle, ref}},
          {196, 0, {location, radius}},
          {196, 1, {location, radius, axis, ref}},
          {198, 0, {location, axis, major, minor}},
          {198, 1, {location, axis, major, minor, ref}}};
}

const igsObject& read_surface(igsFile& file, const Surface& surface) {
  IgesBuilder builder;
  builder.entity(surface.type, surface.form, surface.data());
  builder.entity(116, 0, "0.123456789,2.,3.,0");
  for (const char* components : {"0.,0.,1.D-9", "1.D-9,0.,1.D-5", "0.,0.,-1.D200", "0.,0.,0."}) {
    builder.entity(123, 0, components);
  }
  builder.entity(116, 0, lowest + ",2.,3.,0");
  builder.entity(123, 0, lowest + ",0.,1.");
  EXPECT_EQ(read_text(file, builder.text()), 1);
  EXPECT_EQ(file.entity(1)->objtype().id_string(), surface.name());
  return *file.entity(1);
}

TEST(AnalyticSurfaces, SoundOnesAreReadAndWrittenUnchanged) {
  for (const Surface& surface : sound_surfaces()) {
    SCOPED_TRACE(surface.name());
    igsFile file;
    EXPECT_EQ(found_by_check(read_surface(file, surface)), Found());
    EXPECT_EQ(written_data(file), std::to_string(surface.type) + ',' + surface.data() + ';');
    EXPECT_EQ(file.entity(point)->num_references(), 1);
    const std::string before = printed(*file.entity(1));
    const std::string text = written(file);
    igsFile again;
    EXPECT_EQ(read_text(again, text), 1);
    EXPECT_EQ(printed(*again.entity(1)), before);

    // Without its points and directions, to see every label.
    Surface bare = surface;
    std::string labels;
    for (Field& field : bare.fields) {
      if (field.is_reference()) field.value = "0";
      labels += field.name + " = " + (field.is_reference() ? "{\n\t(NullPointer)\n}" : field.value) + '\n';
    }
    igsFile third;
    EXPECT_EQ(printed_data(read_surface(third, bare)), labels);
  }
}

TEST(AnalyticSurfaces, OnlyThreeTypesWriteTheirRealsWithTheParametricPrecision) {
  const Resource precision(kelOptDoubleParametricPrecision, 4);
  const std::vector<std::string> expected{"190,3,5;",
                                          "190,3,5,7;",
                                          "192,3,5,0.1235;",
                                          "192,3,5,0.1235,7;",
                                          "194,3,5,0.1235,30.12;",
                                          "194,3,5,0.1235,30.12,7;",
                                          "196,3,0.1235;",
                                          "196,3,0.1235,5,7;",
                                          "198,3,5,2.123456789,1.123456789;",
                                          "198,3,5,2.123456789,1.123456789,7;"};
  std::vector<std::string> data;
  for (const Surface& surface : sound_surfaces()) {
    igsFile file;
    read_surface(file, surface);
    data.push_back(written_data(file));
    EXPECT_EQ(written_data(file, point), "116,0.123456789,2.,3.,0;");  // what follows has its own precision again
  }
  EXPECT_EQ(data, expected);
}

/// One surface with one fault, and the name of its error without the class's.
struct Case {
  Surface surface;
  std::string fault, values;
};

std::vector<Case> faulty_references(const Surface& surface) {
  std::vector<Case> cases;
  for (const Field& field : surface.fields) {
    if (!field.is_reference()) continue;
    const bool is_location = field.name == "Location";
    cases.push_back({surface.with(field.name, null), "Null" + field.name, ""});
    cases.push_back({surface.with(field.name, is_location ? direction : point), "Wrong" + field.name + "Type", ""});
    cases.push_back({surface.with(field.name, is_location ? bad_point : bad_direction), "Invalid" + field.name, ""});
  }
  if (surface.form == 1) {
    cases.push_back({surface.with("RefDirection", opposite), "ParallelRefDirection", ""});
    cases.push_back({surface.with("RefDirection", zero), "ParallelRefDirection", ""});
  }
  return cases;
}

std::vector<Case> faulty_reals(const Surface& surface) {
  const struct {
    std::set<int> types;
    std::string field, value, fault, values;
  } cases[] = {
      {{192, 196}, "Radius", "0.", "InvalidRadius", " 0"},
      {{192, 194, 196}, "Radius", "-0.5", "InvalidRadius", " -0.5"},
      {{192, 194, 196}, "Radius", lowest, "InvalidRadius", " -1.79769313486232e+308"},
      {{194}, "Radius", "0.", "", ""},
      {{194}, "SemiAngle", "0.", "InvalidSemiAngle", " 0"},
      {{194}, "SemiAngle", "90.", "InvalidSemiAngle", " 90"},
      {{194}, "SemiAngle", "89.9", "", ""},
      {{194}, "SemiAngle", "-30.", "InvalidSemiAngle", " -30"},
      {{198}, "MajorRadius", "0.", "InvalidMajorRadius", " 0"},
      {{198}, "MinorRadius", "-1.", "InvalidMinorRadius", " -1"},
      {{198}, "MinorRadius", "2.123456789", "RadiiOutOfSequence", " 2.123456789,2.123456789"},
      {{198}, "MajorRadius", "1.", "RadiiOutOfSequence", " 1,1.123456789"},
  };
  std::vector<Case> faults;
  for (const auto& c : cases) {
    if (c.types.count(surface.type) != 0) faults.push_back({surface.with(c.field, c.value), c.fault, c.values});
  }
  return faults;
}

template <class... Errors>
std::vector<std::string> names_of() {
  return {Errors::type().name()...};
}
// What the classes are called in reports, and in code: one list, used twice.
#define TWICE(...) names_of<__VA_ARGS__>(), #__VA_ARGS__
const std::pair<std::vector<std::string>, std::string> names(TWICE(
    igs190_0NullLocation, igs190_0WrongLocationType, igs190_0InvalidLocation, igs190_0NullNormal,
    igs190_0WrongNormalType, igs190_0InvalidNormal, igs190_1NullLocation, igs190_1WrongLocationType,
    igs190_1InvalidLocation, igs190_1NullNormal, igs190_1WrongNormalType, igs190_1InvalidNormal,
    igs190_1NullRefDirection, igs190_1WrongRefDirectionType, igs190_1InvalidRefDirection, igs190_1ParallelRefDirection,
    igs192_0NullLocation, igs192_0WrongLocationType, igs192_0InvalidLocation, igs192_0NullAxis, igs192_0WrongAxisType,
    igs192_0InvalidAxis, igs192_0InvalidRadius, igs192_1NullLocation, igs192_1WrongLocationType,
    igs192_1InvalidLocation, igs192_1NullAxis, igs192_1WrongAxisType, igs192_1InvalidAxis, igs192_1NullRefDirection,
    igs192_1WrongRefDirectionType, igs192_1InvalidRefDirection, igs192_1InvalidRadius, igs192_1ParallelRefDirection,
    igs194_0NullLocation, igs194_0WrongLocationType, igs194_0InvalidLocation, igs194_0NullAxis, igs194_0WrongAxisType,
    igs194_0InvalidAxis, igs194_0InvalidRadius, igs194_0InvalidSemiAngle, igs194_1NullLocation,
    igs194_1WrongLocationType, igs194_1InvalidLocation, igs194_1NullAxis, igs194_1WrongAxisType, igs194_1InvalidAxis,
    igs194_1NullRefDirection, igs194_1WrongRefDirectionType, igs194_1InvalidRefDirection, igs194_1InvalidRadius,
    igs194_1InvalidSemiAngle, igs194_1ParallelRefDirection, igs196_0NullLocation, igs196_0WrongLocationType,
    igs196_0InvalidLocation, igs196_0InvalidRadius, igs196_1NullLocation, igs196_1WrongLocationType,
    igs196_1InvalidLocation, igs196_1NullAxis, igs196_1WrongAxisType, igs196_1InvalidAxis, igs196_1NullRefDirection,
    igs196_1WrongRefDirectionType, igs196_1InvalidRefDirection, igs196_1InvalidRadius, igs196_1ParallelRefDirection,
    igs198_0NullLocation, igs198_0WrongLocationType, igs198_0InvalidLocation, igs198_0NullAxis, igs198_0WrongAxisType,
    igs198_0InvalidAxis, igs198_0InvalidMajorRadius, igs198_0InvalidMinorRadius, igs198_0RadiiOutOfSequence,
    igs198_1NullLocation, igs198_1WrongLocationType, igs198_1InvalidLocation, igs198_1NullAxis, igs198_1WrongAxisType,
    igs198_1InvalidAxis, igs198_1NullRefDirection, igs198_1WrongRefDirectionType, igs198_1InvalidRefDirection,
    igs198_1InvalidMajorRadius, igs198_1InvalidMinorRadius, igs198_1RadiiOutOfSequence, igs198_1ParallelRefDirection));
#undef TWICE

TEST(AnalyticSurfaces, ErrorsAreCalledInReportsAsInCode) {
  std::string in_reports;
  for (const std::string& name : names.first) in_reports += (in_reports.empty() ? "" : ", ") + name;
  EXPECT_EQ(in_reports, names.second);
}

TEST(AnalyticSurfaces, EachFaultHasItsOwnErrorAndNothingIsRepairedByGuessing) {
  std::set<std::string> raised;
  for (const Surface& sound : sound_surfaces()) {
    std::vector<Case> cases = faulty_references(sound);
    for (const Case& c : faulty_reals(sound)) cases.push_back(c);
    for (const auto& [surface, fault, values] : cases) {
      SCOPED_TRACE(surface.name() + ' ' + surface.data());
      igsFile file;
      Found found = found_by_check(read_surface(file, surface));
      const std::string cause = surface.data().find("13") == 0 ? "igs116InvalidPoint 13" : "igs123NoConstruct 15";
      if (found.size() == 2 && found[0] == cause) found.erase(found.begin());
      EXPECT_EQ(found, fault.empty() ? Found() : Found{surface.name() + fault + " 1" + values});
      for (igsError* error : object_errors(file)) EXPECT_EQ(error->fix(), 0);
      raised.insert(surface.name() + fault);
    }
  }
  raised.erase("igs194_0");  // the cases without a fault
  raised.erase("igs194_1");
  EXPECT_EQ(raised, std::set<std::string>(names.first.begin(), names.first.end()));
}

TEST(AnalyticSurfaces, ReferencesAreCleanAgainWhenWhatTheyReferToIs) {
  for (const Surface& surface : sound_surfaces()) {
    for (const Field& field : surface.fields) {
      if (!field.is_reference()) continue;
      SCOPED_TRACE(surface.name() + field.name);
      const bool is_location = field.name == "Location";
      const Target target = is_location ? bad_point : bad_direction;
      igsFile file;
      const igsObject& object = read_surface(file, surface.with(field.name, target));
      object.check();
      auto& error = static_cast<igsObjectError&>(*object_errors(file).back());
      EXPECT_EQ(error.obj(), target);
      EXPECT_EQ(error.fix(), 0);
      if (is_location) entity_of<igs116>(file, target).set_point({1, 2, 3});
      if (!is_location) entity_of<igs123>(file, target).set_direction({0, 1, 0});
      file.entity(target)->check();
      EXPECT_EQ(error.fix(), 1);
      EXPECT_EQ(found_by_check(object), Found());
    }
  }
}

TEST(AnalyticSurfaces, DirectionsAreParallelByTheToleranceInForce) {
  for (const Surface& surface : sound_surfaces()) {
    if (surface.form == 0) continue;
    SCOPED_TRACE(surface.name());
    igsFile file;
    const igsObject& object = read_surface(file, surface);
    const Resource tolerance(kelTolMinValue, 1e-3);
    EXPECT_EQ(found_by_check(object), Found{surface.name() + "ParallelRefDirection 1"});
  }
}

TEST(AnalyticSurfaces, ANewOneLacksEverythingAndTakesWhatItIsGiven) {
  igsFile file;
  auto* const torus = new igs198_1;
  EXPECT_THAT(found_by_check(*torus),
              testing::ElementsAre("igs198_1NullLocation 1", "igs198_1NullAxis 1", "igs198_1NullRefDirection 1",
                                   testing::HasSubstr("igs198_1InvalidMajorRadius 1 -1.79769"),
                                   testing::HasSubstr("igs198_1InvalidMinorRadius 1 -1.79769")));
  auto* const centre = new igs116;
  centre->set_point({1, 2, 3});
  auto* const up = new igs123;
  up->set_direction({0, 0, 1});
  auto* const across = new igs123;
  across->set_direction({1, 0, 0});
  torus->set_location(centre);
  torus->set_axis(up);
  torus->set_ref_direction(across);
  torus->set_major_radius(2);
  torus->set_minor_radius(1);
  auto* const plane = new igs190_0;
  plane->set_location(centre);
  plane->set_normal(up);
  auto* const cone = new igs194_0;
  cone->set_location(centre);
  cone->set_axis(up);
  cone->set_radius(0);
  cone->set_semi_angle(45);
  for (const igsObject* surface : {file.entity(1), file.entity(9), file.entity(11)}) {
    EXPECT_EQ(surface->check(), 1);
  }
  EXPECT_EQ(written_data(file, 1), "198,3,5,2.,1.,7;");
  EXPECT_EQ(written_data(file, 9), "190,3,5;");
  EXPECT_EQ(written_data(file, 11), "194,3,5,0.,45.;");
}
}  // namespace
}  // namespace igs_test
