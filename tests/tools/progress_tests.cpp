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

using ProgressLine = ProgramTest;

/// What `igs check FILE` writes to a terminal that is its standard error.
std::string shown_on_terminal(const std::string& file) {
  const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
  if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0) return "no terminal";
  const std::string name = ptsname(terminal);  // NOLINT(concurrency-mt-unsafe)
  const pid_t child = fork();
  if (child == 0) {
    dup2(open(name.c_str(), O_RDWR | O_NOCTTY), STDERR_FILENO);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execl(IGS_PROGRAM, "igs", "check", file.c_str(), nullptr);
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
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? text : "failed: " + text;
}

std::string points(int count) {
  IgesBuilder builder;
  for (int i = 0; i < count; ++i) builder.point();
  return builder.text();
}

TEST_F(ProgressLine, IsShownForLargeFilesOnATerminalAlone) {
  const fs::path large = folder() / file("large.igs", points(20000));
  const fs::path small = folder() / file("small.igs", points(20));
  const std::string shown = shown_on_terminal(large);
  EXPECT_THAT(shown, HasSubstr("large.igs: reading "));
  EXPECT_THAT(shown, HasSubstr(" %"));
  EXPECT_THAT(shown, HasSubstr("large.igs: checking"));
  EXPECT_THAT(shown, testing::EndsWith("\r\x1b[K"));
  EXPECT_EQ(shown_on_terminal(small), "");
  EXPECT_EQ(igs({"check", large}).err, "");
}

}  // namespace
}  // namespace igs_test
