#include "igs/file/igsUnits.h"

#include <gtest/gtest.h>

#include "iges_builder.h"
#include "igs/support/undefined.h"

namespace {

TEST(Units, FlagsAndNames) {
  const char* const names[] = {"UNKNOWN", "INCH", "MM", "UNKNOWN", "FT",  "MI",     "M",
                               "KM",      "MIL",  "UM", "CM",      "UIN", "UNKNOWN"};
  for (igsUnitType flag = 0; flag <= 12; ++flag) {
    const utString name = names[flag];
    EXPECT_EQ(igsUnits::name(flag), name);
    EXPECT_EQ(igsUnits::type(name), name == "UNKNOWN" ? 0 : flag) << name;
    EXPECT_EQ(igsUnits(flag).name(), name);
  }
  EXPECT_EQ(igsUnits::type("IN"), 1);
  for (const char* name : {"", "in", "Inch", " MM", "MM ", "INCHES"}) EXPECT_EQ(igsUnits::type(name), 0) << name;
  EXPECT_EQ(igsUnits::name(igs_unset_int), "UNKNOWN");
}

TEST(Units, CheckUnits) {
  struct Case {
    igsUnitType flag;
    const char* name;
    int agree;
  };
  for (const Case& c : {Case{1, "IN", 1},
                        {1, "INCH", 1},
                        {1, "MM", 0},
                        {2, "MM", 1},
                        {2, "", 0},
                        {0, "MM", 0},
                        {0, "UNKNOWN", 0},
                        {3, "KM", 1},
                        {3, "IN", 1},
                        {3, "UNKNOWN", 0},
                        {3, "ELL", 0},
                        {12, "ELL", 0},
                        {11, "UIN", 1},
                        {igs_unset_int, "MM", 0}}) {
    EXPECT_EQ(igsUnits::check_units(c.flag, c.name), c.agree) << c.flag << c.name;
  }
}

TEST(Units, ConvertsExactly) {
  struct Case {
    igsUnitType from, to;
    double factor;
  };
  for (const Case& c : {Case{1, 2, 25.4},
                        {2, 1, 1 / 25.4},
                        {4, 1, 12},
                        {5, 4, 5280},
                        {6, 2, 1000},
                        {2, 6, 0.001},
                        {7, 6, 1000},
                        {8, 1, 0.001},
                        {9, 2, 0.001},
                        {10, 6, 0.01},
                        {11, 1, 1e-6},
                        {5, 7, 1.609344},
                        {2, 2, 1},
                        {3, 2, 1},
                        {1, 3, 1},
                        {0, 1, 1},
                        {1, 12, 1},
                        {igs_unset_int, 1, 1}}) {
    EXPECT_EQ(igsUnits::convert_between_units(c.from, c.to), c.factor) << c.from << " to " << c.to;
  }
}

TEST(Units, CheckBlamesTheFlagFirst) {
  const igsFile file;
  struct Case {
    igsUnits units;
    const char* error;
  };
  for (const Case& c : {Case{igsUnits(), ""},
                        {igsUnits("IN", 1), ""},
                        {igsUnits("FT", 3), ""},
                        {igsUnits(0), "igsGlobalSectionInvalidUnitsFlag 0"},
                        {igsUnits("MM", 12), "igsGlobalSectionInvalidUnitsFlag 12"},
                        {igsUnits("MM", 1), "igsGlobalSectionUnitNameTypeMismatch 1,MM"},
                        {igsUnits(3), "igsGlobalSectionUnitNameTypeMismatch 3,UNKNOWN"}}) {
    const igsError* const error = c.units.check();
    EXPECT_EQ(error != nullptr ? igs_test::describe(*error) : "", c.error);
  }
  EXPECT_EQ(igs_test::active_errors(file).size(), 4U);
}

}  // namespace
