#include "igs/objects/igsObject.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "iges_builder.h"
#include "igs/curves/igs110.h"
#include "igs/file/igsDirectoryEntry.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsFile_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/objects/igsCurve.h"
#include "igs/objects/igsObjectManager.h"
#include "objects/test_node.h"

namespace {

using igs_test::Node;
using igs_test::NodeFaulty;
using Errors = std::vector<std::string>;

/// Those of entities and structure: a fresh file's Global section has faults of its own.
Errors active_errors(const igsFile& file) {
  Errors errors = igs_test::active_errors(file);
  errors.erase(std::remove_if(errors.begin(), errors.end(),
                              [](const std::string& error) { return error.rfind("igsGlobal", 0) == 0; }),
               errors.end());
  return errors;
}

TEST(Object, KnowsItsPlaceAndClass) {
  igsFile file;
  new Node;
  const igsObject* line = new igs110;
  EXPECT_EQ(line->de_number(), 3);
  EXPECT_EQ(line->name(), "Line");
  EXPECT_EQ(&line->file(), &file);
  EXPECT_EQ(line->manager()->object(), line);
  EXPECT_EQ(line->directory_entry().entity_type(), igsEntity110);
  EXPECT_EQ(line->directory_entry().form_number(), 0);
  EXPECT_EQ(line->objtype().id_string(), "igs110");
  EXPECT_TRUE(line->isa(igs110::type()));
  EXPECT_FALSE(line->isa(igsCurve::type()));
  EXPECT_TRUE(line->typeof(igsCurve::type()));
  EXPECT_TRUE(line->typeof(igsObject::type()));
  EXPECT_FALSE(line->typeof(Node::type()));
  EXPECT_FALSE(igsCurve::type().childof(igs110::type()));
}

TEST(Object, ChecksOnceAPass) {
  igsFile file;
  Node *top = new Node, *shared = new Node;
  shared->faulty = true;
  top->children = {igsObjectPtr(shared), igsObjectPtr(shared)};
  const Errors expected{"NodeFaulty 3", "NodeBadChild 1 0", "NodeBadChild 1 1"};
  for (int pass = 1; pass <= 3; ++pass) {
    file.check();
    EXPECT_EQ(shared->checks, pass);
    EXPECT_EQ(top->checks, pass);
    Errors errors = active_errors(file);
    EXPECT_EQ(std::set<std::string>(errors.begin(), errors.end()),
              std::set<std::string>(expected.begin(), expected.end()));
    EXPECT_EQ(errors.size(), 3U);
    EXPECT_EQ(shared->manager()->validated(), 0);
  }
  shared->faulty = false;
  igsObjectSystem::reentrant_start();
  EXPECT_EQ(top->check(), 1);
  shared->faulty = true;
  EXPECT_EQ(shared->check(), 1);  // the pass goes on: the first result stands
  EXPECT_EQ(shared->checks, 4);
  igsObjectSystem::reentrant_end();
  EXPECT_EQ(active_errors(file), Errors());
  EXPECT_EQ(shared->check(), 0);
  EXPECT_EQ(shared->checks, 5);
}

TEST(Object, CheckKeepsStructureErrorsAndCountsBoth) {
  igsFile file;
  Node* node = new Node;
  node->faulty = true;
  new igsFileNoPDData(1);
  new igsFileNoPDData(3);
  EXPECT_EQ(node->check(), 0);
  EXPECT_EQ(node->num_logged_errors(), 2);
  node->faulty = false;
  EXPECT_EQ(node->check(), 0) << "a structure error alone makes an entity invalid";
  EXPECT_EQ(node->num_logged_errors(), 1);
  EXPECT_EQ(active_errors(file), (Errors{"igsFileNoPDData 1", "igsFileNoPDData 3"}));
}

TEST(Object, CheckEndsOnCycles) {
  igsFile file;
  Node *a = new Node, *b = new Node, *self = new Node;
  a->children = {igsObjectPtr(b)};
  b->children = {igsObjectPtr(a)};
  self->children = {igsObjectPtr(self)};
  file.check();
  EXPECT_EQ(active_errors(file), Errors()) << "a sound cycle does not accuse itself";
}

TEST(Object, CheckOfALongChainGivesWhatRecursionWould) {
  igsFile file;
  Node* first = igs_test::make_chain(igs_test::chain_length);
  auto* last = static_cast<Node*>(file.entity(2 * igs_test::chain_length - 1));
  last->faulty = true;
  EXPECT_EQ(first->check(), 0);
  EXPECT_EQ(file.error_log().object_log().num_errors(), igs_test::chain_length);
  last->faulty = false;
  EXPECT_EQ(first->check(), 1);
  EXPECT_EQ(file.error_log().object_log().num_errors(), 0);
}

TEST(Object, TaggingSetsKeyAndStream) {
  igsFile file;
  new Node;
  const Node* node = new Node;
  igs_test::RecordingSink sink;
  auto *before = new NodeFaulty, *after = new NodeFaulty;
  node->tag_error(before);
  file.set_message_stream(&sink);
  node->tag_error(after);
  auto* structure = new igsFileNoPDData(77);
  node->tag_error(structure);
  EXPECT_EQ(before->key(), 3);
  EXPECT_EQ(before->message_stream(), nullptr);
  EXPECT_EQ(after->message_stream(), &sink);
  EXPECT_EQ(structure->key(), 77);
  EXPECT_EQ(structure->message_stream(), &sink);
  node->tag_error(static_cast<igsObjectError*>(nullptr));
  node->tag_error(static_cast<igsStructureError*>(nullptr));
  EXPECT_EQ(node->num_logged_errors(), 2);
}

TEST(Object, PrintsEachEntityOnceAPass) {
  igsFile file;
  Node *a = new Node, *b = new Node;
  a->children = {igsObjectPtr(b)};
  b->children = {igsObjectPtr(a)};
  for (int pass = 0; pass < 2; ++pass) {
    const std::string text = igs_test::printed(*a);
    EXPECT_EQ(text.rfind("@1(-1) = {\n\t", 0), 0U) << text;
    EXPECT_NE(text.find("\n\t@3(-1) = {\n\t\t"), std::string::npos) << text;
    EXPECT_NE(text.find("\n\t\t@1(-1) = {\n\t\t}\n"), std::string::npos) << text;
    EXPECT_EQ(text.substr(text.size() - 5), "\t}\n}\n") << text;
  }
}

TEST(Object, PrintOfALongChainStaysShallow) {
  igsFile file;
  igs_test::make_chain(2000);
  const std::string text = igs_test::printed(file);
  EXPECT_EQ(text.find(std::string(igsObject::max_print_depth + 8, '\t')), std::string::npos);
  for (const char* heading : {"@1(-1) = {", "@3999(-1) = {"}) EXPECT_NE(text.find(heading), std::string::npos);
}

}  // namespace
