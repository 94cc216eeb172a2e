#include <gtest/gtest.h>

#include <cfloat>
#include <cstdio>
#include <locale>
#include <sstream>
#include <string>

#include "igs/errors/igsError.h"
#include "igs/support/giPoint.h"
#include "igs/support/igsTyped.h"
#include "igs/support/kelabsOutput.h"
#include "igs/support/ubFStream.h"
#include "igs/support/utOstream.h"

namespace {

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
  EXPECT_TRUE(object.isa(Leaf::type()) && object.typeof(Middle::type())&& object.typeof(igsError::type()));
  EXPECT_FALSE(object.isa(Middle::type()) || Middle::type().childof(Leaf::type()));
  EXPECT_TRUE(kluTypeInfo("Leaf") == Leaf::type()) << "a second record of the same class is the same class";
}

TEST(Output, FormatsLongTextsWhole) {
  std::ostringstream text;
  kelabsStream sink(text);
  const std::string name(5000, 'x');
  sink.print("iges", "Warning : %s at DE %d.\n", name.c_str(), 7);
  EXPECT_EQ(text.str(), "Warning : " + name + " at DE 7.\n");
}

TEST(TempFile, IsCreatedOnceAndNeverInABadDirectory) {
  const utString first = klu_make_temp_file_name(""), second = klu_make_temp_file_name("");
  EXPECT_NE(first, second);
  EXPECT_TRUE(ubIFStream(first).is_open());
  EXPECT_EQ(std::remove(first.c_str()) + std::remove(second.c_str()), 0);
  EXPECT_EQ(klu_make_temp_file_name("/nonexistent/directory"), "");
}

}  // namespace
