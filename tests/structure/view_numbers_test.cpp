// The numbers of views, which the file compares.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include "igs/objects/igsObjectManager.h"
#include "igs/structure/igs410_0.h"
#include "structure/structure_fixture.h"

namespace igs_test {
namespace {
TEST(ViewNumbers, BecomeUnique) {
  constexpr int none = -INT_MAX;
  const struct {
    std::vector<int> numbers;
    std::vector<std::string> errors;
    std::vector<int> repaired;
  } cases[] = {
      {{1, 2, 0, 7}, {}, {1, 2, 0, 7}},
      {{3, 3, -2, none, 3},
       {"igs410_0RepeatedView 3 4", "igs410_0InvalidViewNumber 5 5", "igs410_0NoViewNumberDefined 7 6",
        "igs410_0RepeatedView 9 7"},
       {3, 4, 5, 6, 7}},
      {{-5, none, INT_MIN},
       {"igs410_0InvalidViewNumber 1 1", "igs410_0NoViewNumberDefined 3 2", "igs410_0InvalidViewNumber 5 3"},
       {1, 2, 3}},
      {{0, 0}, {"igs410_0RepeatedView 3 1"}, {0, 1}},
      {{INT_MAX, INT_MAX, 1, -1, 3},
       {"igs410_0RepeatedView 3 2", "igs410_0InvalidViewNumber 7 4"},
       {INT_MAX, 2, 1, 4, 3}},
      {{INT_MAX - 1, none, none},
       {"igs410_0NoViewNumberDefined 3 2147483647", "igs410_0NoViewNumberDefined 5 1"},
       {INT_MAX - 1, INT_MAX, 1}},
  };
  for (const auto& c : cases) {
    IgesBuilder builder;
    for (const int number : c.numbers) add_record(builder, "410," + std::to_string(number) + ",1.");
    igsFile file;
    ASSERT_EQ(read_text(file, builder.text()), 1);
    EXPECT_EQ(file.entity(1)->check(), 1) << "no matter of the view alone";
    file.check();
    EXPECT_EQ(active_errors(file), c.errors);
    for (std::size_t i = 0; i < c.numbers.size(); ++i) {
      const igsObject& view = *file.entity(static_cast<int>(2 * i + 1));
      EXPECT_EQ(view.manager()->validated(), view.num_logged_errors() == 0 ? 1 : 0);
    }
    file.clean(1);
    file.check();
    EXPECT_THAT(active_errors(file), testing::IsEmpty());
    std::vector<int> numbers;
    for (std::size_t i = 0; i < c.numbers.size(); ++i) {
      numbers.push_back(entity_of<igs410_0>(file, static_cast<int>(2 * i + 1)).view_number());
    }
    EXPECT_EQ(numbers, c.repaired);
  }
}

TEST(ViewNumbers, AreCheckedBesideOtherFaults) {
  StructureModel model("410,2,0.,1", "404,1,21,0.,0.,0");
  model.file.check();
  EXPECT_EQ(model.errors(), "igs410_0InvalidScale 0; igs410_0WrongPlaneType 0; igs410_0RepeatedView 4");
  model.file.clean(0);
  EXPECT_EQ(model.errors(), "igs410_0WrongPlaneType 0");
  EXPECT_EQ(entity_of<igs410_0>(model.file, StructureModel::subject).view_number(), 4);
}

}  // namespace
}  // namespace igs_test
