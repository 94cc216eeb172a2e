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

namespace {

using namespace igs_test;  // NOLINT(google-build-using-namespace): the test's own vocabulary
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
  new igsCompoundEntityError(0);
  for (int id = 0; id < igs_num_section_logs; ++id) {
    igsSimpleSectionLog* section = log.get_section_log(static_cast<igsLogID>(id));
    ASSERT_NE(section, nullptr);
    EXPECT_EQ(errors[id]->log(), section) << id;
    EXPECT_EQ(errors[id]->log_position(), 0) << id;
    EXPECT_EQ(section->num_errors(), id == 0 ? 2 : 1) << id;
    for (int other = 0; other < igs_num_section_logs; ++other) {
      if (other == id) continue;
      EXPECT_EQ(section->receive_error(errors[other]), 0);
      EXPECT_EQ(section->mark_as_fixed(errors[other]), 0);
    }
    section->print();
  }
  log.print();
  for (igsError* error : errors) log.mark_as_fixed(error);
  EXPECT_EQ(active_errors(file), std::vector<std::string>{"igsCompoundEntityError 0"});
  EXPECT_EQ(fixed_errors(file), (std::vector<std::string>{"ObjectFault 0", "StructureFault 1", "GlobalFault 2",
                                                          "StartFault 3", "TerminateFault 4"}));
  EXPECT_EQ(log.get_section_log(static_cast<igsLogID>(5)), nullptr);
}

TEST(ErrorLog, StrayErrorsAreNotFiled) {
  igsFile file;
  StrayFault stray(1);
  file.error_log().receive_error(&stray);
  file.error_log().mark_as_fixed(&stray);
  EXPECT_EQ(stray.log(), nullptr);
  EXPECT_EQ(stray.log_position(), -1);
  EXPECT_EQ(active_errors(file), std::vector<std::string>());
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
    for (std::size_t i = 0; i < sinks.size(); ++i) errors[i]->set_message_stream(&sinks[i]);
    for (std::size_t i = 0; i < sinks.size(); ++i) EXPECT_EQ(errors[i]->message_stream(), &sinks[i]) << i;
    errors[599]->set_message_stream(&sinks[0]);
    errors[598]->set_message_stream(nullptr);
    errors[0]->set_message_stream(&sinks[599]);
    EXPECT_EQ(errors[599]->message_stream(), &sinks[0]);
    EXPECT_EQ(errors[598]->message_stream(), nullptr);
    EXPECT_EQ(errors[0]->message_stream(), &sinks[599]);
    EXPECT_EQ(errors[597]->log(), file.error_log().get_section_log(igsObjectLog));
  }
  EXPECT_EQ(stray.message_stream(), &sinks[0]);
}

TEST(ErrorLog, DiesWithItsErrors) {
  {
    igsFile file;
    for (int i = 0; i < 5; ++i) {
      ObjectFault::create(i, i);
      igsError* fixed = new StartFault(i);
      if (i % 2 == 0) file.error_log().mark_as_fixed(fixed);
    }
    EXPECT_EQ(ObjectFault::alive, 5);
  }
  EXPECT_EQ(ObjectFault::alive, 0);
  EXPECT_EQ(StartFault::alive, 0);
}

struct alignas(64) AlignedFault : public ObjectFault {
  using ObjectFault::ObjectFault;
};
struct LargeFault : public ObjectFault {
  using ObjectFault::ObjectFault;
  char more[1000] = {};
};

// A log deletes what its host has made.
TEST(ErrorLog, TakesErrorsFromWhereverTheyAre) {
  {
    igsFile file;
    for (int i = 0; i < 3; ++i) {
      const auto* const aligned = new AlignedFault(i);
      EXPECT_EQ(reinterpret_cast<std::uintptr_t>(aligned) % alignof(AlignedFault), 0U);
      new (std::nothrow) ObjectFault(i);
      new LargeFault(i);
      ::new ObjectFault(i);
    }
    EXPECT_EQ(ObjectFault::alive, 12);
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

/// Makes the errors 0 to 5 and returns them.
template <class Fault>
std::vector<Fault*> make_six() {
  std::vector<Fault*> errors;
  for (int i = 0; i < 6; ++i) errors.push_back(new Fault(i));
  return errors;
}

TYPED_TEST(SectionLog, ReusesTheSlotFreedLast) {
  igsFile file;
  const auto errors = make_six<TypeParam>();
  igsSimpleSectionLog& log = *errors[0]->log();
  EXPECT_EQ(active<TypeParam>(log), (Names{0, 1, 2, 3, 4, 5}));
  log.mark_as_fixed(errors[1]);
  log.mark_as_fixed(errors[4]);
  EXPECT_EQ(errors[1]->log_position(), 0);
  EXPECT_EQ(errors[4]->log_position(), 1);
  EXPECT_EQ(active<TypeParam>(log), (Names{0, 2, 3, 5}));
  for (int name = 6; name < 9; ++name) new TypeParam(name);
  EXPECT_EQ(active<TypeParam>(log), (Names{0, 7, 2, 3, 6, 5, 8}));
  ASSERT_EQ(log.fixed_errors().size(), 2U);
  EXPECT_EQ(log.fixed_errors()[0], errors[1]);
  EXPECT_EQ(log.fixed_errors()[1], errors[4]);
}

TYPED_TEST(SectionLog, DeletesActiveAndFixedErrors) {
  igsFile file;
  const auto errors = make_six<TypeParam>();
  igsSimpleSectionLog& log = *errors[0]->log();
  for (const int i : {0, 2, 4}) log.mark_as_fixed(errors[static_cast<std::size_t>(i)]);
  log.delete_error(errors[2]);
  log.delete_error(errors[3]);
  EXPECT_EQ(TypeParam::alive, 4);
  EXPECT_EQ(active<TypeParam>(log), (Names{1, 5}));
  ASSERT_EQ(log.fixed_errors().size(), 2U);
  EXPECT_EQ(log.fixed_errors()[0], errors[0]);
  EXPECT_EQ(log.fixed_errors()[1], errors[4]);
  EXPECT_EQ(errors[4]->log_position(), 1);
  log.delete_error(nullptr);
  log.clear();
  EXPECT_EQ(TypeParam::alive, 0);
  EXPECT_EQ(active<TypeParam>(log), Names());
  EXPECT_TRUE(log.fixed_errors().empty());
  EXPECT_EQ((new TypeParam(9))->log_position(), 0);
}

TYPED_TEST(SectionLog, WalkGoesOnWhileErrorsLeave) {
  igsFile file;
  const auto errors = make_six<TypeParam>();
  igsSimpleSectionLog& log = *errors[0]->log();
  igsSimpleSectionLogIT it(&log);
  EXPECT_EQ(it(), nullptr);
  Names walked;
  while (++it != 0) {
    auto* error = static_cast<TypeParam*>(it());
    walked.push_back(error->name);
    if (error->name % 3 == 0) log.mark_as_fixed(error);
    if (error->name % 3 == 1) log.delete_error(error);
  }
  EXPECT_EQ(walked, (Names{0, 1, 2, 3, 4, 5}));
  EXPECT_EQ(active<TypeParam>(log), (Names{2, 5}));
}

TEST(IndexedLog, FollowsKeys) {
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  auto* error = new ObjectFault(0);
  EXPECT_EQ(error->key(), igs_unset_int);
  EXPECT_EQ(error->obj(), igs_unset_int);
  EXPECT_EQ(log.num_errors(igs_unset_int), 1);
  error->set_key(7);
  EXPECT_EQ(error->obj(), 7);
  EXPECT_EQ(log.num_errors(igs_unset_int), 0);
  EXPECT_EQ(log.num_errors(7), 1);
  ObjectFault* second = ObjectFault::create(7, 1);
  ObjectFault::create(9, 2);
  EXPECT_EQ(log.num_errors(7), 2);
  error->set_key(9);
  error->set_key(9);
  EXPECT_EQ(log.num_errors(7), 1);
  EXPECT_EQ(log.num_errors(9), 2);
  log.mark_as_fixed(second);
  EXPECT_EQ(log.num_errors(7), 0);
  second->set_key(9);
  EXPECT_EQ(log.num_errors(9), 2) << "fixed errors are no longer counted";
  for (const int absent : {0, -1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(log.num_errors(absent), 0);
    log.clear(absent);
  }
  log.clear(9);
  EXPECT_EQ(ObjectFault::alive, 1);
  EXPECT_EQ(log.num_errors(), 0);
  ASSERT_EQ(log.fixed_errors().size(), 1U);
  EXPECT_EQ(log.fixed_errors()[0], second);
}

TEST(IndexedLog, ClearsErrorsItHasNotIndexedYet) {
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  for (int i = 0; i < 6; ++i) ObjectFault::create(i % 2, i);
  log.clear(0);
  EXPECT_EQ(active<ObjectFault>(log), (Names{1, 3, 5}));
  ObjectFault::create(0, 6);
  EXPECT_EQ(log.num_errors(0), 1);
  EXPECT_EQ(log.num_errors(), 4);
}

TEST(IndexedLog, KindsWithTheSameKeyAreCountedApart) {
  igsFile file;
  const Node* node = new Node;
  ObjectFault::create(1, 0);
  (new StructureFault(1))->set_key(1);
  (new StructureFault(2))->set_key(1);
  EXPECT_EQ(file.error_log().object_log().num_errors(1), 1);
  EXPECT_EQ(file.error_log().structure_log().num_errors(1), 2);
  EXPECT_EQ(node->num_logged_errors(), 3);
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
  std::vector<int> free_slots;
  std::map<int, std::vector<ObjectFault*>> errors;

  void add(ObjectFault* error, int key) {
    if (free_slots.empty()) {
      slots.push_back(error);
    } else {
      slots[static_cast<std::size_t>(free_slots.back())] = error;
      free_slots.pop_back();
    }
    errors[key].push_back(error);
  }
  void remove(const ObjectFault* error, int key) {
    const auto slot = std::find(slots.begin(), slots.end(), error);
    free_slots.push_back(static_cast<int>(slot - slots.begin()));
    *slot = nullptr;
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

TEST(CompoundError, FixDropsNullMembers) {
  igsFile file;
  Node *first = new Node, *second = new Node;
  TestCompound* compound = make_compound({nullptr, first, nullptr, second});
  auto* error = new igsCompoundEntityError(0);
  compound->tag_error(error);
  EXPECT_EQ(error->obj(), compound->de_number()) << "the key, for a null member";
  EXPECT_EQ(error->fix(), 1);
  ASSERT_EQ(compound->number_of_entities(), 2);
  EXPECT_EQ(compound->get_entity(0).object(), first);
  EXPECT_EQ(compound->get_entity(1).object(), second);
  const int now[] = {-1, 0, -1, 1};
  for (int i = 0; i < 4; ++i) EXPECT_EQ(compound->get_current_index(i), now[i]) << i;
  auto* last = new igsCompoundEntityError(3);
  compound->tag_error(last);
  EXPECT_EQ(last->obj(), second->de_number());
}

TEST(CompoundError, FixLeavesWhatIsNotItsTurn) {
  igsFile file;
  Node *good = new Node, *bad = new Node;
  new NodeFaulty;  // of no entity
  bad->tag_error(new NodeFaulty);
  TestCompound* compound = make_compound({good, bad, nullptr});
  auto *one = new igsCompoundEntityError(1), *two = new igsCompoundEntityError(2);
  compound->tag_error(one);
  compound->tag_error(two);
  EXPECT_EQ(one->obj(), bad->de_number());
  EXPECT_EQ(one->fix(), 1);
  EXPECT_EQ(compound->number_of_entities(), 3) << "unchanged while it has another error";
  file.error_log().mark_as_fixed(one);
  EXPECT_EQ(two->fix(), 1);
  EXPECT_EQ(compound->number_of_entities(), 1);
  EXPECT_EQ(compound->get_entity(0).object(), good);
  EXPECT_EQ(compound->get_current_index(1), -1);

  auto* sound = new igsCompoundEntityError(0);
  make_compound({good, good})->tag_error(sound);
  EXPECT_EQ(sound->fix(), 1);
  auto* empty = new igsCompoundEntityError(0);
  make_compound({})->tag_error(empty);
  EXPECT_EQ(empty->fix(), 1);
  auto* of_no_compound = new igsCompoundEntityError(0);
  good->tag_error(of_no_compound);
  EXPECT_EQ(of_no_compound->fix(), 0);
  auto* of_nothing = new igsCompoundEntityError(0);
  of_nothing->set_key(999);
  EXPECT_EQ(of_nothing->fix(), 0);
  EXPECT_EQ(of_nothing->obj(), 999);
}

}  // namespace
