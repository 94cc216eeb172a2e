#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "iges_builder.h"
#include "ordinary_user.h"
#include "sanitizers.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

using Check = ProgramTest;

/// A file with `count` zero-length lines.
std::string zero_length_lines(int count) {
  IgesBuilder builder;
  for (int i = 0; i < count; ++i) builder.line(0);
  return builder.text();
}

std::vector<std::string> keys_of(const Json& object) {
  std::vector<std::string> keys;
  for (const auto& [key, value] : object.items()) keys.push_back(key);
  return keys;
}

TEST_F(Check, SoundFileGivesTheSummaryAlone) {
  IgesBuilder builder;
  builder.line();
  builder.point();
  file("sound.igs", builder.text());
  const Outcome outcome = igs({"check", "sound.igs"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out, "sound.igs: 2 entities, no errors\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(Check, JsonObjectHasTheMembersInOrder) {
  IgesBuilder builder;
  builder.line(0);
  builder.point();
  builder.entity(406, 15, "1,4Hname");
  builder.entity(0, 0, "");
  file("part.igs", builder.text());
  const Outcome outcome = igs({"check", "--format", "json", "part.igs"});
  EXPECT_EQ(outcome.status, 1);
  const Json object = only_object(outcome.out);
  EXPECT_THAT(keys_of(object), ElementsAre("file", "read", "entities", "nulls", "unknowns", "dropped", "types",
                                           "error_count", "errors", "messages"));
  EXPECT_EQ(object.at("file"), "part.igs");
  EXPECT_EQ(object.at("read"), true);
  EXPECT_EQ(object.at("entities"), 2);
  EXPECT_EQ(object.at("nulls"), 1);
  EXPECT_EQ(object.at("unknowns"), 1);
  EXPECT_EQ(object.at("dropped"), (Json{{"0:0", 1}, {"406:15", 1}}));
  EXPECT_EQ(object.at("types"), (Json{{"110", 1}, {"116", 1}}));
  EXPECT_EQ(object.at("error_count"), 1);
  ASSERT_THAT(object.at("errors"), SizeIs(1));
  EXPECT_EQ(
      object.at("errors")[0],
      (Json{{"log", "object"}, {"class", "igs110CoincidentPoints"}, {"de", 1}, {"type", 110}, {"values", {1e-6}}}));
}

TEST_F(Check, ErrorsStandLogByLogWithTheMembersThatFitThem) {
  IgesBuilder builder;
  builder.entity(999, 0, "1");
  builder.line(0);
  builder.global(24, "9").de_field(3, 14, "5").columns('T', 1, 10, right(7, 7));
  file("faulty.igs", builder.text());
  const Json errors = only_object(igs({"check", "--format", "json", "faulty.igs"}).out).at("errors");
  EXPECT_EQ(
      errors,
      Json::parse(R"([{"log": "object", "class": "igs110CoincidentPoints", "de": 3, "type": 110, "values": [1e-6]},
  {"log": "structure", "class": "igsFileInvalidIGESEntity", "de": 1, "values": [999]},
  {"log": "structure", "class": "igsFileIncorrectPDLineCount", "de": 3, "type": 110, "values": [1, 5]},
  {"log": "global", "class": "igsGlobalSectionInvalidDraftingStandard", "values": [9]},
  {"log": "terminate", "class": "igsTerminateSectionBadCount", "values": [1, 7, 3]}])"))
      << errors;

  const Outcome text = igs({"check", "faulty.igs"});
  EXPECT_EQ(text.status, 1);
  EXPECT_THAT(
      lines_of(text.out),
      ElementsAre(
          "faulty.igs:", "DE 3  110 Line  igs110CoincidentPoints  the line's end points are at most 1e-06 apart",
          "DE 1  igsFileInvalidIGESEntity  999 is no entity type of IGES; the entity was left out",
          "DE 3  110 Line  igsFileIncorrectPDLineCount  the parameter data take 1 lines, the directory entry says 5",
          "Global section  igsGlobalSectionInvalidDraftingStandard  parameter 24, the drafting standard, is 9; it "
          "has to be between 0 and 7",
          "Terminate section  igsTerminateSectionBadCount  the count of Global records is 7, but the file has 3",
          "left out on reading: 1 of type 999 form 0", "faulty.igs: 1 entity, 5 errors"));
}

TEST_F(Check, ReportsWhatReadingLeftOutOfASoundFile) {
  IgesBuilder builder;
  builder.entity(406, 15, "1,4Hname");
  builder.entity(406, 15, "1,4Hname");
  file("names.igs", builder.text());
  const Outcome outcome = igs({"check", "names.igs"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.out, HasSubstr("left out on reading: 2 of type 406 form 15 Property"));
}

TEST_F(Check, OneBadFileStopsNoOther) {
  IgesBuilder sound;
  sound.point();
  file("a.igs", zero_length_lines(1));
  file("c.igs", sound.text());
  fs::create_directory(folder() / "folder");
  const Outcome json = igs({"check", "--format", "json", "a.igs", "missing.igs", "folder", "c.igs"});
  EXPECT_EQ(json.status, 2);
  const std::vector<Json> objects = objects_of(json.out);
  ASSERT_THAT(objects, SizeIs(4));
  EXPECT_EQ(objects[0].at("error_count"), 1);
  EXPECT_THAT(keys_of(objects[1]), ElementsAre("file", "error"));
  EXPECT_THAT(keys_of(objects[2]), ElementsAre("file", "error"));
  EXPECT_EQ(objects[2].at("file"), "folder");
  EXPECT_EQ(objects[3].at("file"), "c.igs");
  EXPECT_EQ(objects[3].at("error_count"), 0);

  const Outcome text = igs({"check", "a.igs", "missing.igs", "c.igs"});
  EXPECT_EQ(text.status, 2);
  EXPECT_EQ(text.out.substr(text.out.find("c.igs:")),
            "c.igs: 1 entity, no errors\n\n"
            "file         entities  errors  status\n"
            "a.igs               1       1  errors\n"
            "missing.igs         0       0  failed\n"
            "c.igs               1       0  sound\n"
            "3 files: 1 sound, 1 with errors, 1 failed\n");
  EXPECT_THAT(text.err, HasSubstr("missing.igs"));
  EXPECT_EQ(igs({"check", "c.igs", "a.igs"}).status, 1);
}

TEST_F(Check, FilesThatCannotBeReadToTheirEnd) {
  IgesBuilder builder;
  builder.line();
  const std::string sound = builder.text();
  std::string bytes;
  for (int i = 0; i < 5000; ++i) bytes += static_cast<char>(i * 7919 % 251);
  const std::vector<std::pair<std::string, std::string>> contents{
      {"empty", ""}, {"bytes", bytes}, {"text", "Dear reader,\nthis is a letter.\n"}, {"cut", sound.substr(0, 300)}};
  for (const auto& [name, content] : contents) {
    file(name, content);
    const Outcome json = igs({"check", "--format", "json", name});
    EXPECT_EQ(json.status, 2) << name;
    EXPECT_EQ(only_object(json.out).at("read"), false) << name;
    EXPECT_EQ(igs({"check", name}).status, 2) << name;
    EXPECT_EQ(igs({"info", name}).status, 2) << name;
    EXPECT_EQ(igs({"print", name}).status, 2) << name;
  }
}

TEST_F(Check, DashIsStandardInput) {
  const Outcome outcome = igs({"check", "--format", "json", "-"}, zero_length_lines(2));
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(only_object(outcome.out).at("file"), "-");
  EXPECT_EQ(only_object(outcome.out).at("entities"), 2);
}

TEST_F(Check, MaxErrorsLimitsTheListsAndNothingElse) {
  file("many.igs", zero_length_lines(1200));
  const auto count_listed = [&](Arguments arguments) {
    arguments.insert(arguments.begin() + 1, "--format");
    arguments.insert(arguments.begin() + 2, "json");
    const Json object = only_object(igs(arguments).out);
    EXPECT_EQ(object.at("error_count"), 1200);
    return object.at("errors").size();
  };
  EXPECT_EQ(count_listed({"check", "many.igs"}), 1200U);
  EXPECT_EQ(count_listed({"check", "--max-errors", "7", "many.igs"}), 7U);
  EXPECT_EQ(count_listed({"check", "--max-errors", "0", "many.igs"}), 0U);

  const std::string text = igs({"check", "many.igs"}).out;
  EXPECT_THAT(lines_of(text), SizeIs(1 + 1000 + 2));
  EXPECT_THAT(text, HasSubstr("200 more"));
  EXPECT_THAT(igs({"check", "--max-errors", "1200", "many.igs"}).out, Not(HasSubstr("more")));
}

TEST_F(Check, TextFromFilesIsNeverCopiedRaw) {
  // A letter of Latin-1, an escape sequence for terminals, then a letter in UTF-8.
  IgesBuilder builder;
  builder.global(18, "11H\xE9\x1B[31m\xC3\xA9 \"\\");
  const std::string name = file("p\xE9.igs", builder.text());
  const Outcome json = igs({"check", "--format", "json", name});
  const Json object = only_object(json.out);
  EXPECT_THAT(json.out, HasSubstr("\"p\\u00e9.igs\""));
  EXPECT_THAT(json.out, HasSubstr("\\u00e9\\u001b[31m\\u00e9 \\\"\\\\"));
  EXPECT_THAT(classes_of(object.at("errors")), ElementsAre("igsGlobalSectionInvalidFileCreationDate"));

  const Outcome text = igs({"check", name});
  EXPECT_THAT(text.out, HasSubstr("p\\xe9.igs:"));
  EXPECT_THAT(text.out, HasSubstr("\\xe9\\x1b[31m\xC3\xA9"));
}

TEST_F(Check, NamesAreTakenAsTheyAre) {
  const std::vector<std::string> names{"check", "a=b", "%%", "\"q\"", "-- a", "x\ny", "++", "[a,b]", "--help", "--"};
  Arguments call{"check", "--format", "json", "--"};
  for (const std::string& name : names) {
    file(name, IgesBuilder().text());
    call.push_back(name);
  }
  const Outcome outcome = igs(call);
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  const std::vector<Json> objects = objects_of(outcome.out);
  ASSERT_EQ(objects.size(), names.size());
  for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(objects[i].at("file"), names[i]);

  // Not behind "--", with options after them and as the value of one.
  EXPECT_EQ(igs({"check", "++", "[a,b]", "check", "--format=json", "--max-errors", "1"}).status, 0);
  EXPECT_EQ(igs({"repair", "++", "-o", "[c,d]"}).status, 0);
  EXPECT_EQ(igs({"repair", "-o++", "[c,d]"}).status, 0);
  EXPECT_TRUE(fs::exists(folder() / "[c,d]"));
}

struct Cost {
  int status;
  double megabytes, seconds;
};

/// Runs the program in `folder`, its output going to the file `out` there.
Cost cost_of(const fs::path& folder, Arguments arguments) {
  const pid_t child = fork();
  if (child == 0) {
    const std::string program = IGS_PROGRAM;
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (std::string& argument : arguments) words.push_back(argument.data());
    words.push_back(nullptr);
    constexpr int permissions = 0600;
    if (chdir(folder.c_str()) != 0) _exit(127);
    if (dup2(open("out", O_WRONLY | O_CREAT | O_TRUNC, permissions), STDOUT_FILENO) < 0) _exit(127);
    execv(program.c_str(), words.data());
    _exit(127);
  }
  int status = -1;
  rusage usage{};
  EXPECT_EQ(wait4(child, &status, 0, &usage), child);
  constexpr double thousand = 1e3, million = 1e6;
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, static_cast<double>(usage.ru_maxrss) / thousand,
          static_cast<double>(usage.ru_utime.tv_sec) + static_cast<double>(usage.ru_utime.tv_usec) / million};
}

// What is reported is written as it goes.
TEST_F(Check, ReportsOfManyErrorsTakeNoMemoryAndLinearTime) {
  constexpr int errors = is_sanitized ? 20000 : 160000;
  constexpr int factor = 4;
  const auto file_of = [this](const std::string& name, int count) {
    IgesBuilder builder;
    builder.line();
    std::string members = std::to_string(count);
    for (int i = 0; i < count; ++i) members += ",0";
    builder.entity(402, 7, members);
    return file(name, builder.text());
  };
  file_of("few.igs", errors / factor);
  file_of("many.igs", errors);
  const Cost few = cost_of(folder(), {"check", "--format", "json", "few.igs"});
  const Cost none = cost_of(folder(), {"check", "--format", "json", "--max-errors", "0", "many.igs"});
  const Cost many = cost_of(folder(), {"check", "--format", "json", "many.igs"});
  EXPECT_EQ(many.status, 1);
  const auto size = static_cast<double>(fs::file_size(folder() / "out"));
  EXPECT_EQ(only_object(read_file(folder() / "out")).at("errors").size(), static_cast<std::size_t>(errors));
  constexpr double megabyte = 1e6, tolerated = 4;
  EXPECT_GT(size, 80.0 * errors);
  if (!is_sanitized) {
    EXPECT_LT(many.megabytes, none.megabytes + tolerated) << size / megabyte << " MB were written";
  }
  constexpr double quadratic = factor * factor, least = 0.02;
  EXPECT_LT(many.seconds, quadratic / 2 * std::max(few.seconds, least));
}

TEST_F(Check, UnreadableFile) {
  const std::string name = file("locked.igs", zero_length_lines(1));
  const int program = open(IGS_PROGRAM, O_RDONLY);  // which may stand where only root gets
  ASSERT_GE(program, 0);
  ASSERT_EQ(setenv("ASAN_OPTIONS", "exitcode=99", 1), 0);
  const auto check = [&] {
    if (chdir(folder().c_str()) != 0 || dup2(open("/dev/null", O_WRONLY), STDERR_FILENO) < 0) return 255;
    std::string words[] = {"igs", "check", name};
    char* const arguments[] = {words[0].data(), words[1].data(), words[2].data(), nullptr};
    return fexecve(program, arguments, environ);
  };
  fs::permissions(folder(), fs::perms(0755));
  for (const bool may_read : {true, false}) {
    fs::permissions(folder() / name, may_read ? fs::perms(0444) : fs::perms::none);
    EXPECT_EQ(as_ordinary_user(check), may_read ? 1 : 2);
  }
  close(program);
}

}  // namespace
}  // namespace igs_test
