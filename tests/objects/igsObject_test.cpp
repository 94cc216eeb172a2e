// Entities, the pointers to them, and what walks from one to the next.
#include <gmock/gmock.h>

#include <climits>
#include <random>
#include <set>

#include "fuzz/invariants.h"
#include "iges_builder.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {

using Pointers = std::vector<const igsObjectPtr*>;

/// The pointers registered on an object, in slot order, twice the same.
Pointers registered(const igsObject* object) {
  Pointers pointers, again;
  igsObjectManagerIT it(object->manager());
  EXPECT_EQ(it(), nullptr);
  while (++it != 0) pointers.push_back(it());
  while (++it != 0) again.push_back(it());
  EXPECT_EQ(pointers, again);
  EXPECT_EQ(static_cast<int>(pointers.size()), object->num_references());
  return pointers;
}

TEST(ObjectPtr, BindsNowOrLaterToTheSlotFreedLast) {
  igsFile file;
  igsObjectPtr a(1), b(1), c(a), x, y;
  { const igsObjectPtr gone(1); }
  for (const int de : {0, 2, 8, -1, -7, INT_MIN, INT_MAX}) EXPECT_EQ(igsObjectPtr(de).de_number(), 0) << de;
  for (int i = 0; i < 3; ++i) new Node;
  EXPECT_EQ(registered(file.entity(1)), (Pointers{&a, &b, &c}));
  const igsObjectPtr& self = b;
  a = c = igsObjectPtr();
  x = b = self;
  y = b;
  EXPECT_EQ(registered(file.entity(1)), (Pointers{&x, &b, &y}));
  for (const int de : {1, 5}) delete file.entity(de);
  for (const int de : {5, 1, 7}) EXPECT_EQ((new Node)->de_number(), de);
}

TEST(ObjectPtr, RegistrationSurvivesWhateverIsDone) {
  igs_fuzz::on_broken_promise = [](const char* promise) { ADD_FAILURE() << promise; };
  constexpr int ahead = 9;
  igsFile file;
  std::vector<igsObjectPtr>& pointers = (new Node)->children;
  std::vector<int> expected(100);
  pointers.resize(expected.size());
  for (int i = 0; i < 3; ++i) new Node;
  std::mt19937 random(7);
  for (int step = 0; step < 20'000; ++step) {
    const int de = std::array{3, 4, 5, ahead}[random() % 4], known = de == 4 ? 0 : de;
    const std::size_t to = random() % expected.size(), from = random() % expected.size();
    const auto first = static_cast<long>(random() % 8), kind = static_cast<long>(random() % 6);
    if (kind == 0) pointers[to] = pointers[from], expected[to] = expected[from];
    if (kind == 1) std::swap(pointers[to], pointers[from]), std::swap(expected[to], expected[from]);
    if (kind == 2) pointers[to] = igsObjectPtr(de), expected[to] = known;
    if (kind == 3) pointers.emplace_back(de), expected.push_back(known);
    if (kind == 4) pointers.push_back(std::move(pointers[to])), expected.push_back(std::exchange(expected[to], 0));
    if (kind == 5) pointers.erase(pointers.begin() + first), expected.erase(expected.begin() + first);
  }
  ASSERT_GT(expected.size(), 3000U);
  for (const int bound : {0, ahead}) {  // what waits is null
    for (std::size_t i = 0; i < expected.size(); ++i) {
      ASSERT_EQ(pointers[i].de_number(), expected[i] == ahead ? bound : expected[i]) << i;
    }
    igs_fuzz::check_pointers(file);
    if (bound == 0) new Node;
    delete file.entity(3);
    std::replace(expected.begin(), expected.end(), 3, 0);
  }
}

TEST(Unreference, DeletesWhatNobodyElseHolds) {
  struct Case {
    std::vector<std::vector<int>> nodes;  ///< what each points to
    std::vector<int> released, left;
  };
  const Case cases[] = {{{{3, 0, 5, 5}, {5}, {}, {5}}, {1}, {5, 7}},
                        {{{3}, {}}, {0, 1}, {}},
                        {{{3}, {1}, {5}}, {1, 5}, {1, 3, 5}}};  // a cycle holds itself
  for (const Case& c : cases) {
    const igsFile file;
    for (const std::vector<int>& targets : c.nodes) {
      (new Node)->children = std::vector<igsObjectPtr>(targets.begin(), targets.end());
    }
    for (const int de : c.released) {
      igsObjectPtr pointer(de), other(de);
      pointer.unreference();
      EXPECT_TRUE(pointer == nullptr && other == igsObjectPtr(de));
      other.unreference();
    }
    std::vector<int> left;
    igsFileIT entities(&file);
    while (++entities != 0) left.push_back(entities()->de_number());
    EXPECT_EQ(left, c.left);
  }
}

TEST(Unreference, TakesTheMatrixAlong) {
  igsFile file;
  igsObjectPtr node(new Node);
  node->directory_entry().set_matrix(igsObjectPtr(new Node));
  node.unreference();
  EXPECT_EQ(file.num_entities(), 0);
}

TEST(Unreference, MayReachWhereItBegan) {
  igsFile file;
  Node* const a = new Node({3, 5});
  new Node({1});
  new Node;
  Node* const self = new Node({7});
  a->unreference_children();
  EXPECT_TRUE(file.entity(1) == a && file.num_entities() == 2) << "an entity outlives its own release";
  a->children = {igsObjectPtr(new Node({1}))};
  for (Node* const node : {a, self}) node->children[0].unreference();
  EXPECT_EQ(file.num_entities(), Node::alive);
}

TEST(ObjectPtr, OutlivesItsFile) {
  igsObjectPtr pending, bound;
  {
    igsFile file;
    bound = igsObjectPtr(make_chain(chain_length));
    pending = igsObjectPtr(2 * chain_length + 1);
  }
  EXPECT_TRUE(pending == nullptr && bound == nullptr);
  EXPECT_EQ(Node::alive, 0);
}

TEST(Object, ChecksOnceAPass) {
  igsFile file;
  Node *top = new Node({3, 3}), *shared = new Node;
  shared->faulty = true;
  for (int pass = 1; pass <= 3; ++pass) {
    file.check();
    EXPECT_EQ(std::pair(shared->checks, top->checks), std::pair(pass, pass));
    EXPECT_THAT(active_errors(file), testing::IsSupersetOf({"NodeFaulty 3", "NodeBadChild 1 0", "NodeBadChild 1 1"}));
    EXPECT_EQ(file.error_log().object_log().num_errors(), 3);
  }
  shared->faulty = false;
  igsObjectSystem::reentrant_start();
  EXPECT_EQ(top->check(), 1);
  shared->faulty = true;
  EXPECT_EQ(shared->check(), 1);  // the pass goes on: the first result stands
  igsObjectSystem::reentrant_end();
  EXPECT_EQ(file.error_log().object_log().num_errors(), 0);
  EXPECT_EQ(shared->check(), 0);
  EXPECT_EQ(shared->checks, 5);
}

TEST(Object, CheckKeepsStructureErrorsAndCountsBoth) {
  igsFile file;
  Node* node = new Node;
  for (const int de : {1, 3}) new igsFileNoPDData(de);
  for (const bool faulty : {true, false}) {  // a structure error alone makes an entity invalid
    node->faulty = faulty;
    EXPECT_EQ(node->check(), 0);
    EXPECT_EQ(node->num_logged_errors(), faulty ? 2 : 1);
  }
  EXPECT_THAT(active_errors(file), testing::ElementsAre("igsFileNoPDData 1", "igsFileNoPDData 3"));
}

TEST(Object, LongChainIsCheckedAsByRecursion) {
  igsFile file;
  Node* const first = make_chain(chain_length);
  auto* const last = static_cast<Node*>(file.entity(2 * chain_length - 1));
  last->faulty = true;
  EXPECT_EQ(first->check(), 0);
  EXPECT_EQ(file.error_log().object_log().num_errors(), chain_length);
  last->faulty = false;
  EXPECT_EQ(first->check(), 1);
  EXPECT_EQ(file.error_log().object_log().num_errors(), 0);
}

/// What stands around each entity in a print: nested further than the call stack is used for, where the first beyond
/// that stands.
void print_frames(const Node& node, std::size_t depth, std::set<const Node*>& seen, std::string& text) {
  const std::string indent(std::min<std::size_t>(depth, 32), '\t');
  text += indent + '@' + std::to_string(node.de_number()) + "(-1) = {\n";
  for (const igsObjectPtr& child : seen.insert(&node).second ? node.children : std::vector<igsObjectPtr>()) {
    print_frames(static_cast<Node&>(*child.object()), depth + 1, seen, text);
  }
  text += indent + "}\n";
}

TEST(Object, CheckEndsOnCyclesAndPrintShowsWhatIsNestedWhereItStands) {
  constexpr int length = 300;
  igsFile file;
  const Node& first = *make_chain(length);
  std::minstd_rand random(1);
  for (int i = 0; i < length; ++i) {
    auto* const node = static_cast<Node*>(file.entity(2 * i + 1));
    const auto any = [&random] { return igsObjectPtr(2 * static_cast<int>(random() % length) + 1); };
    if (i % 3 != 0) node->children.insert(node->children.begin(), any());
    for (int more = i % 4; more > 0; --more) node->children.push_back(any());
  }
  file.check();
  EXPECT_EQ(file.error_log().object_log().num_errors(), 0) << "a sound cycle does not accuse itself";
  std::set<const Node*> seen;
  std::string expected;
  print_frames(first, 0, seen, expected);
  for (int pass = 0; pass < 2; ++pass) {
    std::string frames;
    std::istringstream text(printed(first));
    for (std::string line; std::getline(text, line);) {
      if (line.find_first_of("@}") != std::string::npos) frames += line + '\n';
    }
    EXPECT_EQ(frames, expected);
  }
}

}  // namespace
}  // namespace igs_test
