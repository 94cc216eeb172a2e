// Memory, time and stack for files that are meant to exhaust them. A program of its own, since it replaces operator new
// to measure how much memory is in use.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <algorithm>
#include <ctime>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "iges_builder.h"
#include "igs/igs.h"
#include "igs/structure/igsCompound_errors.h"
#include "own_memory.h"
#include "streams.h"

namespace {

using namespace igs_test;

/// Sanitizers and emulators take their time: they get smaller files.
constexpr int scaled(int count) { return count / IGS_TEST_SCALE; }

/// Reads, checks, repairs and writes.
void use(const std::string& text) {
  Streams streams(text);
  igsFile file;
  file.read(streams.in, streams.messages);
  file.check();
  file.clean(1);
  file.write(streams.out, streams.messages);
}

/// The text of a file of some size.
using Text = std::function<std::string(int count)>;

std::string repeated(std::string_view piece, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

/// Entities that are all the same.
Text many(int type, int form, const std::string& data) {
  return [=](int count) {
    IgesBuilder builder;
    for (int i = 0; i < count; ++i) builder.entity(type, form, data);
    return builder.text();
  };
}

/// An entity with a list of equal pieces, which claims to be `claim` times as long as it is, behind a small first one.
Text list(int type, int form, const std::string& head, const std::string& piece, int claim = 1, int first_type = 110,
          int first_form = 0, const std::string& first = "0.,0.,0.,1.,1.,1.") {
  return [=](int count) {
    IgesBuilder builder;
    builder.entity(first_type, first_form, first);
    std::string data = head + std::to_string(claim * count) + ',' + repeated(piece, count);
    data.pop_back();
    builder.entity(type, form, data);
    return builder.text();
  };
}
Text shared_points() { return list(102, 0, "", "1,", 1, 106, 2, "2,2,0.,0.,0.,1.,0.,0."); }

struct Hostile {
  std::string name;
  Text text;
  int count;
  double ratio = 12;  ///< of memory in use to the size of the file, beyond the constant
};

std::vector<Hostile> hostile_files() {
  std::vector<Hostile> files{{"tiny entities", many(110, 0, "0,0,0,0,0,1"), 60000},
                             {"tiny faulty entities", many(110, 0, ""), 60000},
                             {"shortest lines", [](int count) { return repeated("S1\n", count); }, 1000000},
                             {"short lines", [](int count) { return repeated("S      1\n", count); }, 1000000}};
  for (const char piece : {'x', '\n', '\0'}) {
    files.push_back({"character " + std::to_string(piece), [=](int n) { return repeated({&piece, 1}, n); }, 10000000});
  }
  // Entities of 243 bytes of file that announce a list and supply nothing of it.
  std::istringstream liars(
      "102 0 256 106 12 2,256 112 0 1,1,3,19 126 0 250,1,0,0,1,0 128 0 15,15,1,1,0,0,1,0,0 141 0 0,0,1,256 "
      "143 0 0,1,256 212 0 256 402 7 256 404 0 256 502 1 256 504 1 256 508 1 256");
  std::string data;
  for (int type, form; liars >> type >> form >> data;) {
    files.push_back({std::to_string(type) + ',' + data, many(type, form, data), 12000});
  }
  files.insert(files.end(),
               {{"lists in a list that lie", list(141, 0, "0,0,1,", "0,0,256,", 4), 200000},
                {"a count four times too large", list(141, 0, "0,0,1,", "1,1,0,", 4), 300000},
                {"all pointers", list(402, 7, "", "1,"), 1000000},
                {"shared points", shared_points(), 200000},
                {"one faulty curve", list(102, 0, "", "1,", 1, 100, 0, "0.,0.,0.,0.,0.,0.,0."), 2000000, 25},
                // Each field of one character is at fault: an entity cannot be kept in so little memory.
                {"null members", list(402, 7, "", "0,"), 2000000},
                {"empty members", list(402, 7, "", ","), 2000000},
                {"null vertices", list(508, 1, "", "0,0,0,0,0,"), 2000000}});
  return files;
}

/// Entities that take turns, each of which refers to the next where its data says @.
struct Chain {
  const char* name;
  int types[2], form;
  const char* data[2];

  /// The last entity refers to DE `end`.
  std::string text(int length, int end) const {
    IgesBuilder builder;
    for (int i = 0; i < length; ++i) {
      const int next = i + 1 == length ? end : 2 * i + 3;
      std::string fields = data[i % 2];
      const std::size_t at = fields.find('@');
      if (at != std::string::npos) fields.replace(at, 1, std::to_string(next));
      builder.entity(types[i % 2], form, fields, {.matrix = at == std::string::npos ? next : 0});
    }
    return builder.text();
  }
};
constexpr const char *matrix = "1,0,0,0,0,1,0,0,0,0,1,0", *member = "1,@", *surface = "0,0,1,1,@";
constexpr const char* font = "1,1Hx,-@,1,1,65,8,0,0";
const Chain chains[] = {
    {"matrix", {124, 124}, 0, {matrix, matrix}},      {"composite", {102, 102}, 0, {member, member}},
    {"group", {402, 402}, 7, {member, member}},       {"offset surface", {140, 140}, 0, {surface, surface}},
    {"superseded font", {310, 310}, 0, {font, font}}, {"subfigure", {308, 408}, 0, {"1,1Hx,1,@", "@,0,0,0,1"}}};
constexpr int links = scaled(20000);

void walk(const std::string& text, bool is_cycle) {
  use(text);
  Streams streams(text);
  igsFile file;
  ASSERT_EQ(file.read(streams.in, streams.messages), 1);
  file.print(streams.messages);
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
  rlimit stack{};
  getrlimit(RLIMIT_STACK, &stack);
  stack.rlim_cur = rlim_t{IGS_TEST_SCALE == 1 ? 1 : 2} * 1024 * 1024;  // no recursion along a chain has room there
  ASSERT_EQ(setrlimit(RLIMIT_STACK, &stack), 0);
  for (const Chain& chain : chains) {
    for (const bool is_cycle : {false, true}) {
      SCOPED_TRACE(chain.name);
      walk(chain.text(links, is_cycle ? 1 : 0), is_cycle);
    }
  }
}

TEST(Limits, MemoryAndTimeFollowTheFile) {
  constexpr double constant = 64e6;  // bytes
  constexpr int factor = 8;
  constexpr double quadratic = 32;  // 64 would be, 8 is linear
  constexpr double least = 0.01;    // seconds; shorter times say nothing
  const auto seconds_for = [](const std::string& text) {
    const std::clock_t start = std::clock();
    use(text);
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  };
  std::vector<Hostile> files = hostile_files();
  for (const Chain& chain : chains) files.push_back({chain.name, [=](int n) { return chain.text(n, 1); }, 20000});
  for (const Hostile& hostile : files) {
    const double small = seconds_for(hostile.text(scaled(hostile.count) / factor));
    const std::string text = hostile.text(scaled(hostile.count));
    const std::size_t before = peak = bytes_in_use;
    const double large = seconds_for(text);
    EXPECT_LE(static_cast<double>(peak - before), constant + hostile.ratio * static_cast<double>(text.size()))
        << hostile.name << ": " << text.size() << " bytes";
    EXPECT_LT(large, quadratic * std::max(small, least)) << hostile.name << ": " << small << " s, then " << large;
  }
}

TEST(Limits, ErrorsGiveTheirMemoryBack) {
  constexpr int count = 100000, keys = 7, little = 65536;
  igsFile file;
  igsIndexedSectionLog& log = file.error_log().object_log();
  const auto make = [&log](int key_begin) {
    for (int i = 0; i < count; ++i) {
      if (i % keys >= key_begin) (new igsCompoundEntityError(i))->set_key(i % keys);
    }
    return log.num_errors(0);  // which files them by key
  };
  const std::size_t before = bytes_in_use;
  EXPECT_EQ(make(0), count / keys + 1);
  const std::size_t full = bytes_in_use;
  EXPECT_LE(full - before, count * std::size_t{64});
  for (int key = 1; key < keys; ++key) log.clear(key);
  EXPECT_EQ(log.num_errors(), count / keys + 1);
  make(1);
  EXPECT_LE(bytes_in_use, full + little) << "new errors take the place of deleted ones";
  log.clear();
  EXPECT_LE(bytes_in_use, before + little);
}

// Copies of one point set for as many members are made while there is room for them; then members share one.
TEST(Limits, ManyReferencesShareAConversion) {
  constexpr int count = 20000;
  const std::string text = shared_points()(count);
  Streams streams(text);
  igsFile file;
  ASSERT_EQ(file.read(streams.in, streams.messages), 1);
  file.clean(0);
  const igs102* const composite = dynamic_cast<const igs102*>(file.entity(3));
  ASSERT_NE(composite, nullptr);
  ASSERT_EQ(composite->number_of_sub_curves(), count);
  for (int i = 0; i < count; ++i) {
    igsObjectPtr curve;
    composite->sub_curve(i, curve);
    ASSERT_TRUE(curve.object() != nullptr && curve->isa(igsPolyline::type())) << i;
  }
  EXPECT_EQ(file.error_log().object_log().num_errors(), 0);
  EXPECT_GT(file.num_entities(), 1000);
  EXPECT_LT(file.num_entities(), count / 2);
}
}  // namespace
