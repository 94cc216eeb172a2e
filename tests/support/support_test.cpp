#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <locale>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "igs/errors/igsError.h"
#include "igs/support/giPoint.h"
#include "igs/support/igsTyped.h"
#include "igs/support/kelabsOutput.h"
#include "igs/support/private/addressSanitizer.h"
#include "igs/support/private/igsBlockMemory.h"
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

// Of all sizes, and more than a block: nothing lies on anything else, and what is given back serves its size again.
TEST(BlockMemory, OutlivesItsOwnerAsLongAsItIsUsed) {
  std::vector<std::pair<unsigned char*, std::size_t>> used;
  const auto fill = [&used](igsBlockMemory& memory, std::size_t size) {
    used.emplace_back(static_cast<unsigned char*>(memory.take(size)), size);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(used.back().first) % (size % 16 == 0 ? 16 : 8), 0U) << size;
    std::memset(used.back().first, static_cast<int>(used.size() % 251), size);
  };
  {
    igsBlockMemory memory;
    for (std::size_t i = 0; i < 4000; ++i) fill(memory, 1 + i * 7 % 600);
    for (std::size_t i = 0; i < used.size(); i += 3) {
      const auto [place, size] = std::exchange(used[i], {});
      igsBlockMemory::give_back(place, size);
      void* const again = memory.take(size);
      EXPECT_TRUE(again == place || size > 512 || under_address_sanitizer) << size;
      igsBlockMemory::give_back(again, size);
    }
  }
  for (std::size_t i = 0; i < used.size(); ++i) {
    const auto [place, size] = used[i];
    EXPECT_TRUE(std::all_of(place, place + size, [i](unsigned char c) { return c == (i + 1) % 251; })) << i;
    igsBlockMemory::give_back(place, size);
  }
}

TEST(TempFile, IsCreatedOnceAndNeverInABadDirectory) {
  const utString first = klu_make_temp_file_name(""), second = klu_make_temp_file_name("");
  EXPECT_NE(first, second);
  EXPECT_TRUE(ubIFStream(first).is_open());
  EXPECT_EQ(std::remove(first.c_str()) + std::remove(second.c_str()), 0);
  EXPECT_EQ(klu_make_temp_file_name("/nonexistent/directory"), "");
}

}  // namespace
