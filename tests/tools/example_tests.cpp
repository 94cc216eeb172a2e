#include <gmock/gmock.h>

#include "iges_builder.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;

using Examples = ProgramTest;

/// The Parameter Data of every entity, without pointers.
std::vector<std::string> parameter_data(const std::string& text) {
  std::vector<std::string> data;
  for (const std::string& record : records_of(text, 'P')) data.push_back(record.substr(0, 64));
  return data;
}

TEST_F(Examples, BracketIsWhatItsProgramMakes) {
  EXPECT_EQ(shell(MAKE_BRACKET).out, read_file(example("bracket.igs")));
  EXPECT_EQ(column_fault(read_file(example("bracket.igs"))), "");
  EXPECT_EQ(igs({"check", example("bracket.igs")}).out, example("bracket.igs") + ": 18 entities, no errors\n");
}

TEST_F(Examples, EveryFaultOfTheFaultyBracketIsNamed) {
  const Outcome outcome = igs({"check", example("bracket-faulty.igs")});
  EXPECT_EQ(outcome.status, 1);
  const Json object = only_object(igs({"check", "--format", "json", example("bracket-faulty.igs")}).out);
  EXPECT_THAT(classes_of(object.at("errors")),
              ElementsAre("igs100InconsistRad", "igs110CoincidentPoints", "igs124InvalidLHS", "igsDEInvalidColour",
                          "igsDEInvalidLevel", "igsDEInvalidLineFont", "igsDEInvalidLineWeight",
                          "igsDEInvalidMatrixData", "igsDEInvalidMatrixData", "igsFileDENullCharacters",
                          "igsFileDefaultedForm", "igsFileIncorrectPDLineCount", "igsFileIncorrectStartOfPD",
                          "igsGlobalSectionIllegalDefault", "igsGlobalSectionIllegalDefault",
                          "igsGlobalSectionInvalidFileCreationDate", "igsGlobalSectionInvalidSinglePrecSignificance",
                          "igsGlobalSectionUnitNameTypeMismatch", "igsTerminateSectionBadCount"));
  // A line for each, with a sentence whose values are all filled in.
  const std::vector<std::string> lines = lines_of(outcome.out);
  ASSERT_EQ(lines.size(), object.at("errors").size() + 2);
  for (std::size_t i = 0; i < object.at("errors").size(); ++i) {
    EXPECT_THAT(lines[i + 1], HasSubstr("  " + object.at("errors")[i].at("class").get<std::string>() + "  "));
    EXPECT_THAT(lines[i + 1], testing::Not(testing::AnyOf(HasSubstr("{"), HasSubstr("?"))));
  }
}

TEST_F(Examples, FaultyBracketIsRepairedWithoutLosingAnything) {
  const Outcome outcome = igs({"repair", "--format", "json", "-o", "out.igs", example("bracket-faulty.igs")});
  // Faults of the directory's pointers and counts have no repair of their own; writing does away with them.
  EXPECT_THAT(classes_of(only_object(outcome.out).at("errors")),
              ElementsAre("igsFileDefaultedForm", "igsFileIncorrectPDLineCount", "igsFileIncorrectStartOfPD"));
  EXPECT_EQ(igs({"check", "out.igs"}).status, 0);
  EXPECT_EQ(only_object(igs({"info", "--format", "json", "out.igs"}).out).at("types"),
            (Json{{"100", 6}, {"106", 1}, {"110", 7}, {"116", 4}, {"124", 1}}));
  std::vector<std::string> sound = parameter_data(read_file(example("bracket.igs")));
  sound.erase(sound.begin() + 1);  // the arc whose centre was wrong
  EXPECT_THAT(parameter_data(read_file(folder() / "out.igs")), IsSupersetOf(sound));
}

TEST_F(Examples, DamagedBracketIsReadAsIfItWereSound) {
  const Outcome outcome = igs({"repair", "--format", "json", "-o", "out.igs", example("bracket-damaged.igs")});
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(classes_of(only_object(outcome.out).at("fixed")),
              ElementsAre("igsFileBlankLine", "igsFileInvalidLineNumbers"));
  EXPECT_EQ(read_file(folder() / "out.igs"), read_file(example("bracket.igs")));
}

}  // namespace
}  // namespace igs_test
