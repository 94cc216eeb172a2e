#include "igs/catalogue/igsInfoDB.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "igs/objects/igsEntityType.h"

namespace {

TEST(InfoDB, CountOfEntitiesAndForms) {
  int entities = 0, formless = 0, forms = 0;
  for (int type = -1000; type <= 6000; ++type) {
    EXPECT_EQ(igsInfoDB::entity_exists(type), !igsInfoDB::entity_name(type).empty()) << type;
    if (!igsInfoDB::entity_exists(type)) {
      EXPECT_FALSE(igsInfoDB::form_exists(type, 0)) << type;
      continue;
    }
    ++entities;
    if (type <= igsEntityNull) continue;  // every form
    if (igsInfoDB::form_exists(type, 0) && igsInfoDB::form_name(type, 0).empty()) ++formless;
    for (int form = -100; form <= 5000; ++form) forms += igsInfoDB::form_exists(type, form) ? 1 : 0;
    // User-defined forms come as one run or not at all.
    for (int form : {5001, 7000, 9999})
      EXPECT_EQ(igsInfoDB::form_exists(type, form), igsInfoDB::form_exists(type, 5500));
    for (int form : {10000, INT_MAX, INT_MIN}) EXPECT_FALSE(igsInfoDB::form_exists(type, form)) << type;
  }
  EXPECT_EQ(entities, 90);
  EXPECT_EQ(formless, 90 - 2 - 38);
  EXPECT_EQ(forms - formless, 254 - 2 - 4);  // records without the two catch-alls and the four user-defined runs
}

TEST(InfoDB, FormExists) {
  struct Case {
    int type, form;
    bool exists;
  };
  const Case cases[] = {{110, 0, true},      {110, 1, false},     {402, 16, true},     {402, 17, false},
                        {402, 5000, false},  {402, 5001, true},   {402, 9999, true},   {402, 10000, false},
                        {302, 0, false},     {302, 5001, true},   {108, -1, true},     {108, -2, false},
                        {128, 9, true},      {128, 10, false},    {-1, INT_MAX, true}, {-1, -INT_MAX, true},
                        {0, INT_MAX, true},  {0, -INT_MAX, true}, {0, INT_MIN, false}, {101, 0, false},
                        {INT_MAX, 0, false}, {INT_MIN, 0, false}, {515, 0, false},     {-2, 0, false}};
  for (const Case& c : cases) EXPECT_EQ(igsInfoDB::form_exists(c.type, c.form), c.exists) << c.type << ':' << c.form;
}

TEST(InfoDB, Names) {
  struct Case {
    int type, form;
    const char* name;
  };
  const Case cases[] = {
      {104, 1, "Conic Arc(Ellipse)"},
      {-1, -7, "Unknown Entity(Unknown)"},
      {0, 0, "Null(Unknown)"},
      {108, -1, "Plane(Hole)"},
      {128, 9, "Rational B-Spline Surface(General Quadric Surface)"},
      {148, 34, "Element Results(General Thermal Strain)"},
      {198, 1, "Toroidal Surface(Parameterized Surface)"},
      {212, 102, "General Note(Imbedded Font Change/Double Fraction)"},
      {402, 13, "Associativity Instance(Dimensioned Geometry)"},
      {402, 21, "Associativity Instance(Dimensioned Geometry)"},
      {402, 9999, "Associativity Instance(User Defined Associativity Instance)"},
      {406, 8, "Property(Pin Humber)"},
      {514, 2, "Shell(Open Shell)"},
      {110, 0, "Line()"},
      {402, 17, "Associativity Instance()"},
      {101, 0, "()"},
  };
  for (const Case& c : cases) EXPECT_EQ(igsInfoDB::entity_form_name(c.type, c.form), c.name);
  EXPECT_EQ(&igsInfoDB::entity_name(igsEntity110), &igsInfoDB::entity_name(110)) << "names stay where they are";
}

TEST(InfoDB, DefaultForms) {
  struct Case {
    int type, form, found;
  };
  const Case cases[] = {{110, 0, 1}, {214, 4, 1}, {502, 1, 1}, {514, 1, 1}, {128, 0, 1}, {-1, 0, 1},
                        {106, 0, 0}, {302, 0, 0}, {422, 0, 0}, {162, 0, 0}, {101, 0, 0}};
  for (const Case& c : cases) {
    int form = 77, found = 77;
    igsInfoDB::default_form_number(c.type, form, found);
    EXPECT_EQ(form, c.form) << c.type;
    EXPECT_EQ(found, c.found) << c.type;
  }
  int without = 0;
  for (int type = 100; type <= 514; ++type) {
    int form = 0, found = 0;
    igsInfoDB::default_form_number(type, form, found);
    EXPECT_TRUE(!found || igsInfoDB::form_exists(type, form)) << type;
    without += igsInfoDB::entity_exists(type) && !found ? 1 : 0;
  }
  EXPECT_EQ(without, 15);
}

TEST(InfoDB, FlagsOfTheGlobalSection) {
  for (int flag = -3; flag <= 20; ++flag) {
    EXPECT_EQ(igsInfoDB::units_exist(flag), 1 <= flag && flag <= 11) << flag;
    EXPECT_EQ(igsInfoDB::version_exists(flag), 1 <= flag && flag <= 11) << flag;
    EXPECT_EQ(igsInfoDB::draft_exists(flag), 0 <= flag && flag <= 7) << flag;
    EXPECT_EQ(igsInfoDB::units_name(flag).empty(), !igsInfoDB::units_exist(flag)) << flag;
    EXPECT_EQ(igsInfoDB::version_name(flag).empty(), !igsInfoDB::version_exists(flag)) << flag;
    EXPECT_EQ(igsInfoDB::draft_name(flag).empty(), !igsInfoDB::draft_exists(flag)) << flag;
  }
  EXPECT_FALSE(igsInfoDB::units_exist(INT_MIN));
  EXPECT_EQ(igsInfoDB::units_name(11), "Microinches");
  EXPECT_EQ(igsInfoDB::version_name(11), "5.3");
  EXPECT_EQ(igsInfoDB::draft_name(3), "ANSI - American National Standrds Institute");
}

TEST(EntityInfo, FormAddedLastIsFoundFirst) {
  igsEntityInfo info("Thing", 3);
  EXPECT_TRUE(info.form_exists(0));
  EXPECT_FALSE(info.form_exists(3));
  info.add_form(nullptr);
  info.add_form(new igsFormInfo(1, 10, "wide", 0, 0));
  info.add_form(new igsFormInfo(3, 3, "narrow", 4, 11));
  EXPECT_FALSE(info.form_exists(0));
  EXPECT_EQ(info.form_info(3).form_name(), "narrow");
  EXPECT_EQ(info.form_info(3).max_version(), 11);
  EXPECT_EQ(info.form_info(4).form_name(), "wide");
  EXPECT_EQ(info.form_info(11).form_name(), "");
}

}  // namespace
