#include <gmock/gmock.h>

#include "iges_builder.h"
#include "sanitizers.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;

using Jobs = ProgramTest;

std::string lines(int sound, int short_ones) {
  IgesBuilder builder;
  for (int i = 0; i < sound; ++i) builder.line();
  for (int i = 0; i < short_ones; ++i) builder.line(0);
  return builder.text();
}

TEST_F(Jobs, GiveWhatOneProcessGives) {
  Arguments names{"missing.igs"};
  for (int i = 0; i < 12; ++i) {
    names.push_back(file("f" + std::to_string(i) + ".igs", lines(i % 3 == 0 ? 3000 : 1, i % 2 == 0 ? 500 : 0)));
  }
  names.push_back(file("cut.igs", lines(1, 1).substr(0, 400)));
  names.emplace_back("-");
  for (const Arguments& start : std::vector<Arguments>{{"check"},
                                                       {"check", "--color", "always", "--max-errors", "20"},
                                                       {"check", "--format", "json"},
                                                       {"check", "--format", "sarif"},
                                                       {"info"},
                                                       {"info", "--format", "json"}}) {
    Arguments one = start, many = start;
    many.insert(many.end(), {"--jobs", "5"});
    for (Arguments* call : {&one, &many}) call->insert(call->end(), names.begin(), names.end());
    const Outcome alone = igs(one, lines(0, 1)), together = igs(many, lines(0, 1));
    EXPECT_EQ(alone.status, 2);
    EXPECT_EQ(together.status, 2);
    EXPECT_TRUE(alone.out == together.out) << testing::PrintToString(start) << together.out.substr(0, 1000);
    EXPECT_EQ(alone.err, together.err);
  }
  EXPECT_EQ(igs({"check", "--jobs", "9", "f1.igs", "f3.igs"}).status, 0);
  EXPECT_EQ(igs({"check", "--jobs", "0", "f1.igs", "f2.igs"}).status, 1);
}

// A process that waits for a pipe is killed.
TEST_F(Jobs, ProcessThatBreaksDownStopsNoOther) {
  file("a.igs", lines(1, 1));
  file("b.igs", lines(1, 0));
  const std::string kill_first =
      " & igs=$!; child=; tries=0; while [ -z \"$child\" ] && [ $tries -lt 1000 ]; do sleep 0.01; tries=$((tries + "
      "1)); "
      "child=$(cut -d ' ' -f 1 /proc/$igs/task/$igs/children); done; sleep 0.1; kill -KILL $child; wait $igs";
  const std::string call = "mkfifo -m 600 stuck; \"$IGS\" check --jobs 2 ";
  const Outcome text = shell(call + "stuck a.igs b.igs" + kill_first);
  EXPECT_EQ(text.status, 2);
  EXPECT_THAT(text.err, HasSubstr("stuck: its process was ended by signal 9"));
  EXPECT_THAT(text.out, HasSubstr("a.igs: 2 entities, 1 error\nb.igs: 1 entity, no errors\n"));
  EXPECT_THAT(text.out, HasSubstr("3 files: 1 sound, 1 with errors, 1 failed"));

  const Outcome json = shell("rm stuck; " + call + "--format json stuck a.igs b.igs" + kill_first);
  const std::vector<Json> objects = objects_of(json.out);
  ASSERT_EQ(objects.size(), 3U) << json.out;
  EXPECT_EQ(objects[0], (Json{{"file", "stuck"}, {"error", "its process was ended by signal 9"}}));
}

TEST_F(Jobs, ResultsThatCannotBeKeptOrPrinted) {
  file("a.igs", lines(1, 1));
  file("b.igs", lines(1, 0));
  const std::string call = "\"$IGS\" check --jobs 2 a.igs b.igs ";
  EXPECT_EQ(shell(call + ">/dev/full").status, 2);
  if (igs_test::is_sanitized) return;  // sanitizers take descriptors of their own
  const Outcome few = shell("ulimit -n 5; " + call);
  EXPECT_EQ(few.status, 2);
  EXPECT_THAT(few.err, HasSubstr("a.igs: no process for it"));
  EXPECT_THAT(few.out, HasSubstr("2 files: 0 sound, 0 with errors, 2 failed"));
}

// Who started the program may have it ignore the end of its children.
TEST_F(Jobs, ParentThatIgnoresChildren) {
  file("a.igs", lines(1, 1));
  file("b.igs", lines(1, 0));
  EXPECT_EQ(shell("trap '' CHLD; timeout 60 \"$IGS\" check --jobs 2 a.igs b.igs").status, 1);
}

}  // namespace
}  // namespace igs_test
