#include "igs/errors/igsErrorLog.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <map>
#include <new>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

#include "errors/test_errors.h"
#include "fuzz/invariants.h"
#include "iges_builder.h"
#include "igs/file/igsFile.h"
#include "igs/structure/igsCompound_errors.h"

namespace igs_test {
namespace {

TEST(ErrorLog, RoutesByKind) {
  igsFile file;
  igsErrorLog& log = file.error_log();
  StrayFault stray(1);
  igsError* const errors[] = {new ObjectFault(0), new StructureFault(1), new GlobalFault(2),
                              new StartFault(3),  new TerminateFault(4), &stray};
  for (int id = 0; id <= igs_num_section_logs; ++id) {
    igsSimpleSectionLog* const section = log.get_section_log(static_cast<igsLogID>(id));
    EXPECT_EQ(errors[id]->log(), section) << id;
    for (igsError* const error : errors) {
      if (section == nullptr || error == errors[id]) continue;
      EXPECT_EQ(section->receive_error(error) + section->mark_as_fixed(error), 0) << id;
    }
  }
  log.receive_error(&stray);
  for (igsError* const error : errors) log.mark_as_fixed(error);
  EXPECT_EQ(stray.log_position(), -1);
  EXPECT_EQ((new igsCompoundEntityError(0))->fix(), 0) << "of no compound";
  EXPECT_EQ(active_errors(file), std::vector<std::string>{"igsCompoundEntityError 0"});
  EXPECT_EQ(fixed_errors(file), (std::vector<std::string>{"ObjectFault 0", "StructureFault 1", "GlobalFault 2",
                                                          "StartFault 3", "TerminateFault 4"}));
}

// Whatever it is and however many there are, each error keeps its own.
TEST(ErrorLog, EveryErrorHasItsSink) {
  std::vector<RecordingSink> sinks(600);
  StrayFault stray(0);
  stray.set_message_stream(&sinks[0]);
  {
    igsFile file;
    std::vector<igsError*> errors;
    for (std::size_t i = 0; i < sinks.size(); ++i) errors.push_back(new ObjectFault(0));
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

/// What a log holds, told simply: the slot freed last is taken first, and the errors of a key leave in the order of the
/// latest.
template <class Fault>
struct SimpleLog {
  std::vector<igsError*> slots, fixed;
  std::vector<std::size_t> free_slots;
  std::map<int, std::vector<Fault*>> errors;  ///< by key

  void add(Fault* error, int key) {
    if (free_slots.empty()) free_slots.push_back(slots.size()), slots.push_back(nullptr);
    slots[free_slots.back()] = error;
    free_slots.pop_back();
    errors[key].push_back(error);
  }
  void remove(const igsError* error) {
    free_slots.push_back(static_cast<std::size_t>(std::find(slots.begin(), slots.end(), error) - slots.begin()));
    slots[free_slots.back()] = nullptr;
    for (auto& [key, list] : errors) std::erase(list, error);
  }
  void fix(igsError* error) {
    remove(error);
    fixed.push_back(error);
  }
  void clear(int key) {
    while (!errors[key].empty()) remove(errors[key].back());
  }
  /// Counts are asked for first: a log files its errors then.
  template <class Log>
  void expect_equal(const Log& log) const {
    std::size_t alive = fixed.size();
    for (const auto& [key, list] : errors) {
      alive += list.size();
      if constexpr (std::is_base_of_v<igsIndexedError, Fault>) {
        ASSERT_EQ(log.num_errors(key), static_cast<int>(list.size()));
      }
    }
    ASSERT_EQ(Fault::alive, static_cast<int>(alive));
    ASSERT_EQ(log.fixed_errors(), fixed);
    for (std::size_t slot = 0; slot < slots.size(); ++slot) {
      ASSERT_EQ(log.error_in_slot(static_cast<int>(slot)), slots[slot]);
    }
  }
};

TYPED_TEST(SectionLog, SlotsAndKeysComeAndGo) {
  constexpr bool has_keys = std::is_base_of_v<igsIndexedError, TypeParam>;
  constexpr int keys = has_keys ? 3 : 1, steps = 10000;
  igs_fuzz::on_broken_promise = [](const char* promise) { ADD_FAILURE() << promise; };
  igsFile file;
  using Log = std::conditional_t<has_keys, igsIndexedSectionLog, igsSimpleSectionLog>;
  Log& log = static_cast<Log&>(*(new TypeParam(0))->log());
  log.clear();
  log.delete_error(nullptr);
  SimpleLog<TypeParam> expected;
  std::mt19937 random(1);
  const auto below = [&random](std::size_t end) { return static_cast<int>(random() % end); };
  const auto any_of = [&](const auto& list) { return list[static_cast<std::size_t>(below(list.size()))]; };
  for (int step = 0; step < steps; ++step) {
    const int key = below(keys), other = below(keys), action = below(100);
    std::vector<TypeParam*>& errors = expected.errors[key];
    if (action == 0) {
      if constexpr (has_keys) log.clear(key), expected.clear(key);
      if (!has_keys || step % 3 == 0) log.clear(), expected = {};
    } else if (action == 1) {  // they leave while they are walked
      igsSimpleSectionLogIT it(log);
      for (igsError* const error : std::vector(expected.slots)) {
        if (error == nullptr) continue;
        ASSERT_EQ(++it, 1) << step;
        ASSERT_EQ(it(), error) << step;
        if (below(3) == 0) continue;
        expected.fix(error);
        log.mark_as_fixed(error);
      }
      EXPECT_TRUE(++it == 0 && it() == nullptr) << step;
    } else if (action < 40 || errors.empty()) {
      expected.add(new TypeParam(step), key);
      if constexpr (has_keys) errors.back()->set_key(key);
    } else if (action < 60) {
      TypeParam* const error = any_of(errors);
      if (key != other) std::erase(errors, error), expected.errors[other].push_back(error);
      if constexpr (has_keys) error->set_key(other);
    } else if (action < 75) {
      TypeParam* const error = any_of(errors);
      expected.fix(error);
      for (int twice = 0; twice < 2; ++twice) log.mark_as_fixed(error);
    } else {
      igsError* const error = action < 90 || expected.fixed.empty() ? any_of(errors) : any_of(expected.fixed);
      if (std::erase(expected.fixed, error) == 0) expected.remove(error);
      log.delete_error(error);
    }
    ASSERT_NO_FATAL_FAILURE(expected.expect_equal(log)) << step;
    if (step % 100 == 0) igs_fuzz::check_logs(file);
  }
}

TEST(IndexedLog, KeysOfErrorsThatAreNotCounted) {
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  auto* const error = new ObjectFault(0);
  EXPECT_EQ(error->obj(), igs_unset_int);
  EXPECT_EQ(log.num_errors(igs_unset_int), 1);
  error->set_key(7);
  EXPECT_EQ(error->obj(), 7);
  log.mark_as_fixed(error);
  error->set_key(9);
  for (const int absent : {igs_unset_int, 7, 9, 0, -1, INT_MAX}) {
    EXPECT_EQ(log.num_errors(absent), 0);
    log.clear(absent);
  }
  for (int i = 0; i < 6; ++i) ObjectFault::create(i % 2, i);
  log.clear(0);  // not counted yet
  EXPECT_EQ(active_errors(file), (std::vector<std::string>{"ObjectFault 1 1", "ObjectFault 1 3", "ObjectFault 1 5"}));
  EXPECT_EQ(fixed_errors(file), std::vector<std::string>{"ObjectFault 9 0"});
}

}  // namespace
}  // namespace igs_test
