// Real files, where the environment variable IGES_CORPUS names a folder with some: what is read survives writing.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "iges_builder.h"
#include "igs/igs.h"

namespace {

constexpr std::size_t num_parts = 8;

std::vector<std::string> files_in(const char* folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".igs" || extension == ".iges") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// The entities as text: every directory field and every parameter, reals with all their digits. A zero has no sign in
/// a file, and a string loses the blanks at its end, from which the number of characters of a note's text follows.
std::string entities_of(const igsFile& file) {
  std::ostringstream text;
  utOstream os(text);
  file.print(os);
  const std::string all = text.str();
  const std::size_t start = all.find("Entities = {");
  const std::string entities = all.substr(start, all.find("TerminateSection") - start);
  return std::regex_replace(entities, std::regex("-(?=0[,)\n])|NumberOfCharacters = [-0-9]+| +(?=\n)"), "");
}

/// Entities of types that have a class may be left out only with an error that says so.
void expect_losses_reported(const igsFile& file) {
  int lost = 0;
  igsFile scratch;
  for (const auto& [kind, count] : file.dropped_entities()) {
    const igsObject* const made = igsFactory::make_one(static_cast<igsEntityType>(kind.first), kind.second);
    if (!made->isa(igsUnknown::type()) && !made->isa(igsNull::type())) lost += count;
  }
  int reported = 0;
  igsSimpleSectionLogIT errors(file.error_log().get_section_log(igsStructureLog));
  while (++errors) {
    const kluTypeInfo& type = errors()->objtype();
    if (type == kluTypeInfo("igsFileNoPDData") || type == kluTypeInfo("igsFileDEEntityTypeMismatch")) ++reported;
  }
  EXPECT_LE(lost, reported);
}

void expect_survival(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  std::ostringstream nowhere;
  utOstream messages(nowhere);
  igsFile file;
  if (file.read(in, messages) == 0) return;
  expect_losses_reported(file);
  const std::string text = igs_test::written(file);
  EXPECT_EQ(igs_test::column_fault(text), "");
  igsFile copy;
  EXPECT_EQ(igs_test::read_text(copy, text), 1);
  EXPECT_EQ(copy.num_entities(), file.num_entities());
  EXPECT_TRUE(entities_of(copy) == entities_of(file)) << "the entities differ after writing and reading";
  EXPECT_EQ(igs_test::written(copy), text);
}

/// In parts, so that ctest can run them side by side.
class RealFiles : public testing::TestWithParam<std::size_t> {};

TEST_P(RealFiles, SurviveWriting) {
  const char* const folder = std::getenv("IGES_CORPUS");  // NOLINT(concurrency-mt-unsafe)
  if (folder == nullptr) GTEST_SKIP() << "IGES_CORPUS names no folder with real files";
  const std::vector<std::string> files = files_in(folder);
  ASSERT_FALSE(files.empty()) << folder;
  coResourceTable& options = kel_resource_table_inquire();
  const coResourceTable before = options;
  options.set_value(kelOptDoubleGeometricPrecision, 17);  // every double comes back
  options.set_value(kelOptDoubleParametricPrecision, 17);
  for (std::size_t i = GetParam(); i < files.size(); i += num_parts) {
    SCOPED_TRACE(files[i]);
    expect_survival(files[i]);
  }
  options = before;
}

INSTANTIATE_TEST_SUITE_P(Part, RealFiles, testing::Range(std::size_t{0}, num_parts));

}  // namespace
