#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "iges_builder.h"
#include "tools/program.h"

namespace igs_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Sarif : public ProgramTest {
 protected:
  /// The run of a call, whose document has the published shape.
  Json run_of(const Arguments& files, int status);
};

Json Sarif::run_of(const Arguments& files, int status) {
  Arguments call{"check", "--format", "sarif"};
  call.insert(call.end(), files.begin(), files.end());
  const Outcome outcome = igs(call);
  EXPECT_EQ(outcome.status, status) << outcome.err;
  file("report.sarif", outcome.out);
  const Outcome valid = shell("PATH=/usr/bin:$PATH python3 -m jsonschema -i report.sarif " +
                              quoted(IGS_ROOT "/tests/tools/sarif_schema.json"));
  EXPECT_EQ(valid.status, 0) << valid.out << valid.err;
  const Json runs = Json::parse(outcome.out).at("runs");
  EXPECT_EQ(runs.size(), 1U);
  const Json& rules = runs.at(0).at("tool").at("driver").at("rules");
  for (const Json& result : runs.at(0).at("results")) {
    const Json& rule = rules.at(result.at("ruleIndex").get<std::size_t>());
    EXPECT_EQ(rule.at("id"), result.at("ruleId"));
    EXPECT_EQ(rule.at("defaultConfiguration").at("level"), result.at("level"));
  }
  return runs.at(0);
}

std::string faulty() {
  IgesBuilder builder;
  builder.point();
  builder.line(0);
  builder.global(24, "9").de_field(3, 14, "5");
  return builder.text();
}

TEST_F(Sarif, ResultsSayWhatIsWrongAndWhere) {
  const std::string name = file("a b\xE9:#.igs", faulty());
  const Json results = run_of({name}, 1).at("results");
  ASSERT_EQ(results.size(), 3U);
  EXPECT_EQ(results[0].at("ruleId"), "igs110CoincidentPoints");
  EXPECT_EQ(results[0].at("level"), "warning");
  EXPECT_EQ(results[0].at("message").at("text"), "the line's end points are at most 1e-06 apart");
  EXPECT_EQ(results[0].at("properties"), Json::parse(R"({"log": "object", "de": 3, "type": 110, "values": [1e-6]})"));
  // One Start record, three Global records, and two of the entity before.
  EXPECT_EQ(results[0].at("locations"), Json::parse(R"([{
    "physicalLocation": {"artifactLocation": {"uri": "a%20b%E9%3A%23.igs"}, "region": {"startLine": 7, "endLine": 8}},
    "logicalLocations": [{"name": "DE 3", "kind": "entity"}]}])"));
  EXPECT_EQ(results[1].at("ruleId"), "igsFileIncorrectPDLineCount");
  EXPECT_EQ(results[1].at("level"), "error");  // is not repaired
  const Json& global = results[2].at("locations").at(0);
  EXPECT_FALSE(global.at("physicalLocation").contains("region"));
  EXPECT_EQ(global.at("logicalLocations"), Json::parse(R"([{"name": "Global section", "kind": "section"}])"));
}

TEST_F(Sarif, LinesAreGivenOnlyWhereRecordsAreLines) {
  IgesBuilder wrapped, blank, numbers, crlf, nul;
  for (IgesBuilder* builder : {&wrapped, &blank, &numbers, &crlf, &nul}) builder->line(0);
  wrapped.line_end("");
  blank.insert('G', 2, "");
  numbers.sequence('D', 1, 3);
  crlf.line_end("\r\n");
  nul.columns('D', 1, 57, std::string(1, '\0'));
  const std::vector<std::pair<IgesBuilder*, bool>> cases{
      {&wrapped, false}, {&blank, false}, {&numbers, false}, {&crlf, true}, {&nul, true}};
  for (const auto& [builder, has_line] : cases) {
    const std::string name = file("a.igs", builder->text());
    const Json result = run_of({name}, 1).at("results").at(0);
    EXPECT_EQ(result.at("ruleId"), "igs110CoincidentPoints");
    EXPECT_EQ(result.at("locations")[0].at("physicalLocation").contains("region"), has_line) << builder->text();
  }
  const Outcome piped = igs({"check", "--format", "sarif", "-"}, crlf.text());
  const Json result = Json::parse(piped.out).at("runs")[0].at("results").at(0);
  EXPECT_EQ(result.at("locations")[0].at("physicalLocation"),
            Json::parse(R"({"artifactLocation": {"uri": "-", "description": {"text": "standard input"}}})"));
}

TEST_F(Sarif, AllFilesOfACallAreInOneRun) {
  file("a.igs", faulty());
  file("b.igs", IgesBuilder().text());
  file("c.igs", faulty());
  file("cut.igs", faulty().substr(0, 300));
  for (const char* jobs : {"1", "3"}) {
    const Json run = run_of({"--jobs", jobs, "a.igs", "missing.igs", "b.igs", "cut.igs", folder() / "c.igs"}, 2);
    EXPECT_EQ(run.at("results").size(), 3U + 1U + 3U);  // one in what could be read of the cut file
    EXPECT_EQ(run.at("results").back().at("locations")[0].at("physicalLocation").at("artifactLocation").at("uri"),
              "file://" + (folder() / "c.igs").string());
    const Json& invocation = run.at("invocations").at(0);
    EXPECT_EQ(invocation.at("executionSuccessful"), false);
    EXPECT_EQ(invocation.at("exitCode"), 2);
    std::vector<std::string> notices;
    for (const Json& notice : invocation.at("toolExecutionNotifications")) {
      notices.push_back(notice.at("message").at("text"));
    }
    EXPECT_THAT(notices, ElementsAre("missing.igs: No such file or directory", HasSubstr("cut.igs: not ")));
  }
  EXPECT_EQ(run_of({"b.igs"}, 0).at("invocations")[0].at("executionSuccessful"), true);
  const Json limited = run_of({"--max-errors", "1", "a.igs", "c.igs"}, 1);
  EXPECT_EQ(limited.at("results").size(), 2U);
  EXPECT_EQ(limited.at("invocations")[0].at("toolExecutionNotifications")[0].at("message").at("text"),
            "2 more are not listed");
}

TEST_F(Sarif, RealFilesGiveTheErrorsOfTheOtherForms) {
  const char* const corpus = std::getenv("IGES_CORPUS");  // NOLINT(concurrency-mt-unsafe)
  if (corpus == nullptr) GTEST_SKIP() << "IGES_CORPUS names no folder";
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(corpus)) names.push_back(entry.path());
  std::sort(names.begin(), names.end());
  constexpr std::size_t count = 8;
  names.resize(std::min(names.size(), count));
  Arguments call{"check", "--format", "json"};
  call.insert(call.end(), names.begin(), names.end());
  const Outcome json = igs(call);
  std::size_t errors = 0;
  for (const Json& object : objects_of(json.out)) errors += object.at("errors").size();
  EXPECT_EQ(run_of(names, json.status).at("results").size(), errors);
}

}  // namespace
}  // namespace igs_test
