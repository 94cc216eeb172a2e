#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "iges_builder.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;
using testing::Not;

using ProgressLine = ProgramTest;

/// What `igs check` writes to a terminal that is its standard error.
std::string shown_on_terminal(Arguments words) {
  words.insert(words.begin(), {"igs", "check"});
  std::vector<char*> arguments;
  for (std::string& word : words) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) return "no terminal";
  const std::string name = ptsname(terminal);  // NOLINT(concurrency-mt-unsafe)
  const pid_t child = fork();
  if (child == 0) {
    dup2(open(name.c_str(), O_RDWR | O_NOCTTY), STDERR_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execv(IGS_PROGRAM, arguments.data());
    _exit(99);
  }
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t size = 0; (size = read(terminal, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(size));  // the read fails once the program has ended
  }
  int status = 0;
  waitpid(child, &status, 0);
  close(terminal);
  return WIFEXITED(status) && WEXITSTATUS(status) <= 2 ? text : "failed: " + text;
}

std::string points(int count, IgesBuilder builder = {}) {
  for (int i = 0; i < count; ++i) builder.point();
  return builder.text();
}

TEST_F(ProgressLine, IsShownForLargeFilesOnATerminalAlone) {
  const fs::path large = folder() / file("large.igs", points(20000));
  const fs::path small = folder() / file("small.igs", points(20));
  const std::string shown = shown_on_terminal({large});
  EXPECT_THAT(shown, HasSubstr("large.igs: reading "));
  EXPECT_THAT(shown, HasSubstr(" %"));
  EXPECT_THAT(shown, HasSubstr("large.igs: checking"));
  EXPECT_THAT(shown, testing::EndsWith("\r\x1b[K"));
  EXPECT_EQ(shown_on_terminal({small}), "");
  EXPECT_EQ(igs({"check", large}).err, "");
}

TEST_F(ProgressLine, IsOutOfTheWayOfOtherText) {
  IgesBuilder builder;
  builder.edit('P', [](auto& records) { records.at(9000).insert(0, ".."); });  // the library warns of it while it reads
  const fs::path faulty = folder() / file("faulty.igs", points(20000, builder));
  const std::string name(200, 'x');
  const fs::path long_name = folder() / file(name, points(20000));
  const std::string shown = shown_on_terminal({"--color", "always", "missing.igs", faulty, long_name});
  std::size_t complaints = 0;
  for (std::size_t at = 0; (at = shown.find("igs: ", at)) != std::string::npos; ++at) {
    if (at > 0 && shown.substr(at - 1, 5) == ".igs:") continue;  // the line itself
    ++complaints;
    EXPECT_TRUE(at == 0 || shown[at - 1] == '\n' || shown.substr(at - 4, 4) == "\r\x1b[K") << shown.substr(at, 40);
  }
  EXPECT_GE(complaints, 2U) << shown;
  EXPECT_THAT(shown, Not(HasSubstr(name)));
  EXPECT_THAT(shown, HasSubstr("..." + std::string(50, 'x') + ": reading"));

  const std::string together = shown_on_terminal({"--jobs", "2", faulty, long_name});
  EXPECT_THAT(together, HasSubstr("\r\x1b[K0 of 2 files done"));
  EXPECT_THAT(together, HasSubstr("\r\x1b[K1 of 2 files done\r\x1b[K"));
  EXPECT_THAT(together, testing::EndsWith("\r\x1b[K"));
}

}  // namespace
}  // namespace igs_test
