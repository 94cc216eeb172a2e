// Real files, where the environment variable IGES_CORPUS names a folder with some, cut at many places and with bytes
// changed: nothing breaks, and everything that stands before the damage is read as from the whole file.
//
// "Before the damage" is what the reader can know: a directory entry counts when the record after it is sound, too, and
// an entity's parameter data when the record after them is, for only that record tells that they have ended.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "iges_builder.h"
#include "igs/igs.h"
#include "igs/objects/igsObjectManager.h"
#include "sanitizers.h"

namespace igs_test {
namespace {

constexpr std::size_t num_parts = 5;
constexpr std::size_t num_files = 50;
constexpr std::uintmax_t max_size = 150'000;
constexpr std::size_t directory_lines = 17;  // of a printed entity, its heading included

/// Damages of each kind to a file. Sanitizers slow everything down: a quick pass, unless IGES_EVERY_DAMAGE is set.
int num_damages() {
  const bool quick = is_sanitized && std::getenv("IGES_EVERY_DAMAGE") == nullptr;  // NOLINT(concurrency-mt-unsafe)
  return quick ? 3 : 40;
}

/// Files of up to `max_size` bytes, evenly over the sizes.
std::vector<std::string> chosen_files(const char* folder) {
  std::vector<std::pair<std::uintmax_t, std::string>> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string extension = entry.path().extension().string();
    if (extension != ".igs" && extension != ".iges") continue;
    if (entry.file_size() <= max_size) files.emplace_back(entry.file_size(), entry.path().string());
  }
  std::sort(files.begin(), files.end());
  std::vector<std::string> chosen;
  const std::size_t count = std::min(num_files, files.size());
  for (std::size_t i = 0; i < count; ++i) chosen.push_back(files[i * files.size() / count].second);
  return chosen;
}

std::string bytes_of(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

/// Entities as text, line by line: each by itself, what it refers to as DE number and type.
class EntityPrinter {
 public:
  explicit EntityPrinter(const igsFile& file) : m_traversal(file) {
    igsFileIT entities(&file);
    while (++entities != 0) entities()->manager()->set_visited(1);
  }
  std::vector<std::string> print(const igsObject& object) const {
    object.manager()->set_visited(0);
    std::istringstream text(printed(object));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

 private:
  igsTraversalScope m_traversal;
};

/// The number after `mark` in a line; 0 without one.
int number_after(const std::string& line, const char* mark) {
  const std::size_t at = line.find(mark);
  return at == std::string::npos ? 0 : std::abs(std::atoi(line.c_str() + at + 1));  // NOLINT(cert-err34-c)
}

/// Whether a damaged file has the lines of the whole one. An entity that it does not have any more may be missing where
/// the whole file refers to it.
bool agree(const std::vector<std::string>& found, const std::vector<std::string>& whole, const igsFile& damaged) {
  std::size_t at = 0;
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (at < found.size() && found[at] == whole[i]) {
      ++at;
      continue;
    }
    const int nested = number_after(whole[i], "@");
    const int referred = nested != 0 ? nested : number_after(whole[i], "=");
    if (referred % 2 == 0 || damaged.entity(referred) != nullptr || at >= found.size()) return false;
    if (nested != 0) ++i;  // its closing brace
    ++at;
  }
  return at == found.size();
}

/// A real file and what stands where in it.
class RealFile {
 public:
  explicit RealFile(const std::string& name) : m_bytes(bytes_of(name)) {
    std::size_t begin = 0;
    while (begin < m_bytes.size()) {
      const std::size_t end = std::min(m_bytes.find('\n', begin), m_bytes.size() - 1) + 1;
      add_record(begin, end);
      begin = end;
    }
    const std::size_t data_end = m_terminate != 0 ? m_terminate : m_bytes.size();
    m_is_usable = m_is_canonical && m_terminate != 0;
    // Without its last section, so that nothing is tidied up: as a damaged file is left.
    if (m_is_usable) read_text(m_file, m_bytes.substr(0, data_end));
    std::vector<const igsObject*> complete;
    igsFileIT entities(&m_file);
    while (++entities != 0) {
      // The others do not outlive the end of a reading that succeeds.
      if (entities()->isa(igsUnknown::type()) || entities()->isa(igsNull::type())) continue;
      if (entities()->manager()->visited() == 0) continue;
      complete.push_back(entities());
    }
    const EntityPrinter printer(m_file);
    for (const igsObject* const entity : complete) m_entities[entity->de_number()] = printer.print(*entity);
  }

  const std::string& bytes() const { return m_bytes; }
  /// Whether every record has 80 columns and a section letter, in order.
  bool is_usable() const { return m_is_usable; }

  /// Compares what was read from bytes that are those of this file before `damage`; the number of entities whose data
  /// had to be equal
  int compare(const igsFile& damaged, std::size_t damage) const {
    // The damaged record, and the one before it, whose end it tells.
    const auto after = std::upper_bound(m_record_ends.begin(), m_record_ends.end(), damage);
    const std::size_t record = static_cast<std::size_t>(after - m_record_ends.begin());
    int compared = 0;
    int missing = 0;
    const EntityPrinter printer(damaged);
    for (const auto& [de, lines] : m_entities) {
      const auto entry_end = m_entry_end.find(de);
      if (entry_end == m_entry_end.end() || entry_end->second + 1 >= record) continue;
      const auto data_end = m_data_end.find(de);
      const bool has_data = data_end != m_data_end.end() && data_end->second + 1 < record;
      const igsObject* const object = damaged.entity(de);
      if (object == nullptr) {
        EXPECT_FALSE(has_data) << "entity " << de << " is lost";
        ++missing;
        continue;
      }
      std::vector<std::string> found = printer.print(*object);
      std::vector<std::string> expected = lines;
      if (!has_data) {
        found.resize(std::min(found.size(), directory_lines));
        expected.resize(std::min(expected.size(), directory_lines));
      }
      EXPECT_TRUE(agree(found, expected, damaged)) << "entity " << de << " is\n"
                                                   << testing::PrintToString(found) << " and was\n"
                                                   << testing::PrintToString(expected);
      ++compared;
    }
    // Only a reading that gets to the end of the data drops what has none. Else it is the entity before a bad record.
    if (damaged.parameter_data_read() == 0) {
      EXPECT_LE(missing, 1);
    }
    return compared;
  }

 private:
  void add_record(std::size_t begin, std::size_t end) {
    constexpr std::size_t columns = 80;
    std::string_view record(m_bytes.data() + begin, end - begin);
    while (!record.empty() && (record.back() == '\n' || record.back() == '\r')) record.remove_suffix(1);
    if (m_terminate != 0) return;
    if (record.size() != columns || std::string_view("SGDPT").find(record[72]) == std::string_view::npos) {
      m_is_canonical = false;
      return;
    }
    const std::size_t index = m_record_ends.size();
    m_record_ends.push_back(begin + columns);
    const std::string text(record);
    if (text[72] == 'D') {
      m_entry_end[number_at(text, 74, 7) - 1] = index;
    } else if (text[72] == 'P') {
      m_data_end[number_at(text, 66, 7)] = index;
    } else if (text[72] == 'T') {
      m_terminate = begin;
    }
  }

  std::string m_bytes;
  bool m_is_canonical = true, m_is_usable = false;
  std::size_t m_terminate = 0;
  std::vector<std::size_t> m_record_ends;  ///< of the 80 columns
  std::map<int, std::size_t> m_entry_end;  ///< last record by DE number
  std::map<int, std::size_t> m_data_end;
  igsFile m_file;
  std::map<int, std::vector<std::string>> m_entities;
};

/// Reads bytes of which those before `damage` are sound, compares, checks and repairs.
int read_damaged(const RealFile& whole, const std::string& bytes, std::size_t damage) {
  igsFile file;
  const int result = read_text(file, bytes);
  const int compared = whole.is_usable() ? whole.compare(file, damage) : 0;
  file.check();
  file.clean(1);
  if (result != 0) {
    EXPECT_EQ(column_fault(written(file)), "");
  }
  return compared;
}

/// In parts, so that ctest can run them side by side.
class DamagedRealFiles : public testing::TestWithParam<std::size_t> {
 protected:
  /// Calls `damage(file, random)` for the files of this part; it returns the number of entities compared.
  template <class Damage>
  void for_each_file(Damage damage) {
    const char* const folder = std::getenv("IGES_CORPUS");  // NOLINT(concurrency-mt-unsafe)
    if (folder == nullptr) GTEST_SKIP() << "IGES_CORPUS names no folder with real files";
    const std::vector<std::string> files = chosen_files(folder);
    ASSERT_FALSE(files.empty()) << folder;
    long compared = 0;
    for (std::size_t i = GetParam(); i < files.size() && !HasFailure(); i += num_parts) {
      SCOPED_TRACE(files[i]);
      const RealFile file(files[i]);
      std::mt19937 random(static_cast<unsigned>(i));
      for (int n = num_damages(); n > 0 && !HasFailure(); --n) compared += damage(file, random);
    }
    EXPECT_GT(compared, 0) << "nothing was looked at";
    RecordProperty("compared", std::to_string(compared));
  }
};

TEST_P(DamagedRealFiles, AreReadUpToTheCut) {
  for_each_file([](const RealFile& file, std::mt19937& random) {
    const std::size_t at = random() % file.bytes().size();
    SCOPED_TRACE("cut at byte " + std::to_string(at));
    return read_damaged(file, file.bytes().substr(0, at), at);
  });
}

TEST_P(DamagedRealFiles, AreReadUpToTheChangedByte) {
  for_each_file([](const RealFile& file, std::mt19937& random) {
    std::string bytes = file.bytes();
    const std::size_t at = random() % bytes.size();
    const char former = bytes[at];
    while (bytes[at] == former) bytes[at] = static_cast<char>(random());
    SCOPED_TRACE("byte " + std::to_string(at) + " is " + std::to_string(bytes[at]));
    return read_damaged(file, bytes, at);
  });
}

INSTANTIATE_TEST_SUITE_P(Part, DamagedRealFiles, testing::Range(std::size_t{0}, num_parts));

}  // namespace
}  // namespace igs_test
