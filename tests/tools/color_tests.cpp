#include <gmock/gmock.h>

#include "iges_builder.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;
using testing::Not;

using Color = ProgramTest;

TEST_F(Color, IsForTerminalsUnlessAskedForOrForbidden) {
  IgesBuilder builder;
  builder.line(0);
  file("a.igs", builder.text());
  // script(1) gives the program a terminal.
  const auto on_terminal = [this](const std::string& call) {
    return shell("export TERM=xterm; script -qec " + quoted(call) + " /dev/null </dev/null").out;
  };
  const std::string call = "\"$IGS\" check a.igs";
  const std::string red = "\x1b[31migs110CoincidentPoints\x1b[0m";
  EXPECT_THAT(on_terminal(call), HasSubstr(red));
  EXPECT_THAT(on_terminal("NO_COLOR= " + call), HasSubstr(red));
  EXPECT_THAT(on_terminal("NO_COLOR=1 " + call + " --color always"), HasSubstr(red));
  for (const std::string& plain : {"NO_COLOR=1 " + call, "TERM=dumb " + call, call + " --color never",
                                   call + " --format json", call + " >out; cat out"}) {
    EXPECT_THAT(on_terminal(plain), Not(HasSubstr("\x1b["))) << plain;
  }
}

TEST_F(Color, ChangesNothingElse) {
  IgesBuilder builder;
  builder.line(0);
  builder.entity(124, 1, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.");
  file("a.igs", builder.text());
  for (const Arguments& call : std::vector<Arguments>{{"check", "a.igs"},
                                                      {"check", "a.igs", "b.igs"},
                                                      {"info", "a.igs"},
                                                      {"repair", "-o", "b.igs", "a.igs"},
                                                      {"explain"},
                                                      {"explain", "igs110CoincidentPoints", "kelTolZeroLength"}}) {
    Arguments colored = call;
    colored.insert(colored.end(), {"--color", "always"});
    std::string text = igs(colored).out;
    EXPECT_THAT(text, HasSubstr("\x1b["));
    for (const std::string code : {"\x1b[1m", "\x1b[31m", "\x1b[32m", "\x1b[0m"}) {
      for (std::size_t at = 0; (at = text.find(code)) != std::string::npos;) text.erase(at, code.size());
    }
    EXPECT_EQ(text, igs(call).out);
    EXPECT_THAT(text, Not(HasSubstr("\x1b")));
  }
}

}  // namespace
}  // namespace igs_test
