// What a host may do from outside: with several files at hand, with pointers, with classes of its own.
#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <sstream>

#include "errors/test_errors.h"
#include "iges_builder.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igsPolyline.h"
#include "igs/errors/igsErrorLog.h"
#include "igs/errors/igsFixer.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsCurve.h"
#include "objects/test_node.h"

namespace {

using namespace igs_test;  // NOLINT(google-build-using-namespace): the test's own vocabulary

TEST(Host, WorksOnAFileWhileAnotherIsCurrent) {
  using Errors = std::vector<std::string>;
  igsFile file;
  auto* const line = new igs110;
  line->set_start_point({1, 2, 3});
  line->set_end_point({1, 2, 3});
  igsFile other;
  auto* const node = new Node;
  node->children.emplace_back(line);
  EXPECT_EQ(line->check() + node->check(), 0);
  EXPECT_EQ(line->num_logged_errors(), 1);
  EXPECT_EQ(active_errors(file), Errors{"igs110CoincidentPoints 1 1e-06"});
  file.global_section().check();
  EXPECT_GT(active_errors(file).size(), 1U);
  EXPECT_EQ(active_errors(other), Errors{"NodeBadChild 1 0"}) << "through a pointer from the other file";
  igsFixer().fix(file.error_log(), 1);
  EXPECT_TRUE(file.entity(1)->isa(igsPolyline::type()) && other.entity(1) == node);
  EXPECT_EQ(&igsObjectSystem::file(), &other);
}

TEST(Host, ComparesPointersWithObjects) {
  igsFile file;
  auto *const node = new Node, *const other = new Node;
  const igsObjectPtr null, to_node(node), to_other(other);
  EXPECT_TRUE(to_node == igsObjectPtr(1) && igsObjectPtr() == igsObjectPtr(4));
  EXPECT_TRUE(to_node == node && node == to_node && to_node != other && to_node != nullptr && nullptr != to_node);
  EXPECT_TRUE(null == nullptr && null != node && null == igsObjectPtr(9) && to_node != to_other);
  void* const raw = to_other;
  EXPECT_TRUE(to_node && !null && raw == other && to_other == raw);
}

TEST(Host, GivesErrorsTheirKeyAndSinkAndTakesThatAway) {
  igsFile file;
  new Node;
  const auto* const node = new Node;
  RecordingSink sink, own, later;
  auto *const before = new NodeFaulty, *const tagged = new NodeFaulty, *const apart = new NodeFaulty;
  auto* const structure = new igsFileNoPDData(77);
  node->tag_error(before);
  file.set_message_stream(&sink);
  node->tag_error(tagged);
  node->tag_error(structure);
  node->tag_error(static_cast<igsObjectError*>(nullptr));
  node->tag_error(static_cast<igsStructureError*>(nullptr));
  EXPECT_TRUE(tagged->message_stream() == &sink && structure->message_stream() == &sink);
  EXPECT_EQ(structure->key() * 10 + tagged->key(), 773);
  EXPECT_EQ(node->num_logged_errors(), 2);
  apart->set_message_stream(&own);
  for (RecordingSink* const now : {static_cast<RecordingSink*>(nullptr), &later}) {
    file.set_message_stream(now);
    EXPECT_TRUE(tagged->message_stream() == now && apart->message_stream() == &own);
    EXPECT_EQ(before->message_stream(), nullptr);
  }
}

// In a log's three lists: not asked for yet, active, fixed.
TEST(Host, DestroysErrorsItself) {
  igsFile file;
  const igsIndexedSectionLog& log = file.error_log().object_log();
  auto fixed = std::make_unique<ObjectFault>(2);
  {
    const ObjectFault received(1);
    EXPECT_EQ(log.num_errors(), 2);
  }
  {
    ObjectFault active(3);
    active.set_key(7);
    EXPECT_EQ(log.num_errors(7), 1);
    file.error_log().mark_as_fixed(fixed.get());
    fixed.reset();
  }
  EXPECT_EQ(log.num_errors(7) + log.num_errors(), 0);
  EXPECT_TRUE(log.fixed_errors().empty());
}

// Destroyed after whatever the library makes when it is first used.
std::unique_ptr<igsFile> file_of_static_storage;

TEST(HostDeathTest, OwnsAFileToTheEndOfTheProcess) {
  const auto end_with_a_file = [] {
    file_of_static_storage = std::make_unique<igsFile>();
    (new Node)->check();
    std::exit(0);
  };
  EXPECT_EXIT(end_with_a_file(), testing::ExitedWithCode(0), "");
}

/// A class as a host writes it, without the library's templates.
class HostCurve : public Node {
 public:
  static const kluTypeInfo id;
  const kluTypeInfo& objtype() const override { return id; }
  bool isa(const kluTypeInfo& t) const override { return t == id; }
  bool typeof(const kluTypeInfo& t) const override { return id.childof(t); }
  using igsObject::read;
  using igsObject::write;
};
const kluTypeInfo* const parents_of_host_curve[] = {&Node::id, &igsCurve::id, nullptr};
const kluTypeInfo HostCurve::id(utString("HostCurve"), parents_of_host_curve);

TEST(Host, HasClassesOfItsOwn) {
  igsFile file;
  const igsObject& curve = *new HostCurve;
  for (const kluTypeInfo* ancestor : {&HostCurve::id, &igsCurve::id, &igsObject::id, &Node::id}) {
    EXPECT_TRUE(curve.typeof(*ancestor)) << ancestor->name();
    EXPECT_EQ(curve.isa(*ancestor), ancestor == &HostCurve::id);
  }
  EXPECT_FALSE(curve.typeof(igs110::type()) || igsCurve::id.childof(HostCurve::id));
  static const kluTypeInfo root(utString("root"));  // records keep their names for ever
  EXPECT_FALSE(root.childof(igsObject::id));
}

class HostFixer : public igsFixer {
 public:
  using igsFixer::build_dependencies;
  using igsFixer::node;
  using igsFixer::schedule_dependencies;
};

TEST(Host, AsksWhichRepairsWait) {
  igsFile file;
  ObjectFault::create(1, 0, 3);
  ObjectFault::create(3, 1, 5);
  ObjectFault::create(1, 2, 5);
  HostFixer fixer;
  EXPECT_EQ(fixer.node(1), nullptr);
  fixer.build_dependencies(file.error_log());
  fixer.schedule_dependencies();
  std::ostringstream text;
  for (const int de : {1, 3, 5}) {
    const igsFixNode& node = *fixer.node(de);
    text << node.is_used() << ' ' << node.num_children() << ' ' << node.distance() << ';';
  }
  EXPECT_EQ(text.str(), "0 2 1;1 1 2;1 0 3;");
  EXPECT_EQ(fixer.node(7), nullptr);
}

TEST(Host, WalksDependenciesOfItsOwn) {
  igsFixNode a, b, c;
  a.depends_on(&c);
  a.depends_on(&b);
  b.depends_on(&c);
  c.depends_on(&a);
  igsTraveller traveller;
  a.accept_traveller(traveller);
  EXPECT_EQ(traveller.distance_travelled(), 0);
  EXPECT_EQ(a.distance() * 100 + b.distance() * 10 + c.distance(), 123);
  igsFixNode d;
  a.depends_on(&d);
  igsTraveller tired(1);
  c.accept_traveller(tired);
  EXPECT_EQ(d.distance(), 0);
}

}  // namespace
