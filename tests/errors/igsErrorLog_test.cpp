#include "igs/errors/igsErrorLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <map>
#include <new>
#include <random>
#include <string>
#include <vector>

#include "errors/test_errors.h"
#include "iges_builder.h"
#include "igs/file/igsFile.h"
#include "igs/structure/igsCompound_errors.h"
#include "objects/test_node.h"

namespace igs_test {
namespace {

using Names = std::vector<int>;

/// The names of a log's active errors in slot order.
template <class Fault>
Names active(const igsSimpleSectionLog& log) {
  Names names;
  igsSimpleSectionLogIT it(log);
  while (++it != 0) names.push_back(static_cast<const Fault*>(it())->name);
  EXPECT_EQ(it(), nullptr);
  EXPECT_EQ(static_cast<int>(names.size()), log.num_errors());
  return names;
}

TEST(ErrorLog, RoutesByKind) {
  igsFile file;
  igsErrorLog& log = file.error_log();
  igsError* errors[] = {new ObjectFault(0), new StructureFault(1), new GlobalFault(2), new StartFault(3),
                        new TerminateFault(4)};
  EXPECT_EQ((new igsCompoundEntityError(0))->fix(), 0) << "of no compound";
  for (int id = 0; id < igs_num_section_logs; ++id) {
    igsSimpleSectionLog* const section = log.get_section_log(static_cast<igsLogID>(id));
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(errors[id]->log(), section) << id;
    EXPECT_EQ(errors[id]->log_position(), 0) << id;
    EXPECT_EQ(section->num_errors(), id == 0 ? 2 : 1) << id;
    for (int other = 0; other < igs_num_section_logs; ++other) {
      if (other == id) continue;
      EXPECT_EQ(section->receive_error(errors[other]) + section->mark_as_fixed(errors[other]), 0);
    }
    section->print();
  }
  log.print();
  StrayFault stray(1);
  log.receive_error(&stray);
  log.mark_as_fixed(&stray);
  EXPECT_EQ(stray.log(), nullptr);
  EXPECT_EQ(stray.log_position(), -1);
  for (igsError* error : errors) log.mark_as_fixed(error);
  EXPECT_EQ(active_errors(file), std::vector<std::string>{"igsCompoundEntityError 0"});
  EXPECT_EQ(fixed_errors(file), (std::vector<std::string>{"ObjectFault 0", "StructureFault 1", "GlobalFault 2",
                                                          "StartFault 3", "TerminateFault 4"}));
  EXPECT_EQ(log.get_section_log(static_cast<igsLogID>(5)), nullptr);
}

// Whatever it is and however many there are, each error keeps its own.
TEST(ErrorLog, EveryErrorHasItsSink) {
  std::vector<RecordingSink> sinks(600);
  StrayFault stray(0);
  stray.set_message_stream(&sinks[0]);
  {
    igsFile file;
    std::vector<igsError*> errors;
    for (std::size_t i = 0; i < sinks.size(); ++i) errors.push_back(new ObjectFault(static_cast<int>(i)));
    EXPECT_EQ(errors[0]->message_stream(), nullptr);
    for (const std::size_t shift : {0U, 1U}) {
      for (std::size_t i = 0; i < sinks.size(); ++i) errors[i]->set_message_stream(&sinks[(i + shift) % 600]);
      for (std::size_t i = 0; i < sinks.size(); ++i) EXPECT_EQ(errors[i]->message_stream(), &sinks[(i + shift) % 600]);
    }
    errors[598]->set_message_stream(nullptr);
    EXPECT_EQ(errors[598]->message_stream(), nullptr);
  }
  EXPECT_EQ(stray.message_stream(), &sinks[0]);
}

template <std::size_t Alignment, std::size_t Size>
struct Fault : public ObjectFault {
  using ObjectFault::ObjectFault;
  alignas(Alignment) char more[Size] = {};
};

// A log deletes what its host has made.
TEST(ErrorLog, TakesErrorsFromWhereverTheyAre) {
  {
    igsFile file;
    for (int i = 0; i < 3; ++i) {
      const auto* const aligned = new Fault<64, 1>(i);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(aligned) % 64, 0U);
      new (std::nothrow) ObjectFault(i);
      new Fault<1, 1000>(i);
    }
    EXPECT_EQ(ObjectFault::alive, 9);
  }
  EXPECT_EQ(ObjectFault::alive, 0);
  alignas(StrayFault) unsigned char place[sizeof(StrayFault)];
  const StrayFault* const stray = new (place) StrayFault(1);
  EXPECT_EQ(static_cast<const void*>(stray), place);
  stray->~StrayFault();
}

template <class Fault>
class SectionLog : public testing::Test {};
using Kinds = testing::Types<ObjectFault, StructureFault, GlobalFault, StartFault, TerminateFault>;
TYPED_TEST_SUITE(SectionLog, Kinds);

TYPED_TEST(SectionLog, SlotsAreReusedAndErrorsLeave) {
  igsFile file;
  std::vector<TypeParam*> errors;
  for (int i = 0; i < 6; ++i) errors.push_back(new TypeParam(i));
  igsSimpleSectionLog& log = *errors[0]->log();
  EXPECT_EQ(active<TypeParam>(log), (Names{0, 1, 2, 3, 4, 5}));
  for (const std::size_t i : {1U, 4U, 4U}) log.mark_as_fixed(errors[i]);
  EXPECT_EQ((Names{errors[1]->log_position(), errors[4]->log_position()}), (Names{0, 1}));
  EXPECT_EQ(active<TypeParam>(log), (Names{0, 2, 3, 5}));
  for (int name = 6; name < 9; ++name) errors.push_back(new TypeParam(name));
  EXPECT_EQ(active<TypeParam>(log), (Names{0, 7, 2, 3, 6, 5, 8})) << "the slot freed last is taken first";
  EXPECT_EQ(log.fixed_errors(), (std::vector<igsError*>{errors[1], errors[4]}));
  for (igsError* error : {errors[1], errors[8], static_cast<TypeParam*>(nullptr)}) log.delete_error(error);
  EXPECT_EQ(TypeParam::alive, 7);
  EXPECT_EQ(log.fixed_errors(), std::vector<igsError*>{errors[4]});
  EXPECT_EQ(errors[4]->log_position(), 0);
  igsSimpleSectionLogIT it(&log);
  EXPECT_EQ(it(), nullptr);
  Names walked;
  while (++it != 0) {
    auto* const error = static_cast<TypeParam*>(it());
    walked.push_back(error->name);
    if (error->name % 3 == 0) log.mark_as_fixed(error);
    if (error->name % 3 == 1) log.delete_error(error);
  }
  EXPECT_EQ(walked, (Names{0, 7, 2, 3, 6, 5}));
  EXPECT_EQ(active<TypeParam>(log), (Names{2, 5}));
  log.clear();
  EXPECT_EQ(TypeParam::alive, 0);
  EXPECT_EQ(active<TypeParam>(log), Names());
  EXPECT_TRUE(log.fixed_errors().empty());
  EXPECT_EQ((new TypeParam(9))->log_position(), 0);
  log.mark_as_fixed(new TypeParam(10));
}

TEST(IndexedLog, KeysOfErrorsThatAreNotCounted) {
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  auto* const error = new ObjectFault(0);
  EXPECT_EQ((Names{error->key(), error->obj()}), (Names{igs_unset_int, igs_unset_int}));
  EXPECT_EQ(log.num_errors(igs_unset_int), 1);
  error->set_key(7);
  EXPECT_EQ(error->obj(), 7);
  EXPECT_EQ(log.num_errors(igs_unset_int), 0);
  log.mark_as_fixed(error);
  error->set_key(9);
  for (const int absent : {7, 9, 0, -1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(log.num_errors(absent), 0);
    log.clear(absent);
  }
  EXPECT_EQ(log.fixed_errors(), std::vector<igsError*>{error});
  const Node* node = new Node;  // DE 1
  for (int i = 0; i < 6; ++i) ObjectFault::create(i % 2, i);
  log.clear(0);  // not counted yet
  EXPECT_EQ(active<ObjectFault>(log), (Names{1, 3, 5}));
  for (int i = 0; i < 2; ++i) (new StructureFault(i))->set_key(1);
  EXPECT_EQ((Names{log.num_errors(1), file.error_log().structure_log().num_errors(1), node->num_logged_errors()}),
            (Names{3, 2, 5}));
}

TEST(IndexedLog, ManyErrorsOfOneKeyAreNoBurden) {
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  std::vector<ObjectFault*> errors;
  for (int i = 0; i < chain_length; ++i) {
    errors.push_back(ObjectFault::create(1, i));
    ASSERT_EQ(i % 3 == 0 ? log.num_errors(1) : i + 1, i + 1);
  }
  for (std::size_t i = 0; i < errors.size() / 2; ++i) {
    errors[i]->set_key(3);
    i % 2 == 0 ? static_cast<void>(log.mark_as_fixed(errors[i])) : log.delete_error(errors[i]);
  }
  EXPECT_EQ(log.num_errors(3), 0);
  EXPECT_EQ(log.num_errors(1), chain_length - chain_length / 2);
  log.clear(1);
  EXPECT_EQ(log.num_errors(), 0);
}

/// What an indexed log does, told simply: the slot freed last is taken first, and the errors of a key leave in the
/// order of the latest.
struct SimpleLog {
  std::vector<const igsError*> slots;
  std::vector<std::size_t> free_slots;
  std::map<int, std::vector<ObjectFault*>> errors;

  void add(ObjectFault* error, int key) {
    if (free_slots.empty()) free_slots.push_back(slots.size()), slots.push_back(nullptr);
    slots[free_slots.back()] = error;
    free_slots.pop_back();
    errors[key].push_back(error);
  }
  void remove(const ObjectFault* error, int key) {
    free_slots.push_back(static_cast<std::size_t>(std::find(slots.begin(), slots.end(), error) - slots.begin()));
    slots[free_slots.back()] = nullptr;
    std::erase(errors[key], error);
  }
  void clear(int key) {
    while (!errors[key].empty()) remove(errors[key].back(), key);
  }
};

TEST(IndexedLog, SlotsAndKeysComeAndGo) {
  constexpr int keys = 3, steps = 20000;
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  SimpleLog expected;
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return static_cast<int>(random() % end); };
  for (int step = 0; step < steps; ++step) {
    const int key = below(keys), other = below(keys), action = below(100);
    std::vector<ObjectFault*>& errors = expected.errors[key];
    if (action == 0) {
      log.clear(key);
      expected.clear(key);
    } else if (action < 40 || errors.empty()) {
      expected.add(ObjectFault::create(key, step), key);
    } else {
      ObjectFault* const error = errors[static_cast<std::size_t>(below(errors.size()))];
      if (action < 60) {
        if (key != other) std::erase(errors, error), expected.errors[other].push_back(error);
        error->set_key(other);
      } else {
        expected.remove(error, key);
        action < 80 ? log.delete_error(error) : static_cast<void>(log.mark_as_fixed(error));
      }
    }
    for (int each = 0; each < keys; ++each) {
      ASSERT_EQ(log.num_errors(each), static_cast<int>(expected.errors[each].size())) << step;
    }
    for (std::size_t slot = 0; slot < expected.slots.size(); ++slot) {
      ASSERT_EQ(log.error_in_slot(static_cast<int>(slot)), expected.slots[slot]) << step;
    }
  }
}

}  // namespace
}  // namespace igs_test
