#include <gmock/gmock.h>

#include "iges_builder.h"
#include "igs/support/coResourceTable.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;

using CommandLine = ProgramTest;

TEST_F(CommandLine, WrongCallsEndWithStatus2AndPrintNoResult) {
  file("a.igs", IgesBuilder().text());
  const std::vector<Arguments> calls{
      {},
      {"mend", "a.igs"},
      {"check"},
      {"check", "--format", "xml", "a.igs"},
      {"check", "--format", "1", "a.igs"},
      {"check", "--verbose", "a.igs"},
      {"check", "--max-errors", "-1", "a.igs"},
      {"check", "--max-errors", "many", "a.igs"},
      {"check", "--set", "kelTolZeroLength", "a.igs"},
      {"check", "--set", "kelTolZeroLength=", "a.igs"},
      {"check", "--set", "kelTolZeroLength=small", "a.igs"},
      {"check", "--set", "kelTolZeroLength=1e-5x", "a.igs"},
      {"check", "--set", "kelTolZeroLength=0,5", "a.igs"},
      {"check", "--set", "kelTolZeroLength=-1", "a.igs"},
      {"check", "--set", "kelTolZeroLength=nan", "a.igs"},
      {"check", "--set", "kelTolZeroLength=1e999", "a.igs"},
      {"check", "--set", "kelTolZeroLengths=1", "a.igs"},
      {"check", "--set", "kelOptRigidTransforms=2", "a.igs"},
      {"check", "--set", "kelOptDoubleFieldWidth=1.5", "a.igs"},
      {"repair", "--delete-everything", "-o", "b.igs", "a.igs"},
      {"repair", "a.igs"},
      {"repair", "-o", "b.igs"},
      {"repair", "-o", "b.igs", "a.igs", "a.igs"},
      {"info", "--set", "kelTolZeroLength=1", "a.igs"},
      {"print"},
      {"print", "a.igs", "a.igs"},
      {"explain", "--format", "json"},
  };
  for (const Arguments& call : calls) {
    const Outcome outcome = igs(call);
    EXPECT_EQ(outcome.status, 2) << testing::PrintToString(call) << outcome.err;
    EXPECT_EQ(outcome.out, "") << testing::PrintToString(call);
    EXPECT_NE(outcome.err, "") << testing::PrintToString(call);
  }
  EXPECT_EQ(files(), std::vector<std::string>{"a.igs"});
}

TEST_F(CommandLine, HelpAndVersionEndWithStatus0) {
  for (const Arguments& call : std::vector<Arguments>{{"--help"},
                                                      {"--version"},
                                                      {"info", "--help"},
                                                      {"check", "--help"},
                                                      {"repair", "--help"},
                                                      {"print", "--help"},
                                                      {"explain", "--help"}}) {
    const Outcome outcome = igs(call);
    EXPECT_EQ(outcome.status, 0) << testing::PrintToString(call);
    EXPECT_NE(outcome.out, "") << testing::PrintToString(call);
    EXPECT_EQ(outcome.err, "") << testing::PrintToString(call);
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
