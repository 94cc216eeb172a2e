#include "igs/output/private/fixedColumns.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <string>

#include "igs/output/igsOutStream.h"

namespace {

// A record of fields that differ in width, so that each stands next to the others.
TEST(FixedColumns, FieldsAreThoseOfTheStream) {
  for (long long power = 1; power <= INT_MAX; power *= 10) {
    for (const long long value :
         {power - 1, power, 1 - power, -power, 7 * power + 3, INT_MAX - power, INT_MIN + power - 1}) {
      if (value > INT_MAX || value < INT_MIN) continue;
      const int number = static_cast<int>(value);
      FixedColumns<72> columns;
      std::ostringstream target;
      igsOutStream out(&target);
      columns.add_character('<');
      out.write_string(1, "<");
      for (int width = 1; width <= 8; ++width) columns.add_integer(width, number), out.write_integer(width, number);
      for (const std::string text : {"", "LABEL", "1234567", "12345678", "a\nb\r\t"})
        columns.add_text(7, text), out.write_string(7, text);
      out.reset();
      ASSERT_EQ(columns.text(), target.str().substr(0, 72)) << number;
    }
  }
}

}  // namespace
