#include "igs/output/private/fixedColumns.h"

#include <gtest/gtest.h>

#include <climits>
#include <sstream>
#include <string>

#include "igs/output/igsOutStream.h"

namespace {

/// A field as the stream writes it by itself.
template <class Value>
std::string written(int width, const Value& value, void (igsOutStream::*write)(int, Value)) {
  std::ostringstream target;
  igsOutStream out(&target);
  (out.*write)(width, value);
  out.reset();
  return target.str().substr(0, static_cast<std::size_t>(width));
}

TEST(FixedColumns, FieldsAreThoseOfTheStream) {
  for (int width = 1; width <= 8; ++width) {
    for (long long power = 1; power <= INT_MAX; power *= 10) {
      for (const long long value :
           {power - 1, power, 1 - power, -power, 7 * power + 3, INT_MAX - power, INT_MIN + power - 1}) {
        if (value > INT_MAX || value < INT_MIN) continue;
        const int number = static_cast<int>(value);
        FixedColumns<17> columns;
        columns.add_character('<');
        columns.add_integer(width, number);
        columns.add_integer(width, number);
        const std::string field = written<int>(width, number, &igsOutStream::write_integer);
        ASSERT_EQ(columns.text(), std::string("<").append(field).append(field)) << number << " in " << width;
      }
    }
  }
  for (const std::string text : {"", "LABEL", "12345678", "123456789", "a\nb\rc", "\t "}) {
    FixedColumns<16> columns;
    columns.add_text(8, text);
    columns.add_text(8, text);
    const std::string field = written<const utString&>(8, text, &igsOutStream::write_string);
    EXPECT_EQ(columns.text(), field + field);
  }
}

}  // namespace
