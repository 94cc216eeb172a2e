#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>
#include <string>
#include <utility>

#include "igs/errors/igsError.h"
#include "igs/support/coResourceTable.h"
#include "igs/support/giPoint.h"
#include "igs/support/giVector.h"
#include "igs/support/giXform3.h"
#include "igs/support/igsTyped.h"
#include "igs/support/kelabsOutput.h"
#include "igs/support/ubFStream.h"
#include "igs/support/utOstream.h"

namespace {

TEST(Undefined, PointTestIsAsymmetric) {
  constexpr double max = DBL_MAX, nan = std::numeric_limits<double>::quiet_NaN();
  for (const giPoint3& point : {giPoint3(), {-max, 0, 0}, {max, 0, 0}, {0, max, 0}, {0, 0, max}}) {
    EXPECT_TRUE(point.is_undefined()) << point.x() << ' ' << point.y() << ' ' << point.z();
  }
  for (const giPoint3& point : {giPoint3(0, -max, 0), {0, 0, -max}, {nan, nan, nan}, {0, 0, 0}}) {
    EXPECT_FALSE(point.is_undefined()) << point.x() << ' ' << point.y() << ' ' << point.z();
  }
  EXPECT_TRUE(giPoint2(0, max).is_undefined());
  EXPECT_FALSE(giPoint2(0, -max).is_undefined());
}

TEST(Point, CoincidentIncludesTheTolerance) {
  EXPECT_TRUE(giPoint3::coincident({0, 0, 0}, {0, 3, 4}, 5));
  EXPECT_FALSE(giPoint3::coincident({0, 0, 0}, {0, 3, 4}, 4.999));
}

TEST(Vector, UnitizeRefusesWhatHasNoDirection) {
  giVector3 v(0, 3, 4), zero(0, 0, 0);
  EXPECT_EQ(std::pair(v.unitize(), zero.unitize()), std::pair(1, 0));
  EXPECT_EQ(v, giVector3(0, 0.6, 0.8));
  EXPECT_EQ(zero, giVector3(0, 0, 0));
  EXPECT_TRUE(giUnitVec3(0, 0, 0).is_undefined());
}

TEST(Xform, DeterminantAndValidity) {
  giXform3 identity;
  EXPECT_FALSE(identity.invalid());
  EXPECT_EQ(identity.rotation_determinant(), 1);
  const double mirror[4][4] = {{-1, 0, 0, 5}, {0, 1, 0, 6}, {0, 0, 1, 7}, {0, 0, 0, 1}};
  EXPECT_EQ(giXform3(mirror).rotation_determinant(), -1);
  const double broken[4][4] = {{1, 0, 0, 0}, {0, -DBL_MAX, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
  EXPECT_TRUE(giXform3(broken).invalid());
}

struct CommaDecimals : std::numpunct<char> {
  char do_decimal_point() const override { return ','; }
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

TEST(Ostream, IndentsLinesAndIgnoresTheLocale) {
  std::ostringstream text;
  text.imbue(std::locale(text.getloc(), new CommaDecimals));
  utOstream os(text);
  utOstream child(os, 1), grandchild(child, 2);
  os << "a = {" << utEndl;
  child << "b = " << 1234567 << ", " << 0.1 << ' ' << 1.0 / 3 << ' ' << DBL_MAX << ' ' << -0.0 << ' '
        << giPoint2(1, 1e300) << utEndl << utEndl;
  grandchild << 'c' << utEndl;
  os << '}' << utEndl;
  EXPECT_EQ(text.str(),
            "a = {\n\tb = 1234567, 0.1 0.3333333333333333 1.7976931348623157e+308 -0 (1, 1e+300)\n\n\t\t\tc\n}\n");
}

class Middle : public igsTyped<Middle, "Middle", igsError> {};
class Leaf : public igsTyped<Leaf, "Leaf", Middle> {};

TEST(Typed, ExactClassAndDescent) {
  const Leaf leaf;
  const igsError& object = leaf;
  EXPECT_EQ(object.objtype().id_string(), "Leaf");
  EXPECT_TRUE(object.isa(Leaf::type()));
  EXPECT_FALSE(object.isa(Middle::type()));
  EXPECT_TRUE(object.typeof(Middle::type()));
  EXPECT_TRUE(object.typeof(igsError::type()));
  EXPECT_FALSE(Middle::type().childof(Leaf::type()));
  EXPECT_TRUE(kluTypeInfo("Leaf") == Leaf::type()) << "a second record of the same class is the same class";
}

TEST(ResourceTable, RefusesWhatIsNoValueOfTheKey) {
  coResourceTable table;
  const int refused[] = {table.set_value(kelTolZeroLength, std::nan("")),
                         table.set_value(kelTolZeroLength, -1e-9),
                         table.set_value("kelOptDoubleGeometricPrecision", 12.5),
                         table.set_value(kelOptDoubleGeometricPrecision, 18),
                         table.set_value(kelOptDoubleGeometricPrecision, 0),
                         table.set_value(kelOptDoubleFieldWidth, -1),
                         table.set_value("kelOptRigidTransforms", 2),
                         table.set_value("kelTolNothing", 1)};
  EXPECT_EQ(std::count(std::begin(refused), std::end(refused), 0), 8);
  for (std::size_t i = 0; i < table.keys().size(); ++i) EXPECT_EQ(table.value_at(i), table.keys()[i].default_value);
  EXPECT_EQ(table.set_value("kelTolZeroLength", 0) + table.set_value(kelOptRigidTransforms, true), 2);
  EXPECT_EQ(table.value(kelTolZeroLength), 0);
  EXPECT_EQ(table.set_value(kelOptDoubleParametricPrecision, -1), 1) << "the fewest digits";
  EXPECT_TRUE(table.value(kelOptRigidTransforms));
}

TEST(Output, FormatsLongTextsWhole) {
  std::ostringstream text;
  kelabsStream sink(text);
  const std::string name(5000, 'x');
  sink.print("iges", "Warning : %s at DE %d.\n", name.c_str(), 7);
  EXPECT_EQ(text.str(), "Warning : " + name + " at DE 7.\n");
}

TEST(TempFile, IsCreatedOnceAndNeverInABadDirectory) {
  const utString first = klu_make_temp_file_name("");
  const utString second = klu_make_temp_file_name("");
  ASSERT_FALSE(first.empty());
  EXPECT_NE(first, second);
  EXPECT_TRUE(ubIFStream(first).is_open());
  EXPECT_EQ(std::remove(first.c_str()), 0);
  EXPECT_EQ(std::remove(second.c_str()), 0);
  EXPECT_EQ(klu_make_temp_file_name("/nonexistent/directory"), "");
}

}  // namespace
