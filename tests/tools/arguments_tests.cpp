#include <gmock/gmock.h>

#include "iges_builder.h"
#include "igs/support/coResourceTable.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;

using CommandLine = ProgramTest;

struct WrongCall {
  Arguments call;
  std::string complaint;
};

TEST_F(CommandLine, WrongCallsEndWithStatus2AndSayWhatIsWrong) {
  file("a.igs", IgesBuilder().text());
  fs::create_directory(folder() / "folder");
  const std::vector<WrongCall> calls{
      {{}, "a command is missing"},
      {{"mend", "a.igs"}, "unknown command \"mend\"; there are info, check, repair"},
      {{"chekc", "a.igs"}, "unknown command \"chekc\"; did you mean check?"},
      {{"--formats"}, "unknown option --formats"},
      {{"check"}, "check: FILE is missing"},
      {{"check", "--"}, "FILE is missing"},
      {{"check", "--format", "xml", "a.igs"}, "\"xml\" is none of text, json, sarif"},
      {{"check", "--format", "1", "a.igs"}, "\"1\" is none of"},
      {{"check", "--format=", "a.igs"}, "\"\" is none of"},
      {{"info", "--format", "sarif", "a.igs"}, "\"sarif\" is none of text, json"},
      {{"check", "--color", "red", "a.igs"}, "\"red\" is none of auto, always, never"},
      {{"check", "--verbose", "a.igs"}, "check: unknown option --verbose"},
      {{"check", "--fromat", "json", "a.igs"}, "unknown option --fromat; did you mean --format?"},
      {{"check", "-o", "b.igs", "a.igs"}, "unknown option -o"},
      {{"check", "--max-errors", "-1", "a.igs"}, "\"-1\" is no count"},
      {{"check", "--max-errors", "many", "a.igs"}, "\"many\" is no count"},
      {{"check", "a.igs", "--max-errors"}, "--max-errors needs a value, N"},
      {{"check", "--jobs", "x", "a.igs"}, "\"x\" is no count"},
      {{"check", "--jobs", "129", "a.igs"}, "129 is too many, there are at most 128"},
      {{"check", "--jobs", "99999999999999999999", "a.igs"}, "is too many"},
      {{"check", "--set", "kelTolZeroLength", "a.igs"}, "is no KEY=VALUE"},
      {{"check", "--set", "kelTolZeroLength=", "a.igs"}, "\"\" is no number"},
      {{"check", "--set", "kelTolZeroLength=small", "a.igs"}, "\"small\" is no number"},
      {{"check", "--set", "kelTolZeroLength=1e-5x", "a.igs"}, "is no number"},
      {{"check", "--set", "kelTolZeroLength=0,5", "a.igs"}, "\"0,5\" is no number"},
      {{"check", "--set", "kelTolZeroLength=-1", "a.igs"}, "-1 is not allowed for kelTolZeroLength"},
      {{"check", "--set", "kelTolZeroLength=nan", "a.igs"}, "nan is not allowed"},
      {{"check", "--set", "kelTolZeroLength=1e999", "a.igs"}, "is no number"},
      {{"check", "--set", "kelTolZeroLengths=1", "a.igs"},
       "no key \"kelTolZeroLengths\"; did you mean kelTolZeroLength?"},
      {{"check", "--set", "kelOptRigidTransforms=2", "a.igs"}, "2 is not allowed"},
      {{"check", "--set", "kelOptDoubleFieldWidth=1.5", "a.igs"}, "1.5 is not allowed"},
      {{"check", "a.igs", "b.igs", "a.igs"}, "check: a.igs is given twice"},
      {{"check", "-", "a.igs", "-"}, "standard input is given twice"},
      {{"check", "folder"}, "folder: Is a directory"},
      {{"check", "--help=1"}, "--help takes no value"},
      {{"repair", "--delete-everything", "-o", "b.igs", "a.igs"}, "unknown option --delete-everything"},
      {{"repair", "a.igs"}, "repair: --output is missing"},
      {{"repair", "-o", "b.igs"}, "repair: FILE is missing"},
      {{"repair", "a.igs", "-o"}, "-o needs a value, OUT"},
      {{"repair", "-o", "b.igs", "a.igs", "a.igs"}, "unexpected a.igs"},
      {{"repair", "-o", "folder", "a.igs"}, "folder: Is a directory"},
      {{"repair", "-o", "nowhere/b.igs", "a.igs"}, "nowhere/b.igs: No such file or directory"},
      {{"repair", "-o", "a.igs/b.igs", "a.igs"}, "a.igs/b.igs: Not a directory"},
      {{"repair", "-o", "", "a.igs"}, "No such file or directory"},
      {{"info", "--set", "kelTolZeroLength=1", "a.igs"}, "unknown option --set"},
      {{"info", "missing.igs"}, "missing.igs: No such file or directory"},
      {{"print"}, "print: FILE is missing"},
      {{"print", "a.igs", "c.igs"}, "unexpected c.igs"},
      {{"diff"}, "diff: FILE is missing"},
      {{"diff", "a.igs"}, "diff: too few names; there have to be OLD NEW"},
      {{"diff", "a.igs", "b.igs", "c.igs"}, "diff: unexpected c.igs"},
      {{"diff", "-", "-"}, "only one of the files can be standard input"},
      {{"diff", "--tolerance", "-1", "a.igs", "b.igs"}, "\"-1\" is no tolerance"},
      {{"explain", "--format", "json"}, "unknown option --format"},
  };
  for (const auto& [call, complaint] : calls) {
    const Outcome outcome = igs(call);
    EXPECT_EQ(outcome.status, 2) << testing::PrintToString(call) << outcome.err;
    EXPECT_THAT(outcome.err, HasSubstr(complaint)) << testing::PrintToString(call);
    EXPECT_THAT(outcome.out, testing::Not(HasSubstr("written to"))) << testing::PrintToString(call);
  }
  EXPECT_EQ(files(), (std::vector<std::string>{"a.igs", "folder"}));
}

TEST_F(CommandLine, HelpAndVersionEndWithStatus0) {
  for (const Arguments& call : std::vector<Arguments>{{"--help"},
                                                      {"--version"},
                                                      {"info", "--help"},
                                                      {"check", "--help"},
                                                      {"repair", "--help"},
                                                      {"diff", "--help"},
                                                      {"print", "--help"},
                                                      {"explain", "--help"}}) {
    const Outcome outcome = igs(call);
    EXPECT_EQ(outcome.status, 0) << testing::PrintToString(call);
    EXPECT_NE(outcome.out, "") << testing::PrintToString(call);
    EXPECT_EQ(outcome.err, "") << testing::PrintToString(call);
    const std::vector<std::string> lines = lines_of(outcome.out);
    EXPECT_LE(lines.size(), 24U) << testing::PrintToString(call);  // a screen
    for (const std::string& line : lines) EXPECT_LE(line.size(), 80U) << line;
  }
  EXPECT_THAT(igs({"repair", "--help"}).out, HasSubstr("Sound entities"));
  for (const coResourceInfo& key : coResourceTable::keys()) {
    EXPECT_THAT(igs({"check", "--help"}).out, HasSubstr(std::string(key.name)));
  }
}

TEST_F(CommandLine, SetChangesTolerancesAndOptions) {
  IgesBuilder builder;
  builder.line(1e-3);
  file("short.igs", builder.text());
  EXPECT_EQ(igs({"check", "short.igs"}).status, 0);

  const Outcome outcome = igs({"check", "--format", "json", "--set", "kelTolRadiusDiff=1", "--set",
                               "kelTolZeroLength=0.0123456789012345678", "short.igs"});
  EXPECT_EQ(outcome.status, 1);
  const Json errors = only_object(outcome.out).at("errors");
  ASSERT_EQ(classes_of(errors), std::vector<std::string>{"igs110CoincidentPoints"});
  EXPECT_EQ(errors[0].at("values")[0].get<double>(), 0.0123456789012345678);  // reads back to the same double
}

TEST_F(CommandLine, ResultsThatCannotBeWrittenAreAFailure) {
  file("a.igs", IgesBuilder().text());
  for (const char* command :
       {"\"$IGS\" check a.igs", "\"$IGS\" check --format json a.igs", "\"$IGS\" info a.igs", "\"$IGS\" print a.igs",
        "\"$IGS\" explain", "\"$IGS\" --help", "\"$IGS\" repair -o b.igs a.igs", "\"$IGS\" repair -o - a.igs"}) {
    const Outcome outcome = shell(std::string(command) + " >/dev/full");
    EXPECT_EQ(outcome.status, 2) << command;
  }
  // A reader that goes away: no death by signal.
  const Outcome outcome = shell("{ sleep 0.2; \"$IGS\" explain; echo $? >&2; } | true");
  EXPECT_THAT(outcome.err, HasSubstr("2"));
}

}  // namespace
}  // namespace igs_test
