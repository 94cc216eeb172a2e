#include <gmock/gmock.h>

#include "iges_builder.h"
#include "sanitizers.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Repair = ProgramTest;

std::string arc(double radius) {
  return "0.,0.,0.," + std::to_string(radius) + ",0.," + std::to_string(radius) + ",0.";
}

/// An unknown entity, then a zero-length line (repaired), an arc without a radius (not repaired), a point whose line
/// count is wrong (not repaired, though the point is sound) and a sound point.
std::string faulty_text() {
  IgesBuilder builder;
  builder.entity(999, 0, "1");
  builder.line(0);
  builder.entity(100, 0, arc(0));
  const int miscounted = builder.point();
  builder.point();
  return builder.de_field(miscounted, 14, "3").text();
}

TEST_F(Repair, WritesTheRepairedFileAndReportsWhatItDid) {
  file("faulty.igs", faulty_text());
  const Outcome outcome = igs({"repair", "--format", "json", "-o", "out.igs", "faulty.igs"});
  EXPECT_EQ(outcome.status, 1);
  const Json object = only_object(outcome.out);
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  EXPECT_THAT(keys, ElementsAre("file", "read", "entities", "nulls", "unknowns", "dropped", "types", "error_count",
                                "errors", "fixed", "messages", "written"));
  EXPECT_EQ(object.at("entities"), 4);
  EXPECT_EQ(object.at("types"), (Json{{"100", 1}, {"106", 1}, {"116", 2}}));
  EXPECT_EQ(object.at("fixed"), Json::parse(R"([{"log": "object", "class": "igs110CoincidentPoints", "de": 3,
      "type": 106, "values": [1e-6]}])"));
  EXPECT_THAT(classes_of(object.at("errors")),
              ElementsAre("igs100ZeroRadius", "igsFileIncorrectPDLineCount", "igsFileInvalidIGESEntity"));
  EXPECT_EQ(object.at("errors")[0].at("de"), 5);  // as in the file that was read
  EXPECT_EQ(object.at("written"), "out.igs");

  EXPECT_EQ(column_fault(read_file(folder() / "out.igs")), "");
  const Json written = only_object(igs({"check", "--format", "json", "out.igs"}).out);
  EXPECT_EQ(written.at("types"), object.at("types"));
  EXPECT_THAT(classes_of(written.at("errors")), ElementsAre("igs100ZeroRadius"));
}

TEST_F(Repair, DeleteFaultyDeletesWhatCannotBeRepaired) {
  file("faulty.igs", faulty_text());
  const Outcome outcome = igs({"repair", "--format", "json", "--delete-faulty", "-o", "out.igs", "faulty.igs"});
  EXPECT_EQ(outcome.status, 0) << outcome.out;
  const Json object = only_object(outcome.out);
  EXPECT_EQ(object.at("deleted"), Json({5, 7}));
  EXPECT_EQ(object.at("types"), (Json{{"106", 1}, {"116", 1}}));
  EXPECT_EQ(igs({"check", "out.igs"}).status, 0);

  const Outcome text = igs({"repair", "--delete-faulty", "-o", "out.igs", "faulty.igs"});
  EXPECT_EQ(text.status, 0);
  for (const char* part : {"DE 3  106 Copious Data  igs110CoincidentPoints", "DE 5  igs100ZeroRadius",
                           "DE 7  igsFileIncorrectPDLineCount", "deleted: DE 5, DE 7\n", "1 of type 999"}) {
    EXPECT_THAT(text.out, HasSubstr(part));
  }
  EXPECT_THAT(lines_of(text.out).back(), HasSubstr("faulty.igs: 2 entities, 1 error repaired, 0 left"));
}

TEST_F(Repair, MessagesStandAsTheyWere) {
  IgesBuilder builder;
  builder.global(18, "");
  file("faulty.igs", builder.text());
  const Json object = only_object(igs({"repair", "--format", "json", "-o", "out.igs", "faulty.igs"}).out);
  EXPECT_EQ(object.at("messages"), Json({"Warning : Invalid data has been found in the global section of the file.\n",
                                         "Defaulting the data for field 18 (file creation date)\n"}));
}

// More than are kept in memory.
TEST_F(Repair, ManyMessagesStandInTheirOrder) {
  constexpr int count = 30000;
  IgesBuilder builder;
  std::string members = std::to_string(2 * count);
  for (int i = 0; i < count; ++i) members += ",1,3";
  for (int i = 0; i < 2; ++i) builder.entity(100, 0, arc(0));
  builder.entity(102, 0, members);
  file("faulty.igs", builder.text());
  const Json object = only_object(igs({"repair", "--format", "json", "-o", "out.igs", "faulty.igs"}).out);
  const Json& messages = object.at("messages");
  ASSERT_EQ(messages.size(), 2U * count);
  const std::string end = " has been removed from composite curve DE 5\n";
  for (std::size_t i = 0; i < messages.size(); ++i) {
    ASSERT_EQ(messages[i], "Warning : sub curve DE " + std::to_string(i % 2 == 0 ? 1 : 3) + end) << i;
  }
}

TEST_F(Repair, MaxErrorsLimitsTheFixedOnes) {
  IgesBuilder builder;
  for (int i = 0; i < 5; ++i) builder.line(0);
  file("faulty.igs", builder.text());
  const Outcome json = igs({"repair", "--format", "json", "--max-errors", "2", "-o", "out.igs", "faulty.igs"});
  EXPECT_EQ(json.status, 0);
  EXPECT_EQ(only_object(json.out).at("fixed").size(), 2U);
  EXPECT_THAT(igs({"repair", "--max-errors", "2", "-o", "out.igs", "faulty.igs"}).out, HasSubstr("3 more"));
}

TEST_F(Repair, TargetMayBeTheInput) {
  file("part.igs", faulty_text());
  EXPECT_EQ(igs({"repair", "--delete-faulty", "-o", "part.igs", "part.igs"}).status, 0);
  EXPECT_EQ(igs({"check", "part.igs"}).status, 0);
  EXPECT_THAT(files(), ElementsAre("part.igs"));
}

TEST_F(Repair, DashIsStandardOutputAndTheReportGoesToStandardError) {
  file("faulty.igs", faulty_text());
  const Outcome to_file = igs({"repair", "--format", "json", "-o", "out.igs", "faulty.igs"});
  const Outcome to_output = igs({"repair", "--format", "json", "-o", "-", "-"}, faulty_text());
  EXPECT_EQ(to_output.status, 1);
  EXPECT_EQ(to_output.out, read_file(folder() / "out.igs"));
  const Json report = only_object(to_output.err);
  EXPECT_EQ(report.at("written"), "-");
  EXPECT_EQ(report.at("fixed"), only_object(to_file.out).at("fixed"));
}

TEST_F(Repair, TargetKeepsItsPermissionsAndLinks) {
  file("faulty.igs", faulty_text());
  file("real.igs", "old");
  fs::permissions(folder() / "real.igs", fs::perms(0640));
  fs::create_symlink("real.igs", folder() / "link.igs");
  EXPECT_EQ(igs({"repair", "-o", "link.igs", "faulty.igs"}).status, 1);
  EXPECT_TRUE(fs::is_symlink(folder() / "link.igs"));
  EXPECT_EQ(fs::status(folder() / "real.igs").permissions(), fs::perms(0640));
  EXPECT_EQ(column_fault(read_file(folder() / "real.igs")), "");

  EXPECT_EQ(shell("umask 027; exec \"$IGS\" repair -o new.igs faulty.igs").status, 1);
  EXPECT_EQ(fs::status(folder() / "new.igs").permissions(), fs::perms(0640));
  EXPECT_THAT(files(), ElementsAre("faulty.igs", "link.igs", "new.igs", "real.igs"));
}

TEST_F(Repair, FailureLeavesTheTargetAsItWasAndNothingBesideIt) {
  file("faulty.igs", faulty_text());
  file("cut.igs", faulty_text().substr(0, 500));
  file("old.igs", "old");
  fs::create_directory(folder() / "folder");
  const std::vector<std::string> before = files();
  // The limit holds for standard error, too, unless that is a pipe.
  const std::string limited = "text=$(trap '' XFSZ; ";
  const std::string shown = " 2>&1); status=$?; echo \"$text\" >&2; exit $status";
  std::vector<std::string> commands{
      "\"$IGS\" repair -o old.igs missing.igs",
      "\"$IGS\" repair -o old.igs folder",
      "\"$IGS\" repair -o old.igs cut.igs",
      "\"$IGS\" repair -o folder faulty.igs",
      "\"$IGS\" repair -o nowhere/out.igs faulty.igs",
      "\"$IGS\" repair -o faulty.igs/out.igs faulty.igs",
      "\"$IGS\" repair -o /dev/full faulty.igs",
      "\"$IGS\" repair -o - faulty.igs >/dev/full",
      limited + "ulimit -f 0; \"$IGS\" repair -o old.igs faulty.igs" + shown,  // no temporary data
      limited + "ulimit -f 1; \"$IGS\" repair -o old.igs faulty.igs" + shown,  // temporary data, no whole file
      "TMPDIR=/nowhere \"$IGS\" repair -o /nowhere/out.igs faulty.igs",
  };
  for (const std::string call : {"fsync", "close"}) {  // sanitizers want to be loaded first
    const std::string failing = "IGS_FAILING_CALL=" + call + " LD_PRELOAD=" + quoted(FAILING_DISK) + ' ';
    if (!is_sanitized) commands.push_back(failing + "\"$IGS\" repair -o old.igs faulty.igs");
  }
  for (const std::string& command : commands) {
    const Outcome outcome = shell(command);
    EXPECT_EQ(outcome.status, 2) << command << outcome.err;
    EXPECT_NE(outcome.err, "") << command;
    EXPECT_EQ(read_file(folder() / "old.igs"), "old") << command;
    EXPECT_EQ(files(), before) << command;
  }
  const Outcome cut = igs({"repair", "--format", "json", "-o", "old.igs", "cut.igs"});
  EXPECT_EQ(only_object(cut.out).at("written"), nullptr);
  const Outcome full = igs({"repair", "--format", "json", "-o", "/dev/full", "faulty.igs"});
  EXPECT_EQ(only_object(full.out).at("written"), nullptr);
}

TEST_F(Repair, MemoryThatRunsOutLeavesTheTargetAsItWasAndNothingBesideIt) {
  if (is_sanitized) GTEST_SKIP() << "sanitizers reserve more address space than there is";
  IgesBuilder builder;
  for (int i = 0; i < 40000; ++i) builder.point();
  file("part.igs", builder.text());
  file("faulty.igs", faulty_text());
  file("old.igs", "old");
  const std::vector<std::string> before = files();
  const auto limited = [](int megabytes, const std::string& command) {
    return "ulimit -v " + std::to_string(1024 * megabytes) + "; \"$IGS\" repair -o " + command;
  };
  int enough = 4;  // for a small file
  while (enough < 1000 && shell(limited(enough, "small.igs faulty.igs")).status != 1) enough += 4;
  ASSERT_EQ(shell(limited(enough, "small.igs faulty.igs")).status, 1);
  fs::remove(folder() / "small.igs");
  const Outcome outcome = shell(limited(enough, "old.igs part.igs"));
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.err, testing::HasSubstr("part.igs: out of memory"));
  EXPECT_EQ(read_file(folder() / "old.igs"), "old");
  EXPECT_EQ(files(), before);
}

TEST_F(Repair, DevicesAreWrittenDirectly) {
  file("faulty.igs", faulty_text());
  const auto type = fs::status("/dev/null").type();
  EXPECT_EQ(igs({"repair", "-o", "/dev/null", "faulty.igs"}).status, 1);
  EXPECT_EQ(fs::status("/dev/null").type(), type);
}

TEST_F(Repair, InterruptionLeavesTheTargetAsItWasAndNothingBesideIt) {
  IgesBuilder builder;
  for (int i = 0; i < 20000; ++i) builder.point();
  file("part.igs", builder.text());
  file("old.igs", "old");
  // Ends the program as soon as its temporary stands beside the target.
  const Outcome outcome = shell(
      "\"$IGS\" repair -o old.igs part.igs & pid=$!\n"
      "while kill -0 $pid 2>&- && ! ls -A | grep -q '^\\.igs-'; do :; done\n"
      "kill -TERM $pid; wait $pid");
  EXPECT_EQ(outcome.status, 128 + 15) << outcome.err;
  EXPECT_EQ(read_file(folder() / "old.igs"), "old");
  EXPECT_THAT(files(), ElementsAre("old.igs", "part.igs"));
}

}  // namespace
}  // namespace igs_test
