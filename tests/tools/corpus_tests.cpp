#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>

#include "iges_builder.h"
#include "tools/program.h"

namespace igs_test {
namespace {

constexpr std::size_t num_parts = 8;

/// The files of the folder that IGES_CORPUS names, sorted. The variable must be set.
std::vector<std::string> corpus_files() {
  std::vector<std::string> files;
  std::error_code error;
  for (const auto& entry :
       fs::directory_iterator(std::getenv("IGES_CORPUS"), error)) {  // NOLINT(concurrency-mt-unsafe)
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// Runs in parts, so that ctest can run them side by side.
class Corpus : public ProgramTest, public testing::WithParamInterface<std::size_t> {
 protected:
  void check_file(const std::string& name);
  void repair_twice(const std::string& name, const Json& checked);
};

void Corpus::check_file(const std::string& name) {
  const Outcome check = igs({"check", "--format", "json", name});
  ASSERT_LE(check.status, 2) << check.err;
  const Json object = only_object(check.out);
  EXPECT_EQ(object.at("error_count"), object.at("errors").size());
  EXPECT_EQ(check.status, !object.at("read") ? 2 : object.at("error_count") == 0 ? 0 : 1);
  EXPECT_EQ(igs({"diff", name, name}).status, object.at("read") ? 0 : 2);
  repair_twice(name, object);
}

void Corpus::repair_twice(const std::string& name, const Json& checked) {
  const Outcome repair = igs({"repair", "--format", "json", "-o", "first.igs", name});
  ASSERT_LE(repair.status, 2) << repair.err;
  const Json object = only_object(repair.out);
  ASSERT_EQ(object.at("written").is_null(), !checked.at("read"));
  if (object.at("written").is_null()) return;
  EXPECT_EQ(object.at("entities"), checked.at("entities"));

  EXPECT_EQ(column_fault(read_file(folder() / "first.igs")), "");
  const Outcome again = igs({"repair", "--format", "json", "-o", "second.igs", "first.igs"});
  ASSERT_LE(again.status, 1) << again.err;
  EXPECT_EQ(only_object(again.out).at("types"), object.at("types"));
  EXPECT_TRUE(read_file(folder() / "first.igs") == read_file(folder() / "second.igs")) << "the second write differs";
}

TEST_P(Corpus, IsReadCheckedRepairedAndWrittenTheSameAgain) {
  if (std::getenv("IGES_CORPUS") == nullptr) {  // NOLINT(concurrency-mt-unsafe)
    GTEST_SKIP() << "IGES_CORPUS names no folder with real files";
  }
  const std::vector<std::string> files = corpus_files();
  ASSERT_FALSE(files.empty()) << "no files in the folder that IGES_CORPUS names";
  for (std::size_t i = GetParam(); i < files.size(); i += num_parts) {
    SCOPED_TRACE(files[i]);
    check_file(files[i]);
  }
}

INSTANTIATE_TEST_SUITE_P(Parts, Corpus, testing::Range(std::size_t{0}, num_parts));

}  // namespace
}  // namespace igs_test
