// How many elements of a list are believed, and positions that count from 1, on classes that have little else.

#include <gtest/gtest.h>

#include <climits>

#include "iges_builder.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsEntityFields.h"

namespace igs_test {
namespace {
class TestBadNumReals : public igsErrorClass<TestBadNumReals, "TestBadNumReals", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
class TestNoNumbers : public igsErrorClass<TestNoNumbers, "TestNoNumbers", igsObjectError> {};

struct Record {
  utString name;
  igsObjectPtr target;

  template <class E, class V>
  static void fields(E& record, V& visit) {
    visit("Name", record.name);
    visit("Target", record.target);
  }
};
struct Position {
  int number = 0;

  template <class E, class V>
  static void fields(E& position, V& visit) {
    visit.index("Index", position.number);
  }
};

template <class Element, igsName Name, class Error>
class TestList : public igsEntity<TestList<Element, Name, Error>, Name, igsObject> {
 public:
  void check_pd() const override {}

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("Count", entity.elements.size());
    visit.list("Elements", count, entity.elements, igsBadCount<Error>());
  }
  std::vector<Element> elements;
};
using TestReals = TestList<double, "TestReals", TestBadNumReals>;
using TestRecords = TestList<Record, "TestRecords", TestBadNumReals>;
using TestPositions = TestList<Position, "TestPositions", TestNoNumbers>;

/// Reads `count` elements, of which `given` are supplied and then `empty` ones: how many there are then, -1 when the
/// count was refused.
template <class List>
int read_list(int count, const std::string& given, int num_given, const std::string& empty = "", int num_empty = 0) {
  igsFile file;
  std::string data = std::to_string(count);
  for (int i = 0; i < num_empty; ++i) data += empty;
  for (int i = 0; i < num_given; ++i) data += given;
  auto* const entity = new List;
  const int read = read_fields(*entity, data);
  const std::vector<std::string> errors = active_errors(file);
  if (read != 0 || !entity->elements.empty()) return errors.empty() ? static_cast<int>(entity->elements.size()) : -2;
  return errors == std::vector<std::string>{"TestBadNumReals 1 " + std::to_string(count)} ? -1 : -3;
}

TEST(Lists, CountsAreBelievedInProportionToTheRecord) {
  EXPECT_EQ(read_list<TestReals>(0, "", 0), 0);
  for (const int count : {-1, INT_MIN, INT_MAX}) EXPECT_EQ(read_list<TestReals>(count, ",7.", 3), -1) << count;
  EXPECT_EQ(read_list<TestReals>(2, ",7.", 5), 2);
  for (const int given : {0, 1, 64}) {
    for (const auto& [count, result] : {std::pair(256, 256), {257, -1}}) {
      EXPECT_EQ(read_list<TestReals>(count, ",7.", given), result) << given;
      EXPECT_EQ(read_list<TestRecords>(count, ",1HA,0", given), result) << given;
    }
  }
  // Empty fields supply nothing.
  for (const int given : {0, 74, 75, 300}) {
    const int expected = given >= 75 ? 300 : -1;
    EXPECT_EQ(read_list<TestReals>(300, ",7.", given, ",", 300 - given), expected) << given;
    EXPECT_EQ(read_list<TestRecords>(300, ",1HA,", given, ",,", 300 - given), expected) << given;
    EXPECT_EQ(read_list<TestRecords>(300, ",,0", given, ",,", 300 - given), expected) << given;
  }
}

TEST(Lists, WhatTheRecordDoesNotSupplyIsUnset) {
  igsFile file;
  auto* const reals = new TestReals;
  ASSERT_EQ(read_fields(*reals, "4,3.,,5."), 1);
  EXPECT_EQ(reals->elements, (std::vector<double>{3, igs_undefined_real, 5, igs_undefined_real}));
  auto* const records = new TestRecords;
  ASSERT_EQ(read_fields(*records, "2,1HA"), 1);
  ASSERT_EQ(records->elements.size(), 2U);
  EXPECT_EQ(records->elements[1].name, "");
  EXPECT_EQ(records->elements[1].target.object(), nullptr);
}

TEST(Lists, PositionsCountFromOneInTheFile) {
  igsFile file;
  auto* const entity = new TestPositions;
  ASSERT_EQ(read_fields(*entity, "5,1,0,,2147483647,-2147483648"), 1);
  std::vector<int> numbers;
  for (const Position& position : entity->elements) numbers.push_back(position.number);
  EXPECT_EQ(numbers, (std::vector<int>{0, -1, -1, INT_MAX - 1, INT_MIN}));
  entity->elements.push_back({INT_MAX});
  std::ostringstream text;
  igsOutStream out(&text);
  out.set_section(igsParameterSectionId);
  entity->write_pd_data(out);
  out.set_backpointer(3);
  EXPECT_EQ(text.str().substr(0, 44), "6,1,0,0,2147483647,-2147483647,2147483647;  ");

  EXPECT_EQ(read_fields(*new TestPositions, "-1,5"), 0);
  EXPECT_EQ(active_errors(file), std::vector<std::string>{"TestNoNumbers 3"});
}
}  // namespace
}  // namespace igs_test
