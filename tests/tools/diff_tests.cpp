#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>

#include "iges_builder.h"
#include "sanitizers.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;

using Diff = ProgramTest;

using Order = std::vector<std::size_t>;

/// Adds entities to a file in any order. Pointers name entities by their positions in `order`.
class ShuffledFile {
 public:
  /// `order[k]`: where entity k stands.
  explicit ShuffledFile(Order order) : m_order(std::move(order)), m_add(m_order.size()) {}
  int de(std::size_t entity) const { return static_cast<int>(2 * m_order.at(entity) + 1); }
  void entity(std::size_t entity, int type, int form, const std::string& data, const De& attributes = {}) {
    m_add.at(m_order.at(entity)) = [=](IgesBuilder& builder) { builder.entity(type, form, data, attributes); };
  }
  std::string text() const {
    IgesBuilder builder;
    for (const auto& add : m_add) add(builder);
    return builder.text();
  }

 private:
  Order m_order;
  std::vector<std::function<void(IgesBuilder&)>> m_add;
};

Order shuffled(std::size_t size, unsigned seed) {
  Order order(size);
  std::iota(order.begin(), order.end(), 0U);
  std::shuffle(order.begin(), order.end(), std::mt19937(seed));
  return order;
}

struct Row {
  const char* name;
  std::function<void(IgesBuilder&)> make_old, make_new;
  std::vector<std::string> changes;
  std::string summary;
};

void points(IgesBuilder& builder, std::initializer_list<int> xs) {
  for (const int x : xs) builder.point(x);
}

const Row rows[] = {
    {"nothing", [](auto& b) { b.line(); }, [](auto& b) { b.line(); }, {}, "no differences"},
    {"a real and an integer",
     [](auto& b) { b.line(1), b.entity(314, 0, "1.,2.,3.,3HRed"); },
     [](auto& b) { b.line(1.5), b.entity(314, 0, "1.,2.,3.,4HBlue"); },
     {"DE 1  110 Line  EndPoint.x  1 -> 1.5", "DE 3  314 Color Definition  Name  \"Red\" -> \"Blue\""},
     "2 entities changed, 0 removed, 0 added"},
    {"attributes",
     [](auto& b) { b.entity(116, 0, "1.,2.,3.,0", {.line_font = 1, .label = "A"}), b.entity(314, 0, "1.,2.,3."); },
     [](auto& b) {
       b.entity(116, 0, "1.,2.,3.,0",
                {.line_font = 2, .status = "01020300", .line_weight = 1, .colour = -3, .label = "B"});
       b.entity(314, 0, "1.,2.,3.");
     },
     {"DE 1  116 Point  line_font  1 -> 2", "DE 1  116 Point  blank_status  0 -> 1",
      "DE 1  116 Point  subordinate_status  0 -> 2", "DE 1  116 Point  entity_use  0 -> 3",
      "DE 1  116 Point  line_weight  0 -> 1", "DE 1  116 Point  colour  0 -> DE 3 (314)",
      "DE 1  116 Point  entity_label  \"A\" -> \"B\""},
     "1 entity changed, 0 removed, 0 added"},
    {"added before, changed and removed behind",
     [](auto& b) { b.line(), b.entity(124, 0, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0."), b.point(); },
     [](auto& b) { b.entity(314, 0, "1.,2.,3."), b.line(), b.entity(124, 0, "1.,0.,0.,7.,0.,1.,0.,0.,0.,0.,1.,0."); },
     {"DE 3 -> 5  124 Transformation Matrix  T1  0 -> 7", "DE 5  116 Point  removed",
      "DE 1  314 Color Definition  added"},
     "1 entity changed, 1 removed, 1 added"},
    {"another type",
     [](auto& b) { b.line(); },
     [](auto& b) { b.point(); },
     {"DE 1  110 Line  removed", "DE 1  116 Point  added"},
     "0 entities changed, 1 removed, 1 added"},
    {"one of several that are the same",
     [](auto& b) {
       points(b, {1, 1, 1});
     },
     [](auto& b) {
       points(b, {1, 1});
     },
     {"DE 5  116 Point  removed"},
     "0 entities changed, 1 removed, 0 added"},
    {"the members of lists",
     [](auto& b) {
       points(b, {1, 2, 3}), b.entity(402, 7, "2,1,3");
     },
     [](auto& b) {
       points(b, {1, 2, 3}), b.entity(402, 7, "3,1,5,0");
     },
     {"DE 7  402 Associativity Instance  NumberOfEntities  2 -> 3",
      "DE 7  402 Associativity Instance  Entities(1)  DE 3 (116) -> DE 5 (116)",
      "DE 7  402 Associativity Instance  Entities(2)  none -> null"},
     "1 entity changed, 0 removed, 0 added"},
    {"what a changed entity of many like it refers to",
     [](auto& b) {
       points(b, {1, 2}), b.entity(402, 7, "1,1"), b.entity(402, 7, "1,3");
     },
     [](auto& b) {
       points(b, {2, 9}), b.entity(402, 7, "1,1"), b.entity(402, 7, "1,3");
     },
     {"DE 1 -> 3  116 Point  Coordinates.x  1 -> 9"},
     "1 entity changed, 0 removed, 0 added"},
    {"Start lines and Global parameters",
     [](auto& b) {
       b.start({"one", "two"}).global(12, "3Hyou").global(16, "1");
     },
     [](auto& b) {
       b.start({"one", "\x1b[2J", "three"}).global(12, "3Hyou").global(16, "8").global(15, "2HIN");
     },
     {R"(Start section  line 2  "two" -> "\x1b[2J")", R"(Start section  line 3  none -> "three")",
      R"(Global section  units.name  "MM" -> "IN")", "Global section  max_number_of_line_weights  1 -> 8"},
     "0 entities changed, 0 removed, 0 added, 2 Global parameters changed, 2 Start lines changed"},
    {"entities that reading left out",
     [](auto& b) { b.entity(999, 0, "1"), b.entity(998, 2, "1"), b.entity(998, 2, "1"), b.entity(0, 0, ""); },
     [](auto& b) { b.entity(998, 2, "1"); },
     {"Left out on reading  type 998 form 2  2 -> 1", "Left out on reading  type 999 form 0  1 -> none"},
     "0 entities changed, 0 removed, 0 added, left-out entities of 2 kinds changed, 1 left-out entity not compared"},
};

TEST_F(Diff, TellsWhatChanged) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    IgesBuilder old_file, new_file;
    row.make_old(old_file), row.make_new(new_file);
    file("old.igs", old_file.text()), file("new.igs", new_file.text());
    const Outcome text = igs({"diff", "old.igs", "new.igs"});
    std::vector<std::string> expected = row.changes;
    expected.push_back("old.igs, new.igs: " + row.summary);
    EXPECT_THAT(lines_of(text.out), ElementsAreArray(expected)) << text.err;
    EXPECT_EQ(text.status, row.changes.empty() ? 0 : 1);

    const Json json = only_object(igs({"diff", "--format", "json", "-", "new.igs"}, old_file.text()).out);
    EXPECT_EQ(json.at("files"), Json({"-", "new.igs"}));
    EXPECT_EQ(json.at("changes").size(), row.changes.size());
    EXPECT_EQ(json.at("same"), row.changes.empty());
  }
}

TEST_F(Diff, JsonKeepsTheKindsOfValuesApart) {
  IgesBuilder old_file, new_file;
  points(old_file, {1, 2}), points(new_file, {1, 2});
  old_file.entity(402, 7, "2,1,3", {.view = 3}), new_file.entity(402, 7, "1,0");
  old_file.global(8, "");
  file("old.igs", old_file.text()), file("new.igs", new_file.text());
  const Json json = only_object(igs({"diff", "--format", "json", "old.igs", "new.igs"}).out);
  const std::string in_group = R"({"change": "changed", "old_de": 5, "new_de": 5, "type": 402, "field": )";
  EXPECT_EQ(json.at("changes"),
            Json::parse(R"([{"change": "global", "field": "sp_max_pow10", "old": null, "new": 38}, )" + in_group +
                        R"("view", "old": {"de": 3, "type": 116}, "new": null}, )" + in_group +
                        R"("NumberOfEntities", "old": 2, "new": 1}, )" + in_group +
                        R"json("Entities(0)", "old": {"de": 1, "type": 116}, "new": null}, )json" + in_group +
                        R"json("Entities(1)", "old": {"de": 3, "type": 116}}])json"));
  Json counts = json;
  counts.erase("files"), counts.erase("changes");
  EXPECT_EQ(counts, Json::parse(R"({"same": false, "changed": 1, "removed": 0, "added": 0, "global": 1, "start": 0,
      "dropped": 0, "close": 0, "not_compared": 0})"));
}

TEST_F(Diff, ToleranceIsForReals) {
  IgesBuilder old_file, new_file;
  file("old.igs", (old_file.line(1), old_file.entity(314, 0, "1.,2.,3.,1HA"), old_file.text()));
  file("new.igs", (new_file.entity(314, 0, "1.,2.,3.,1HA"), new_file.line(1.01), new_file.text()));
  EXPECT_THAT(igs({"diff", "--tolerance", "0.02", "old.igs", "new.igs"}).out,
              HasSubstr("no differences, 1 real differs within the tolerance\n"));
  EXPECT_EQ(igs({"diff", "--tolerance", "0.001", "old.igs", "new.igs"}).status, 1);
  EXPECT_EQ(igs({"diff", "--tolerance", "1", "old.igs", file("other.igs", old_file.text() + "")}).status, 0);
}

TEST_F(Diff, MaxChangesLimitsTheList) {
  IgesBuilder old_file, new_file;
  points(new_file, {1, 2, 3});
  file("old.igs", old_file.text()), file("new.igs", new_file.text());
  const Outcome text = igs({"diff", "--max-changes", "1", "old.igs", "new.igs"});
  EXPECT_THAT(text.out, HasSubstr("(2 more changes are not listed"));
  EXPECT_THAT(text.out, HasSubstr("3 added"));
  const Json json = only_object(igs({"diff", "--format", "json", "--max-changes", "1", "old.igs", "new.igs"}).out);
  EXPECT_EQ(json.at("changes").size(), 1U);
  EXPECT_EQ(json.at("added"), 3);
}

TEST_F(Diff, TroubleIsStatusTwo) {
  const IgesBuilder builder;
  file("part.igs", builder.text());
  file("cut.igs", builder.text().substr(0, 300));
  const std::vector<Arguments> calls{{"part.igs"},
                                     {"part.igs", "part.igs", "part.igs"},
                                     {"-", "-"},
                                     {"part.igs", "no.igs"},
                                     {"no.igs", "part.igs"},
                                     {"part.igs", "cut.igs"},
                                     {"cut.igs", "cut.igs"},
                                     {"--tolerance", "-1", "part.igs", "part.igs"}};
  for (Arguments call : calls) {
    call.insert(call.begin(), "diff");
    const Outcome outcome = igs(call);
    EXPECT_EQ(outcome.status, 2) << call.back();
    EXPECT_NE(outcome.err, "") << call.back();
    EXPECT_EQ(outcome.out, "") << call.back();
  }
  const Json json = only_object(igs({"diff", "--format", "json", "part.igs", "cut.igs"}).out);
  EXPECT_EQ(json.at("file"), "cut.igs");
  EXPECT_THAT(std::string(json.at("error")), HasSubstr("not read to its end"));
}

/// Lines with a matrix each, the matrices all the same, and groups that contain each other in a ring.
std::string tangled(const Order& order, double last_x) {
  const std::size_t count = order.size() / 3;
  ShuffledFile file(order);
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t line = 3 * i, matrix = line + 1, group = line + 2, next_group = 3 * ((i + 1) % count) + 2;
    const double x = i + 1 < count ? static_cast<double>(i % 7) + 1 : last_x;
    const double y = static_cast<double>(i / 7);
    file.entity(line, 110, 0, "0.,0.,0.," + std::to_string(x) + ',' + std::to_string(y) + ",0.",
                {.matrix = file.de(matrix)});
    file.entity(matrix, 124, 0, "1.,0.,0.,5.,0.,1.,0.,0.,0.,0.,1.,0.");
    file.entity(group, 402, 7, "2," + std::to_string(file.de(line)) + ',' + std::to_string(file.de(next_group)));
  }
  return file.text();
}

TEST_F(Diff, TheOrderOfTheEntitiesMakesNoDifference) {
  constexpr std::size_t size = 60;
  Order straight(size);
  std::iota(straight.begin(), straight.end(), 0U);
  file("old.igs", tangled(straight, 1));
  for (unsigned seed = 1; seed <= 4; ++seed) {
    const Order order = shuffled(size, seed);
    const Outcome same = igs({"diff", "old.igs", "-"}, tangled(order, 1));
    EXPECT_EQ(same.status, 0) << same.out;
    const Outcome changed = igs({"diff", "old.igs", "-"}, tangled(order, 100));
    const std::string line = "DE " + std::to_string(2 * (size - 3) + 1);
    EXPECT_THAT(lines_of(changed.out).front(), testing::StartsWith(line)) << changed.out;
    EXPECT_EQ(lines_of(changed.out).size(), 2U) << changed.out;
  }
}

/// Half of the entities are the same point, the others lines that share a colour.
std::string many(const Order& order, double last_x) {
  ShuffledFile file(order);
  file.entity(0, 314, 0, "1.,2.,3.");
  for (std::size_t i = 1; i < order.size(); ++i) {
    const double x = i + 2 < order.size() ? static_cast<double>(i) : last_x;
    if (i % 2 == 0) file.entity(i, 116, 0, "1.,2.,3.,0");
    if (i % 2 == 1) file.entity(i, 110, 0, "0.,0.,0.," + std::to_string(x) + ",0.,0.", {.colour = -file.de(0)});
  }
  return file.text();
}

TEST_F(Diff, LargeFilesTakeTimeInProportion) {
  const std::size_t size = is_sanitized ? 20'000 : 100'000;
  file("old.igs", many(shuffled(size, 1), -1));
  file("new.igs", many(shuffled(size, 2), -2));
  const Outcome outcome = igs({"diff", "old.igs", "new.igs"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_THAT(lines_of(outcome.out),
              testing::ElementsAre(HasSubstr("EndPoint.x  -1 -> -2"), HasSubstr("1 entity changed, 0 removed")));
}

// igs repair --summary

std::string faulty_text() {
  IgesBuilder builder;
  builder.entity(999, 0, "1");
  builder.entity(116, 0, "0.12345678901234567,2.,3.,0");
  builder.entity(110, 0, "0.,0.,0.,1.,0.,0.", {.line_weight = 12});
  return builder.text();
}

TEST_F(Diff, RepairSumsUpWhatItChanged) {
  file("part.igs", faulty_text());
  const std::vector<std::string> changes{"Left out on reading  type 999 form 0  1 -> none",
                                         "DE 5 -> 3  110 Line  line_weight  12 -> 0"};
  const std::string counts =
      "1 entity changed, 0 removed, 0 added, left-out entities of 1 kind changed, 1 real differs by rounding alone";
  // The target may be the input; standard input is read once.
  const Outcome to_output = igs({"repair", "--summary", "-o", "-", "-"}, faulty_text());
  const Outcome in_place = igs({"repair", "--summary", "-o", "part.igs", "part.igs"});
  for (const auto& [text, summary] : {std::pair(to_output.err, "- as read, - as written: " + counts),
                                      std::pair(in_place.out, "part.igs as read, part.igs as written: " + counts)}) {
    const std::vector<std::string> lines = lines_of(text);
    ASSERT_GE(lines.size(), 3U) << text;
    EXPECT_THAT(std::vector<std::string>(lines.end() - 3, lines.end()),
                testing::ElementsAre(changes[0], changes[1], summary));
  }
  EXPECT_EQ(to_output.out, read_file(folder() / "part.igs"));
}

TEST_F(Diff, RepairSumsUpInJson) {
  file("part.igs", faulty_text());
  const Json object = only_object(igs({"repair", "--summary", "--format", "json", "-o", "out.igs", "part.igs"}).out);
  EXPECT_EQ(object.at("written"), "out.igs");
  EXPECT_EQ(object.at("summary").at("changes").size(), 2U);
  EXPECT_EQ(object.at("summary").at("close"), 1);
  file("cut.igs", faulty_text().substr(0, 500));
  const Outcome cut = igs({"repair", "--summary", "--format", "json", "-o", "out.igs", "cut.igs"});
  EXPECT_EQ(cut.status, 2);
  EXPECT_EQ(only_object(cut.out).at("summary"), nullptr);
}

}  // namespace
}  // namespace igs_test
