#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "igs/input/igsInStream.h"
#include "input/field_model.h"
#include "input/records.h"

namespace {

using records::FieldModel;
using records::FieldOutcome;

/// Makes fields, sound ones and others.
class Fields {
 public:
  explicit Fields(unsigned seed) : m_random(seed) {}

  unsigned below(unsigned count) { return static_cast<unsigned>(m_random()) % count; }
  template <class Choices>
  auto one_of(const Choices& choices) {
    return choices[below(static_cast<unsigned>(choices.size()))];
  }

  std::string field(char kind) {
    std::string text = below(8) == 0 ? noise(below(12)) : kind == 'h' ? string() : kind == 'i' ? integer() : real();
    if (below(6) == 0) text = damaged(text);
    return std::string(below(4) == 0 ? below(4) : 0, ' ') + text + std::string(below(8) == 0 ? below(4) : 0, ' ');
  }
  std::string noise(std::size_t length) {
    static constexpr std::string_view characters("0123456789012345+-..eEdDdDxXpPaAfFinfINnNty()_hH  ,;'\v\f\t\0", 57);
    std::string text;
    while (text.size() < length) text += one_of(characters);
    return text;
  }

 private:
  std::string digits(unsigned most) {
    std::string text;
    for (unsigned count = below(10) == 0 ? below(60) : 1 + below(most); count > 0; --count)
      text += one_of(std::string_view("0123456789"));
    return text;
  }
  std::string sign() { return one_of(std::array{"", "", "", "-", "+"}); }
  std::string integer() { return sign() + digits(11); }
  std::string exponent() {
    if (below(2) == 0) return "";
    const std::string power = below(6) == 0 ? digits(20) : std::to_string(below(340));
    return one_of(std::string_view("EeDDd")) + sign() + power + (below(12) == 0 ? exponent() : "");
  }
  std::string real() {
    switch (below(12)) {
      case 0:
        return sign() + one_of(std::array{"inf", "INFINITY", "nan", "NaN(12)", "nan(", "infinit", "Inf"}) + exponent();
      case 1:
        return sign() + one_of(std::array{"0x", "0X"}) + digits(4) +
               one_of(std::array{"", ".", ".8", "Ap3", "P-2", "D", ".Dp", "p9999"}) + exponent();
      default:
        return sign() + digits(9) + "." + (below(3) > 0 ? digits(14) : "") + exponent();
    }
  }
  std::string string() {
    std::string text;
    for (unsigned count = below(below(20) == 0 ? 200 : 20); count > 0; --count)
      text += one_of(std::string_view("ab  ,;H1\v"));
    int declared = static_cast<int>(text.size());
    if (below(4) == 0) declared += static_cast<int>(below(7)) - 3;
    return (below(30) == 0 ? integer() : std::to_string(declared)) + one_of(std::string_view("HHh")) + text;
  }
  std::string damaged(std::string text) {
    const std::size_t at = below(static_cast<unsigned>(text.size()) + 1);
    if (below(3) == 0) return text.erase(at, 1);
    return text.replace(at, below(2), noise(1));
  }

  std::mt19937 m_random;
};

struct Plan {
  records::FieldLayout layout;
  std::string kinds;
  std::vector<std::string> data;
};

// The text runs on over the records; kinds of another length than the text has fields come out of step with it.
Plan random_plan(Fields& fields) {
  Plan plan;
  plan.layout.section = "PPPPGGD"[fields.below(7)];
  plan.layout.records_per_entity = 1 + static_cast<int>(fields.below(12));
  const std::string delimiters =
      fields.one_of(std::array{",;", ",;", ",;", ",;", ",;", "/#", ";;", "DE", "-+", ".x", "H(", "P,", "e5", ",H"});
  plan.layout.delimiter = delimiters[0];
  plan.layout.end = delimiters[1];
  const std::string_view kinds = plan.layout.section == 'D' ? "IIIIIISir" : "iirrrrrhhIS";
  for (unsigned count = 1 + fields.below(8); count > 0; --count) plan.kinds += fields.one_of(kinds);
  std::string text;
  for (std::size_t i = 0; text.size() < 2000; ++i) {
    const char kind = plan.kinds[i % plan.kinds.size()];
    std::string field = fields.field(kind == 'I' ? 'i' : kind);
    text += plan.layout.section == 'D' ? records::right(field, fields.below(8) == 0 ? 7 : 8).substr(0, 8)
                                       : field + (fields.below(40) == 0 ? plan.layout.end : plan.layout.delimiter);
  }
  for (std::size_t at = 0; at < text.size(); at += plan.layout.width()) {
    plan.data.push_back(text.substr(at, plan.layout.width()));
    // A line of blanks alone is no record.
    plan.data.back().resize(plan.layout.width(), ' ');
  }
  return plan;
}

// Returns the number of fields read.
std::size_t compare(const Plan& plan, bool shortcuts, Fields& fields) {
  std::string text;
  for (std::size_t i = 0; i < plan.data.size(); ++i) text += plan.layout.line(i, plan.data[i]) + "\n";
  std::istringstream stream(text);
  igsInStream in(stream, {nullptr, shortcuts});
  in.reset();
  in.set_param_delimiter(plan.layout.delimiter);
  in.set_record_delimiter(plan.layout.end);
  FieldModel model(plan.layout, plan.data);
  std::size_t count = 0;
  for (; !model.ended(); ++count) {
    const char kind = plan.kinds[count % plan.kinds.size()];
    const unsigned width = fields.below(6) > 0 ? 8 : 1 + fields.below(14);
    const std::string line = model.line();
    const FieldOutcome expected = model.read(kind, width);
    FieldOutcome found = records::read_by_stream(in, kind, width);
    found.codes &= records::field_codes;
    if (model.ended()) {
      EXPECT_TRUE(in.frozen());
      EXPECT_EQ(in.reset(), 0);
      break;
    }
    EXPECT_EQ(found, expected) << kind << width << " with delimiters " << plan.layout.delimiter << plan.layout.end
                               << " of record\n"
                               << line;
    if (found != expected) break;
    if (model.frozen()) {
      EXPECT_EQ(in.reset() != 0, model.reset());
    }
  }
  return count;
}

// Value, codes and position agree with the model after every field, whatever the field is.
TEST(Fields, AreWhatTheConversionsOfTheCLibraryMakeOfThem) {
  Fields fields(20261121);
  std::size_t count = 0;
  for (int i = 0; i < 1600 && !testing::Test::HasFailure(); ++i) {
    const Plan plan = random_plan(fields);
    count += compare(plan, i % 2 == 0, fields);
  }
  EXPECT_GT(count, 200000U);
}

}  // namespace
