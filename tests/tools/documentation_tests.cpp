#include <gmock/gmock.h>

#include <regex>

#include "igs/igs.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;

std::vector<std::string> matches(const std::string& text, const std::string& pattern) {
  const std::regex regex(pattern, std::regex::ECMAScript | std::regex::multiline);
  std::vector<std::string> found;
  for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it) found.push_back((*it)[1]);
  return found;
}

class Documentation : public ProgramTest {
 protected:
  std::vector<std::string> commands() { return matches(igs({"--help"}).out, "^  ([a-z]+) "); }
  std::vector<std::string> options(const std::string& command) {
    return matches(igs({command, "--help"}).out, "^  (?:-[a-z], )?(--[a-z-]+)");
  }
};

TEST_F(Documentation, ManPageHasEveryCommandOptionAndKey) {
  const std::string page = std::regex_replace(read_file(IGS_ROOT "/docs/man/igs.1"), std::regex("\n(?!\\.)"), " ");
  const auto count = [](const std::string& text, const std::string& pattern) { return matches(text, pattern).size(); };
  EXPECT_THAT(commands(), IsSupersetOf({"info", "check", "repair", "diff", "print", "explain"}));
  for (const std::string& command : commands()) {
    EXPECT_EQ(count(page, "^(\\.It Cm " + command + ") "), 1U) << command;
    const std::size_t begin = page.find(".Nm\n.Cm " + command + "\n");
    ASSERT_NE(begin, std::string::npos) << command;
    const std::string synopsis = page.substr(begin, page.find(".Nm", begin + 1) - begin);
    for (const std::string& option : options(command)) {
      const std::string name = "(Fl " + option.substr(1) + ")\\b";
      EXPECT_EQ(count(page, "^\\.It .*" + name), 1U) << option;
      if (option == "--help" || option == "--output") continue;
      EXPECT_EQ(count(synopsis, name), 1U) << command << ' ' << option;
    }
  }
  for (const coResourceInfo& key : coResourceTable::keys()) {
    const std::string name(key.name);
    const std::string value = matches(igs({"explain", name}).out, "Default: ([^;]*);").at(0);
    EXPECT_NE(page.find(".It Cm " + name + " No " + value + ' ' + std::string(key.meaning)), std::string::npos) << name;
  }
}

TEST_F(Documentation, ManPageIsSound) {
  const Outcome lint =
      shell("command -v mandoc >/dev/null || exit 9; mandoc -Tlint " + quoted(IGS_ROOT "/docs/man/igs.1"));
  if (lint.status == 9) GTEST_SKIP() << "no mandoc";
  EXPECT_EQ(lint.out + lint.err, "");
}

class Completion : public Documentation {
 protected:
  /// What bash offers for the last of the words.
  std::vector<std::string> offered(const Arguments& words) {
    std::string line;
    for (const std::string& word : words) line += ' ' + quoted(word);
    const std::string script = "source " + quoted(IGS_ROOT "/tools/completion/igs.bash") + "; COMP_WORDS=(\"$IGS\"" +
                               line + "); COMP_CWORD=" + std::to_string(words.size()) +
                               "; _igs; printf '%s\\n' \"${COMPREPLY[@]}\"";
    const Outcome outcome = shell("bash -c " + quoted(script));
    EXPECT_EQ(outcome.err, "");
    std::vector<std::string> found = lines_of(outcome.out);
    if (found == std::vector<std::string>{""}) found.clear();
    return found;
  }
};

TEST_F(Completion, OffersWhatTheProgramKnows) {
  std::vector<std::string> all = commands();
  all.insert(all.end(), {"--help", "--version"});
  EXPECT_EQ(offered({""}), all);
  EXPECT_THAT(offered({"ch"}), ElementsAre("check"));
  for (const std::string& command : commands()) EXPECT_EQ(offered({command, "--"}), options(command));
  EXPECT_THAT(offered({"repair", "--o"}), ElementsAre("--output"));
  EXPECT_THAT(offered({"check", "--format", ""}), ElementsAre("text", "json", "sarif"));
  EXPECT_THAT(offered({"info", "--format", "="}), ElementsAre("text", "json"));
  EXPECT_THAT(offered({"info", "--color", "=", "a"}), ElementsAre("auto", "always"));
  EXPECT_EQ(offered({"check", "--set", ""}).size(), coResourceTable::keys().size());
  EXPECT_THAT(offered({"repair", "--set", "kelTolZ"}), ElementsAre("kelTolZeroLength="));
  EXPECT_THAT(offered({"explain", "igs110"}), Contains("igs110CoincidentPoints"));
  EXPECT_GT(offered({"explain", ""}).size(), 70U);
  for (const Arguments& names : std::vector<Arguments>{{"check", ""}, {"check", "-o", "a"}, {"check", "-"}}) {
    EXPECT_THAT(offered(names), testing::IsEmpty());  // left to bash
  }
}

TEST_F(Completion, ZshReadsItsScript) {
  const Outcome zsh = shell("command -v zsh >/dev/null || exit 9; zsh -n " + quoted(IGS_ROOT "/tools/completion/_igs"));
  if (zsh.status == 9) GTEST_SKIP() << "no zsh";
  EXPECT_EQ(zsh.status, 0) << zsh.err;
}

}  // namespace
}  // namespace igs_test
