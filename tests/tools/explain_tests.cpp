#include <gmock/gmock.h>

#include <regex>
#include <set>

#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

using Explain = ProgramTest;

/// The error classes that the library's headers declare.
std::set<std::string> declared_error_classes() {
  // class IGS_API igsX : public base<igsX, "igsX", ...> {
  const std::regex declaration(R"re(class\s+(?:IGS_API\s+)?(igs\w+)\s*:\s*public\s+(\w+)\s*<\s*\1\s*,([^{;]*))re");
  const std::set<std::string> abstract{"igsIndexedError",   "igsObjectError",  "igsStructureError",
                                       "igsGlobalError",    "igsStartError",   "igsCompoundEntityError",
                                       "igsTerminateError", "igs404ViewError", "igsReferenceDataError"};
  // using igsX = igsNamedError<"igsX", ...>, or another such template; or a member of a family of errors,
  // igsYErrors<...>::Z or igsYErrors::Z
  const std::regex named(R"re(using\s+(igs\w+)\s*=\s*igs(?:\w*Error\s*<\s*"|\w*Errors\b(?:\s*<[^;>]*>)?\s*::))re");
  const std::regex comment("//.*");
  const std::regex error_base(R"re(.*\bigs\w*Error(Class)?\b.*)re");
  std::set<std::string> classes;
  for (const auto& entry : fs::recursive_directory_iterator(IGS_ROOT "/igs")) {
    if (entry.path().extension() != ".h") continue;
    const std::string text = std::regex_replace(read_file(entry.path()), comment, "");
    for (std::sregex_iterator it(text.begin(), text.end(), named), end; it != end; ++it) classes.insert((*it)[1]);
    for (std::sregex_iterator it(text.begin(), text.end(), declaration), end; it != end; ++it) {
      const std::string bases = std::regex_replace((*it)[2].str() + ' ' + (*it)[3].str(), std::regex("\\s+"), " ");
      const bool is_error = std::regex_match(bases, error_base);
      if (is_error && abstract.count((*it)[1]) == 0) classes.insert((*it)[1]);
    }
  }
  return classes;
}

TEST_F(Explain, KnowsEveryErrorClassOnceAndNoOther) {
  const std::set<std::string> declared = declared_error_classes();
  EXPECT_GT(declared.size(), 70U);
  const Outcome outcome = igs({"explain"});
  EXPECT_EQ(outcome.status, 0);
  std::set<std::string> explained;
  for (const std::string& line : lines_of(outcome.out)) {
    const std::string name = line.substr(0, line.find(' '));
    EXPECT_TRUE(explained.insert(name).second) << name << " is explained twice";
    EXPECT_TRUE(declared.count(name) == 1) << name << " is no error class";
    EXPECT_THAT(line, testing::MatchesRegex("igs[A-Za-z0-9_]+  .+ \\[(not )?repaired\\]"));
    EXPECT_THAT(line, testing::Not(HasSubstr("{")));
  }
  for (const std::string& name : declared) EXPECT_TRUE(explained.count(name) == 1) << name << " is not explained";
}

TEST_F(Explain, DescribesTheClassesAskedFor) {
  const Outcome outcome = igs({"explain", "igs110CoincidentPoints", "igs100ZeroRadius"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.out,
            "igs110CoincidentPoints\n"
            "  Meaning: the line's end points are at most ... apart.\n"
            "  Repair: The line is replaced by a polyline with the same ends.\n"
            "igs100ZeroRadius\n"
            "  Meaning: the arc's radius is 0.\n"
            "  Repair: It is not repaired; --delete-faulty deletes the entity, if it is about one.\n");
}

TEST_F(Explain, UnknownNamesGetAHint) {
  const Outcome misspelt = igs({"explain", "igs110coincidentpoint", "igs100ZeroRadius"});
  EXPECT_EQ(misspelt.status, 2);
  EXPECT_THAT(misspelt.err, HasSubstr("igs110CoincidentPoints"));
  EXPECT_THAT(misspelt.out, HasSubstr("igs100ZeroRadius"));
  EXPECT_THAT(igs({"explain", "LineWeight"}).err, HasSubstr("igsDEInvalidLineWeight"));
  EXPECT_EQ(igs({"explain", "xyz"}).err, "igs: xyz: no error class of this name\n");
  EXPECT_EQ(igs({"explain", std::string(100000, 'x')}).status, 2);
}

}  // namespace
}  // namespace igs_test
