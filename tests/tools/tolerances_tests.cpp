#include <gtest/gtest.h>

#include "igs/igs.h"
#include "tools/program.h"

namespace igs_test {
namespace {

/// The cells of the rows "| `key` | ... |" of a document's tables.
std::vector<std::vector<std::string>> key_rows(const std::string& text) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : lines_of(text)) {
    if (line.rfind("| `kel", 0) != 0) continue;
    std::vector<std::string> cells;
    for (std::size_t begin = 2; begin < line.size();) {
      const std::size_t end = line.find(" |", begin);
      cells.push_back(line.substr(begin, end - begin));
      begin = end == std::string::npos ? end : end + 3;
    }
    rows.push_back(cells);
  }
  return rows;
}

TEST(Tolerances, DocumentAndTableAgree) {
  const auto rows = key_rows(read_file(IGS_ROOT "/docs/tolerances.md"));
  ASSERT_EQ(rows.size(), coResourceTable::keys().size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const coResourceInfo& key = coResourceTable::keys()[i];
    ASSERT_GE(rows[i].size(), 3U) << key.name;
    EXPECT_EQ(rows[i][0], '`' + std::string(key.name) + '`');
    EXPECT_EQ(std::stod(rows[i][1]), key.default_value) << key.name;
    EXPECT_EQ(rows[i][2], key.meaning) << key.name;
  }
}

}  // namespace
}  // namespace igs_test
