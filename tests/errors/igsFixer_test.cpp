#include "igs/errors/igsFixer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "errors/test_errors.h"
#include "iges_builder.h"

namespace igs_test {
namespace {

using Names = std::vector<int>;

/// Fixes the errors logged in the file so far and returns the names of those that were tried, in order.
Names fix(const igsFile& file, int keep_going = 1) {
  fix_calls.clear();
  igsFixer().fix(file.error_log(), keep_going);
  return fix_calls;
}

TEST(Fixer, RepairsTheDeepestFirst) {
  struct Case {
    const char* name;
    std::vector<std::pair<int, int>> faults;  ///< entity and what it concerns, named 0, 1, 2, ...
    Names expected;
  };
  const Case cases[] = {
      {"one entity, log order", {{1, 0}, {1, 1}, {1, 0}}, {0, 1, 2}},
      {"chain logged from below", {{5, 0}, {3, 5}, {1, 3}}, {0, 1, 2}},
      {"an entity without errors in between is passed", {{1, 3}, {5, 0}, {3, 5}, {7, 7}, {5, 7}}, {3, 1, 4, 2, 0}},
      {"the longest path counts", {{1, 5}, {1, 3}, {3, 5}, {5, 0}}, {3, 2, 0, 1}},
      {"the longest path counts, long way first", {{1, 3}, {3, 5}, {1, 5}, {5, 0}}, {3, 1, 0, 2}},
      {"the deepest root counts, one level in log order", {{9, 5}, {1, 3}, {3, 5}, {5, 7}, {7, 0}}, {4, 3, 2, 0, 1}},
      {"a cycle without a root is not attempted", {{1, 3}, {3, 1}}, {}},
      {"a cycle behind a root is cut", {{1, 3}, {3, 1}, {5, 1}}, {1, 0, 2}},
      {"a longer cycle behind a root", {{9, 1}, {1, 3}, {3, 5}, {5, 1}, {5, 0}}, {3, 4, 2, 1, 0}},
      {"a rootless cycle keeps what only it reaches", {{1, 3}, {3, 1}, {3, 5}, {5, 0}, {7, 0}}, {4}}};
  for (const Case& c : cases) {
    const igsFile file;
    int name = 0;
    for (const auto& [key, obj] : c.faults) ObjectFault::create(key, name++, obj);
    EXPECT_EQ(fix(file), c.expected) << c.name;
    EXPECT_EQ(fixed_errors(file).size(), c.expected.size()) << c.name;
    EXPECT_EQ(active_errors(file).size(), c.faults.size() - c.expected.size()) << c.name;
  }
}

TEST(Fixer, FailureEndsAnEntityOrAGroupOnlyWithoutKeepGoing) {
  for (const bool keep_going : {false, true}) {
    const igsFile file, other;
    for (const int result : {1, 0, 1}) {
      new TerminateFault(5, result);
      new StartFault(4, result);
      new GlobalFault(3, result);
      ObjectFault::create(1, 2, 3, result);
      ObjectFault::create(3, 1, 0, result);
      new StructureFault(0, result);
    }
    Names expected;
    for (int group = 0; group < 6; ++group) expected.insert(expected.end(), keep_going ? 3 : 2, group);
    EXPECT_EQ(fix(other, keep_going ? 1 : 0), expected);
    EXPECT_EQ(fixed_errors(other).size(), keep_going ? 12U : 6U);
    EXPECT_EQ(active_errors(other).size(), keep_going ? 6U : 12U);
    EXPECT_TRUE(active_errors(file).empty());
  }
}

TEST(Fixer, LeavesWhatItDoesNotAccept) {
  struct ObjectsAlone : public igsFixer {
    bool accepts(const igsError& error) const override { return error.typeof(igsObjectError::type()); }
  };
  const igsFile file;
  new TerminateFault(5, 1);
  ObjectFault::create(1, 2, 0, 1);
  ObjectsAlone().fix(file.error_log(), 0);
  EXPECT_EQ(std::pair(fixed_errors(file).size(), active_errors(file).size()),
            std::pair(std::size_t{1}, std::size_t{1}));
}

/// Logs other errors while it is repaired.
struct Breeder : public igsTyped<Breeder, "Breeder", igsObjectError> {
  int fix() override { return ObjectFault::create(key(), 7), new StructureFault(8), 1; }
};

TEST(Fixer, FixMayLogErrors) {
  igsFile file;
  for (int i = 0; i < 100; ++i) (new Breeder)->set_key(2 * i + 1);
  fix(file);
  EXPECT_EQ(file.error_log().structure_log().num_errors(), 100);
  EXPECT_EQ(file.error_log().object_log().fixed_errors().size(), 100U);
}

TEST(Fixer, ManyPathsAreWalkedOnce) {
  constexpr int count = 150, cycle = 60;
  const auto start = std::chrono::steady_clock::now();
  {  // Entity i depends on all later ones, the farthest first: every path prefix lengthens some distance.
    const igsFile file;
    Names expected;
    for (int i = 0; i < count; ++i) {
      for (int j = count - 1; j >= i; --j) ObjectFault::create(2 * i + 1, i, 2 * j + 1);
      expected.insert(expected.begin(), static_cast<std::size_t>(count - i), i);
    }
    EXPECT_EQ(fix(file), expected);
  }
  const igsFile file;  // each depends on each other
  ObjectFault::create(999, 0, 1);
  for (int i = 0; i < cycle * cycle; ++i) {
    if (i / cycle != i % cycle) ObjectFault::create(2 * (i / cycle) + 1, i + 1, 2 * (cycle - i % cycle) - 1);
  }
  EXPECT_EQ(fix(file).size(), 1U + cycle * (cycle - 1));
  EXPECT_EQ(fix_calls.back(), 0) << "the root comes last";
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace igs_test
