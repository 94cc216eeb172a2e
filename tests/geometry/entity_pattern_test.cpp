// What follows from a class's list of fields, on a class that has fields of every shape.

#include <gtest/gtest.h>

#include <climits>

#include "geometry/geometry_fixture.h"
#include "igs/errors/igsErrorClass.h"
#include "igs/fields/igsEntityFields.h"

namespace igs_test {
namespace {
class TestBadNumReals : public igsErrorClass<TestBadNumReals, "TestBadNumReals", igsObjectError, int> {
 public:
  using igsErrorClass::igsErrorClass;
};
class TestBadNumRecords : public igsErrorClass<TestBadNumRecords, "TestBadNumRecords", igsObjectError, int> {
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

class TestEntity : public igsEntity<TestEntity, "TestEntity", igsObject> {
 public:
  void check_pd() const override {}

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int reals = visit.count("NumberOfReals", entity.reals.size());
    const int records = visit.count("NumberOfRecords", entity.records.size());
    visit("Point", entity.point);
    visit.list("Reals", reals, entity.reals, igsBadCount<TestBadNumReals>());
    visit.list("Records", records, entity.records, igsBadCount<TestBadNumRecords>());
    visit("Last", entity.last);
  }

  giPoint2 point;
  std::vector<double> reals;
  std::vector<Record> records;
  igsObjectPtr last;
};

/// A list of positions.
class TestPositions : public igsEntity<TestPositions, "TestPositions", igsObject> {
 public:
  struct Position {
    int number = 0;

    template <class E, class V>
    static void fields(E& position, V& visit) {
      visit.index("Index", position.number);
    }
  };
  void check_pd() const override {}

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    const int count = visit.count("NumberOfPositions", entity.positions.size());
    visit.list("Positions", count, entity.positions, igsBadCount<TestNoNumbers>());
  }
  std::vector<Position> positions;
};

/// Reads free-format parameter data, without the type number, into an entity.
int read_fields(igsObject& entity, const std::string& data) {
  IgesBuilder builder;
  builder.entity_with_raw_data(110, 0, data + ';');
  builder.order("P");
  std::istringstream text(builder.text());
  igsInStream in(text);
  in.reset();  // into the Parameter Data section
  return entity.read_pd_data(in);
}

std::string written_fields(igsObject& entity) {
  std::ostringstream text;
  igsOutStream out(&text);
  out.set_section(igsParameterSectionId);
  entity.write_pd_data(out);
  out.set_backpointer(3);
  const std::string record = text.str().substr(0, 64);
  return record.substr(0, record.find_last_not_of(' ') + 1);
}

TEST(EntityPattern, ListsAndRecordsComposeInEveryOperation) {
  igsFile file;
  auto* const entity = new TestEntity;
  ASSERT_EQ(read_fields(*entity, "3,2,1.,2.,3.,,5.,2HAB,1,,1,1"), 1);
  ASSERT_EQ(entity->reals.size(), 3U);
  EXPECT_EQ(entity->reals[0], 3);
  EXPECT_EQ(entity->reals[1], igs_undefined_real);  // given as an empty field
  EXPECT_EQ(entity->reals[2], 5);
  EXPECT_EQ(entity->num_references(), 3);
  entity->reals[1] = 4;
  EXPECT_EQ(written_fields(*entity), "3,2,1.,2.,3.,4.,5.,2HAB,1,0H,1,1;");
  entity->records[0].target = entity->records[1].target = entity->last = igsObjectPtr();
  EXPECT_EQ(printed_data(*entity),
            "NumberOfReals = 3\nNumberOfRecords = 2\nPoint = (1, 2)\n"
            "Reals = {\n\t(0) = 3\n\t(1) = 4\n\t(2) = 5\n}\n"
            "Records = {\n\t(0) = {\n\t\tName = AB\n\t\tTarget = {\n\t\t\t(NullPointer)\n\t\t}\n\t}\n"
            "\t(1) = {\n\t\tName = \n\t\tTarget = {\n\t\t\t(NullPointer)\n\t\t}\n\t}\n}\n"
            "Last = {\n\t(NullPointer)\n}\n");

  auto* const other = new TestEntity;
  entity->records[0].target = igsObjectPtr(other);
  entity->last = igsObjectPtr(entity);
  igsObjectPtr keep(other);
  struct Collect : igsPointerVisitor {
    std::vector<int> found;
    void visit(igsObjectPtr& pointer) override { found.push_back(pointer.de_number()); }
  } pointers;
  entity->visit_pointers(pointers);
  EXPECT_EQ(pointers.found, (std::vector<int>{3, 0, 1}));
  EXPECT_EQ(other->num_references(), 2);
  entity->last = igsObjectPtr();
  entity->unreference_children();
  EXPECT_EQ(other->num_references(), 1);
  EXPECT_TRUE(entity->make_one()->isa(TestEntity::type()));
}

TEST(EntityPattern, WhatTheRecordDoesNotSupplyIsUnset) {
  igsFile file;
  auto* const entity = new TestEntity;
  ASSERT_EQ(read_fields(*entity, "2,2,1.,2.,3."), 1);
  EXPECT_EQ(entity->reals, (std::vector<double>{3, igs_undefined_real}));
  ASSERT_EQ(entity->records.size(), 2U);
  EXPECT_EQ(entity->records[1].name, "");
  EXPECT_EQ(entity->records[1].target.object(), nullptr);
}

TEST(EntityPattern, TheFirstUnusableCountEndsTheRead) {
  const struct {
    const char* data;
    const char* found;
  } cases[] = {{"-1,-1,1.,2.", "TestBadNumReals 1 -1"}, {"1,257,1.,2.,3.,1HA,0", "TestBadNumRecords 1 257"}};
  for (const auto& c : cases) {
    igsFile file;
    EXPECT_EQ(read_fields(*new TestEntity, c.data), 0);
    const std::vector<igsError*> errors = object_errors(file);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(describe(*errors[0]), c.found);
  }
}

// Of 300 elements, 75 are enough for the count to be believed.
TEST(EntityPattern, EmptyFieldsSupplyNothing) {
  constexpr int count = 300, enough = 75;
  const struct {
    const char *head, *given, *empty;
  } cases[] = {{"300,0,1.,2.", ",7.", ","}, {"0,300,1.,2.", ",,0", ",,"}, {"0,300,1.,2.", ",1HA,", ",,"}};
  for (const auto& c : cases) {
    for (const int given : {0, enough - 1, enough, count}) {
      igsFile file;
      std::string data = c.head;
      for (int i = 0; i < count; ++i) data += i >= count - given ? c.given : c.empty;
      auto* const entity = new TestEntity;
      EXPECT_EQ(read_fields(*entity, data), given >= enough ? 1 : 0) << c.head << ' ' << given;
      EXPECT_EQ(object_errors(file).size(), given >= enough ? 0U : 1U);
      EXPECT_EQ(entity->reals.size() + entity->records.size(), given >= enough ? 300U : 0U);
    }
  }
}

TEST(EntityPattern, PositionsCountFromOneInTheFile) {
  igsFile file;
  auto* const entity = new TestPositions;
  ASSERT_EQ(read_fields(*entity, "5,1,0,,2147483647,-2147483648"), 1);
  std::vector<int> numbers;
  for (const TestPositions::Position& position : entity->positions) numbers.push_back(position.number);
  EXPECT_EQ(numbers, (std::vector<int>{0, -1, -1, INT_MAX - 1, INT_MIN}));
  EXPECT_EQ(written_fields(*entity), "5,1,0,0,2147483647,-2147483647;");
  entity->positions = {{INT_MAX}, {7}};
  EXPECT_EQ(written_fields(*entity), "2,2147483647,8;");
  entity->positions = {{7}};
  EXPECT_EQ(printed_data(*entity), "NumberOfPositions = 1\nPositions = {\n\t(0) = {\n\t\tIndex = 7\n\t}\n}\n");
}

TEST(EntityPattern, AnErrorForUnusableCountsNeedNotTakeTheCount) {
  igsFile file;
  EXPECT_EQ(read_fields(*new TestPositions, "-1,5"), 0);
  const std::vector<igsError*> errors = object_errors(file);
  ASSERT_EQ(errors.size(), 1U);
  EXPECT_EQ(describe(*errors[0]), "TestNoNumbers 1");
}
}  // namespace
}  // namespace igs_test
