#include <gmock/gmock.h>

#include "iges_builder.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::HasSubstr;

using Info = ProgramTest;

std::string sample() {
  IgesBuilder builder;
  builder.start({"First line", "Second line"}).global(8, "").global(13, "0.1").global(21, "8HAnn \xC4pfel");
  builder.line();
  builder.entity(106, 12, "2,2,0.,0.,0.,1.,1.,1.");
  builder.point();
  builder.point();
  builder.entity(406, 15, "1,4Hname");
  return builder.text();
}

TEST_F(Info, JsonHoldsAllSectionsAndTheCounts) {
  file("part.igs", sample());
  const Outcome outcome = igs({"info", "--format", "json", "part.igs"});
  EXPECT_EQ(outcome.status, 0);
  const Json object = only_object(outcome.out);
  ASSERT_EQ(object.at("start").size(), 2U);
  EXPECT_EQ(object.at("start")[1].get<std::string>().substr(0, 11), "Second line");
  const Json& global = object.at("global");
  EXPECT_EQ(global.size(), 24U);  // 25 parameters, flag and name of the units in one
  EXPECT_EQ(global.at("parameter_delimiter"), ",");
  EXPECT_EQ(global.at("system_id"), "maker");
  EXPECT_EQ(global.at("sp_max_pow10"), nullptr);
  EXPECT_EQ(global.at("model_space_scale"), 0.1);
  EXPECT_EQ(global.at("units"), (Json{{"type", 2}, {"name", "MM"}}));
  EXPECT_EQ(global.at("name_of_author"), "Ann \xC3\x84pfe");
  EXPECT_EQ(global.at("file_creation_date"), "20200102.030405");
  EXPECT_EQ(object.at("terminate"),
            (Json{{"start_lines", 2}, {"global_lines", 3}, {"directory_lines", 10}, {"parameter_lines", 5}}));
  EXPECT_EQ(object.at("dropped"), (Json{{"406:15", 1}}));
  EXPECT_EQ(object.at("entity_counts").back(),
            (Json{{"type", 116}, {"form", 0}, {"name", "Point"}, {"form_name", ""}, {"count", 2}}));
}

TEST_F(Info, TextHoldsTheSame) {
  file("part.igs", sample());
  const Outcome outcome = igs({"info", "part.igs", "missing.igs"});
  EXPECT_EQ(outcome.status, 2);
  for (const char* part : {"part.igs:\n", "  Second line", "  system_id: maker\n", "  sp_max_pow10: -\n",
                           "  units: 2 MM\n", "  directory_lines: 10\n", "  106 form 12 Copious Data(",
                           "  116 form 0 Point: 2\n", "left out on reading: 1 of type 406 form 15 Property"}) {
    EXPECT_THAT(outcome.out, HasSubstr(part));
  }
  EXPECT_THAT(outcome.err, HasSubstr("missing.igs"));
}

TEST_F(Info, PrintShowsEverythingTheFileHolds) {
  file("part.igs", sample());
  const Outcome outcome = igs({"print", "part.igs"});
  EXPECT_EQ(outcome.status, 0);
  for (const char* part :
       {"IgesFile = {\n", "Pathname = \"part.igs\"", "Second line", "@1(110) = {", "StartPoint = "}) {
    EXPECT_THAT(outcome.out, HasSubstr(part));
  }
  EXPECT_EQ(igs({"print", "-"}, sample()).status, 0);
}

}  // namespace
}  // namespace igs_test
