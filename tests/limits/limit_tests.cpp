// Memory, time and stack for files that are meant to exhaust them. A program of its own, since it replaces operator new
// to measure how much memory is in use.
#include <gtest/gtest.h>
#include <malloc.h>
#include <pthread.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <istream>
#include <memory>
#include <new>
#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

#include "hostile_text.h"
#include "igs/igs.h"
#include "igs/structure/igsCompound_errors.h"
#include "streams.h"

namespace {

std::size_t in_use = 0, peak = 0;

void* take(std::size_t size) noexcept {
  void* const memory = std::malloc(size == 0 ? 1 : size);  // NOLINT(cppcoreguidelines-no-malloc)
  if (memory == nullptr) return nullptr;
  in_use += malloc_usable_size(memory) + sizeof(std::size_t);
  peak = std::max(peak, in_use);
  return memory;
}

void give_back(void* memory) noexcept {
  if (memory == nullptr) return;
  in_use -= malloc_usable_size(memory) + sizeof(std::size_t);
  std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc)
}
}  // namespace

void* operator new(std::size_t size) {
  void* const memory = take(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new[](std::size_t size) { return operator new(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void operator delete(void* memory) noexcept { give_back(memory); }
void operator delete[](void* memory) noexcept { give_back(memory); }
void operator delete(void* memory, std::size_t) noexcept { give_back(memory); }
void operator delete[](void* memory, std::size_t) noexcept { give_back(memory); }

namespace {

using namespace igs_test;

/// Sanitizers take their time: they get smaller files.
constexpr int scaled(int count) { return count / IGS_TEST_SCALE; }

/// Reads, checks, repairs and writes; the number of bytes written.
std::size_t use(std::string& text) {
  TextInput input(text);
  std::istream in(&input);
  NoOutput output;
  std::ostream out(&output);
  utOstream messages(out);
  igsFile file;
  file.read(in, messages);
  file.check();
  file.clean(1);
  output.count = 0;
  file.write(out, messages);
  return output.count;
}

struct Hostile {
  const char* name;
  std::function<std::string(int count)> text;
  int count;
  double ratio = 12;  ///< of memory in use to the size of the file, beyond the constant
};

/// An entity of the type, 243 bytes of file, that announces a list and supplies nothing of it.
Hostile liar(const char* name, const char* data, int form = 0) {
  return {name, [=](int count) { return many(std::atoi(data), data, form, count); }, 12000};
}

/// A list of fields of one character each, each of them at fault: an entity cannot be kept in so little memory.
Hostile faults_only(const char* name, int type, int form, const char* head, const char* tail, const char* piece,
                    double ratio) {
  return {name,
          [=](int count) {
            return one_list(type, form, std::to_string(type) + head + std::to_string(count) + tail, piece, count);
          },
          2000000, ratio};
}

std::string many_lines(const char* line, int count) { return repeated(line, count); }

std::vector<Hostile> hostile_files() {
  return {
      liar("102", "102,256;"),
      liar("106", "106,2,256;", 12),
      liar("112", "112,1,1,3,19;"),
      liar("126", "126,250,1,0,0,1,0;"),
      liar("128", "128,15,15,1,1,0,0,1,0,0;"),
      liar("141", "141,0,0,1,256;"),
      liar("143", "143,0,1,256;"),
      liar("212", "212,256;"),
      liar("402", "402,256;", 7),
      liar("404", "404,256;"),
      liar("502", "502,256;", 1),
      liar("504", "504,256;", 1),
      liar("508", "508,256;", 1),
      {"lists in a list that lie",
       [](int count) { return one_list(141, 0, "141,0,0,1," + std::to_string(4 * count) + ",", "0,0,256,", count); },
       200000},
      {"a count four times too large",
       [](int count) { return one_list(141, 0, "141,0,0,1," + std::to_string(4 * count) + ",", "1,1,0,", count); },
       300000},
      {"tiny entities", [](int count) { return many(110, "110,0,0,0,0,0,1;", 0, count); }, 60000},
      {"tiny faulty entities", [](int count) { return many(110, "110;", 0, count); }, 60000},
      {"one entity of all pointers",
       [](int count) { return one_list(402, 7, "402," + std::to_string(count) + ",", "1,", count); }, 1000000},
      {"one point set as all curves",
       [](int count) {
         return one_list(102, 0, "102," + std::to_string(count) + ",", "1,", count, "106,2,2,0,0,0,1,0,0;");
       },
       200000},
      {"one faulty curve as all curves",
       [](int count) {
         return one_list(102, 0, "102," + std::to_string(count) + ",", "1,", count, "100,0.,0.,0.,0.,0.,0.,0.;");
       },
       2000000, 25},
      {"one line", [](int count) { return many_lines("x", count); }, 10000000},
      {"blank lines", [](int count) { return many_lines("\n", count); }, 10000000},
      {"NUL characters", [](int count) { return std::string(static_cast<std::size_t>(count), '\0'); }, 10000000},
      {"short lines", [](int count) { return many_lines("S      1\n", count); }, 1000000},
      {"shortest lines of the Start section", [](int count) { return many_lines("S1\n", count); }, 1000000},
      faults_only("null members", 402, 7, ",", ",", "0,", 12),
      faults_only("empty members", 102, 0, ",", ",", ",", 12),
      faults_only("null vertices", 508, 1, ",", ",", "0,0,0,0,0,", 12),
  };
}

TEST(Limits, MemoryFollowsTheFile) {
  constexpr double constant = 64e6;
  for (const Hostile& hostile : hostile_files()) {
    std::string text = hostile.text(scaled(hostile.count));
    const std::size_t before = in_use;
    peak = in_use;
    const std::clock_t start = std::clock();
    use(text);
    const auto used = static_cast<double>(peak - before), size = static_cast<double>(text.size());
    EXPECT_LE(used, constant + hostile.ratio * size) << hostile.name << ": " << size << " bytes";
    if (std::getenv("IGS_LIMITS_REPORT") != nullptr) {
      std::printf("%-30s %9.0f bytes, %9.0f used, %6.1f, %5.2f s\n", hostile.name, size, used, used / size,
                  static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
    }
  }
}

// Where the entity that is about to be added refers to: to the one after it unless the chain ends there.
std::string target(const HostileText& file, int next, int entities_per_link = 1) {
  return std::to_string(next < 0 ? file.next_de() + 2 * entities_per_link : next);
}

const Chain chains[] = {
    {"matrix", [](HostileText& file,
                  int next) { file.add(124, "124,1,0,0,0,0,1,0,0,0,0,1,0;", 0, std::stoi(target(file, next))); }},
    {"composite", [](HostileText& file, int next) { file.add(102, "102,1," + target(file, next) + ";"); }},
    {"group", [](HostileText& file, int next) { file.add(402, "402,1," + target(file, next) + ";", 7); }},
    {"offset surface", [](HostileText& file, int next) { file.add(140, "140,0,0,1,1," + target(file, next) + ";"); }},
    {"superseded font",
     [](HostileText& file, int next) { file.add(310, "310,1,1Hx,-" + target(file, next) + ",1,1,65,8,0,0;"); }},
    {"subfigure",
     [](HostileText& file, int next) {
       const std::string after = target(file, next, 2);
       file.add(308, "308,1,1Hx,1," + std::to_string(file.next_de() + 2) + ";");
       file.add(408, "408," + after + ",0,0,0,1;");
     }},
};

/// Runs `work` with a stack of its own, in which no recursion as deep as a chain is long has room.
void with_small_stack(const std::function<void()>& work) {
  constexpr std::size_t stack = std::size_t{IGS_TEST_SCALE == 1 ? 1 : 2} * 1024 * 1024;
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  pthread_attr_setstacksize(&attributes, stack);
  pthread_t thread;
  const auto run = [](void* argument) -> void* {
    (*static_cast<const std::function<void()>*>(argument))();
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<std::function<void()>*>(&work)), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

void walk_chain(const Chain& chain, bool is_cycle) {
  SCOPED_TRACE(std::string(chain.name) + (is_cycle ? ", cycle" : ""));
  std::string text = chain_text(chain, scaled(20000), is_cycle);
  use(text);

  TextInput input(text);
  std::istream in(&input);
  NoOutput output;
  std::ostream out(&output);
  utOstream messages(out);
  igsFile file;
  ASSERT_EQ(file.read(in, messages), 1);
  file.print(messages);
  ASSERT_NE(file.entity(1), nullptr);
  igsObjectPtr first(1);
  if (is_cycle) {
    file.entity(1)->unreference_children();
    EXPECT_EQ(file.num_entities(), 1) << "all but the one that is still held";
  }
  first.unreference();
  EXPECT_EQ(file.num_entities(), 0);
}

TEST(Limits, ChainsNeedNoStack) {
  for (const Chain& chain : chains) {
    with_small_stack([&chain] { walk_chain(chain, false); });
    with_small_stack([&chain] { walk_chain(chain, true); });
  }
}

double seconds_for(std::string text) {
  const std::clock_t start = std::clock();
  use(text);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(Limits, TimeFollowsTheFile) {
  constexpr int factor = 8;
  constexpr double quadratic = 32;  // 64 would be, 8 is linear
  constexpr double least = 0.01;    // seconds; shorter times say nothing
  for (const Hostile& hostile : hostile_files()) {
    const int count = scaled(hostile.count / 4);
    const double small = seconds_for(hostile.text(count / factor)), large = seconds_for(hostile.text(count));
    EXPECT_LT(large, quadratic * std::max(small, least)) << hostile.name << ": " << small << " s, then " << large;
  }
  for (const Chain& chain : chains) {
    const int count = scaled(20000);
    const double small = seconds_for(chain_text(chain, count / factor, true));
    const double large = seconds_for(chain_text(chain, count, true));
    EXPECT_LT(large, quadratic * std::max(small, least)) << chain.name << ": " << small << " s, then " << large;
  }
}

TEST(Limits, ErrorsGiveTheirMemoryBack) {
  constexpr int count = 100000, keys = 7;
  constexpr std::size_t little = 65536;
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  const auto make = [&log](int key_begin) {
    for (int i = 0; i < count; ++i) {
      const int key = i % keys;
      if (key >= key_begin) (new igsCompoundEntityError(i))->set_key(key);
    }
    return log.num_errors(0);
  };
  const std::size_t before = in_use;
  EXPECT_EQ(make(0), count / keys + 1);
  const std::size_t full = in_use;
  EXPECT_LE(full - before, count * std::size_t{64});
  for (int key = 1; key < keys; ++key) log.clear(key);
  EXPECT_EQ(log.num_errors(), log.num_errors(0));
  make(1);
  EXPECT_LE(in_use, full + little) << "new errors take the place of deleted ones";
  log.clear();
  EXPECT_LE(in_use, before + little);
}

// Copies of one point set for as many members are made while there is room for them; then members share one.
TEST(Limits, ManyReferencesShareAConversion) {
  const int count = 20000;
  std::string text = one_list(102, 0, "102," + std::to_string(count) + ",", "1,", count, "106,2,2,0.,0.,0.,1.,0.,0.;");
  TextInput input(text);
  std::istream in(&input);
  NoOutput output;
  std::ostream out(&output);
  utOstream messages(out);
  igsFile file;
  ASSERT_EQ(file.read(in, messages), 1);
  file.clean(0);
  const igs102* const composite = dynamic_cast<const igs102*>(file.entity(3));
  ASSERT_NE(composite, nullptr);
  ASSERT_EQ(composite->number_of_sub_curves(), count);
  for (int i = 0; i < count; ++i) {
    igsObjectPtr curve;
    composite->sub_curve(i, curve);
    ASSERT_TRUE(curve.object() != nullptr && curve->isa(igsPolyline::type())) << i;
  }
  EXPECT_EQ(file.error_log().get_section_log(igsObjectLog)->num_errors(), 0);
  EXPECT_GT(file.num_entities(), 1000);
  EXPECT_LT(file.num_entities(), count / 2);
}
}  // namespace
