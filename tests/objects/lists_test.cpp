// How many elements of a list are believed, on classes that have little else.

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsEntityFields.h"

namespace igs_test {
namespace {
struct TestBadNumReals : public igsErrorClass<TestBadNumReals, "TestBadNumReals", igsObjectError, int> {
  using igsErrorClass::igsErrorClass;
};

struct Record {
  utString name;
  igsObjectPtr target;

  template <class E, class V>
  static void fields(E& record, V& visit) {
    visit("Name", record.name);
    visit("Target", record.target);
  }
};
template <class Element, igsName Name>
class TestList : public igsEntity<TestList<Element, Name>, Name, igsObject> {
 public:
  void check_pd() const override {}

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("Count", entity.elements.size());
    visit.list("Elements", count, entity.elements, igsBadCount<TestBadNumReals>());
  }
  std::vector<Element> elements;
};
using TestReals = TestList<double, "TestReals">;
using TestRecords = TestList<Record, "TestRecords">;

/// Reads `count` elements, of which the first `num_empty` are `empty` and `num_given` are supplied: how many there are
/// then, -1 when the count was refused.
template <class List>
int read_list(int count, const std::string& given, int num_given, const std::string& empty = "", int num_empty = 0) {
  igsFile file;
  std::string data = std::to_string(count);
  for (int i = 0; i < num_empty; ++i) data += empty;
  for (int i = 0; i < num_given; ++i) data += given;
  auto* const entity = new List;
  const int read = read_fields(*entity, data), size = static_cast<int>(entity->elements.size());
  std::vector<std::string> expected;
  if (read == 0 && size == 0) expected = {"TestBadNumReals 1 " + std::to_string(count)};
  EXPECT_EQ(active_errors(file), expected) << data;
  return expected.empty() ? size : -1;
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
    for (const char* record : {",1HA,", ",,0"}) {
      EXPECT_EQ(read_list<TestRecords>(300, record, given, ",,", 300 - given), expected) << given;
    }
  }
}

TEST(Lists, PositionsAreWrittenUpToTheLast) {
  igsFile file;
  auto* const edges = new igs504;
  igsEdge edge;
  edge.set_first_vertex(igsObjectPtr(), INT_MAX - 1);
  edge.set_second_vertex(igsObjectPtr(), INT_MAX);
  edges->set_size(1);
  edges->set_edge(0, edge);
  EXPECT_EQ(written_data(file), "504,1,0,0,2147483647,0,2147483647;");
}
}  // namespace
}  // namespace igs_test
