// Real files, where the environment variable IGES_CORPUS names a folder with some: what is read survives writing; cut
// at many places and with bytes changed nothing breaks, and what stands before the damage is read as from the whole
// file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>

#include "fuzz/written_file.h"
#include "iges_builder.h"
#include "igs/igs.h"
#include "igs/objects/igsObjectManager.h"
#include "sanitizers.h"

namespace igs_test {
namespace {

constexpr std::size_t num_parts = 8;

/// In parts, so that ctest can run them side by side.
class RealFiles : public testing::TestWithParam<std::size_t> {
 protected:
  /// Calls `work` with the bytes of each file of this part, at most `max_files` of up to `max_size` bytes in all parts,
  /// evenly over the sizes.
  template <class Work>
  void for_each_file(std::uintmax_t max_size, std::size_t max_files, Work work) {
    const char* const folder = std::getenv("IGES_CORPUS");  // NOLINT(concurrency-mt-unsafe)
    if (folder == nullptr) GTEST_SKIP() << "IGES_CORPUS names no folder with real files";
    std::set<std::pair<std::uintmax_t, std::string>> found;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      const bool is_iges = entry.path().extension() == ".igs" || entry.path().extension() == ".iges";
      if (is_iges && entry.file_size() <= max_size) found.emplace(entry.file_size(), entry.path().string());
    }
    ASSERT_FALSE(found.empty()) << folder;
    const std::size_t count = std::min(max_files, found.size());
    for (std::size_t i = GetParam(); i < count && !HasFailure(); i += num_parts) {
      const std::string& name = std::next(found.begin(), static_cast<long>(i * found.size() / count))->second;
      SCOPED_TRACE(name);
      std::ostringstream bytes;
      bytes << std::ifstream(name, std::ios::binary).rdbuf();
      work(bytes.str());
    }
  }
};

/// The entities as text: every directory field and every parameter, reals with all their digits. A zero has no sign in
/// a file, and a string loses the blanks at its end, from which the number of characters of a note's text follows.
std::string entities_of(const igsFile& file) {
  const std::string all = printed(file);
  const std::size_t start = all.find("Entities = {");
  const std::string entities = all.substr(start, all.find("TerminateSection") - start);
  const std::string count = "NumberOfCharacters = ";
  std::string text;
  for (std::size_t i = 0; i < entities.size(); ++i) {  // std::regex of libc++ takes minutes
    if (entities.compare(i, count.size(), count) == 0) i = entities.find_first_not_of("-0123456789", i + count.size());
    if (entities.compare(i, 2, "-0") == 0 && std::string_view(",)\n").find(entities.at(i + 2)) < 3) continue;
    if (entities.at(i) == '\n') text.erase(text.find_last_not_of(' ') + 1);
    text += entities.at(i);
  }
  return text;
}

/// Entities of types that have a class may be left out only with an error that says so.
void expect_losses_reported(const igsFile& file) {
  int lost = 0, reported = 0;
  const igsFile scratch;
  for (const auto& [kind, count] : file.dropped_entities()) {
    const igsObject* const made = igsFactory::make_one(static_cast<igsEntityType>(kind.first), kind.second);
    if (!made->isa(igsUnknown::type()) && !made->isa(igsNull::type())) lost += count;
  }
  for (const std::string& error : active_errors(file)) {
    if (error.rfind("igsFileNoPDData", 0) == 0 || error.rfind("igsFileDEEntityTypeMismatch", 0) == 0) ++reported;
  }
  EXPECT_LE(lost, reported);
}

TEST_P(RealFiles, SurviveWriting) {
  coResourceTable& options = kel_resource_table_inquire();
  const coResourceTable before = options;
  options.set_value(kelOptDoubleGeometricPrecision, 17);  // every double comes back
  options.set_value(kelOptDoubleParametricPrecision, 17);
  for_each_file(UINTMAX_MAX, SIZE_MAX, [](const std::string& bytes) {
    igsFile file, copy;
    if (read_text(file, bytes) == 0) return;
    expect_losses_reported(file);
    const std::string text = written(file);
    EXPECT_EQ(column_fault(text), "");
    EXPECT_EQ(read_text(copy, text), 1);
    EXPECT_EQ(copy.num_entities(), file.num_entities());
    const bool quick = is_sanitized && bytes.size() > 400000;  // or the comparison takes as long as all other tests
    EXPECT_TRUE(quick || entities_of(copy) == entities_of(file)) << "the entities differ after writing and reading";
    EXPECT_EQ(written(copy), text);
  });
  options = before;
}

/// The fields of the entities that have parameter data, by DE number.
std::map<int, igsFieldTexts> fields_of(const igsFile& file, std::string text) {
  std::erase(text, '\r');
  std::map<int, std::string> data;
  for (const std::string& record : records_of(text, 'P')) {
    const int de = igs_fuzz::number_at(record, 66, 7);
    if (file.entity(de) != nullptr) data[de] += record.substr(0, 64);
  }
  const igsGlobalSection& global = file.global_section();
  std::map<int, igsFieldTexts> fields;
  for (const auto& [de, records] : data) {
    fields[de].take(records, 0, global.parameter_delimiter(), global.record_delimiter());
  }
  return fields;
}

/// Fields that are not given may get their default; blanks within what is no field at all may be others.
bool same_field(std::string_view given, std::string_view written) {
  if (igsFieldTexts::kind(given) == igsFieldKind::other) {
    std::string texts[] = {std::string(given), std::string(written)};
    for (std::string& text : texts) std::erase(text, ' ');
    return texts[0] == texts[1];
  }
  const double number = igsFieldTexts::real(given);
  if (given == written || given.empty()) return true;
  if (!igs_is_undefined_real(number)) return number == igsFieldTexts::real(written);
  return igsFieldTexts::kind(given) == igsFieldKind::string &&
         igsFieldTexts::string(given) == igsFieldTexts::string(written);
}

TEST_P(RealFiles, KeepEveryField) {
  for_each_file(is_sanitized ? 400000 : UINTMAX_MAX, SIZE_MAX, [](const std::string& bytes) {
    igsFile file, copy;
    for (igsFile* const f : {&file, &copy}) {
      f->set_options({.keep = true, .strict = true, .lines = true, .style = {.shortest_reals = true}});
    }
    if (read_text(file, bytes) == 0) return;
    const std::string text = written(file);
    EXPECT_EQ(column_fault(text), "");
    const auto before = fields_of(file, bytes), after = fields_of(file, text);
    for (const auto& [de, texts] : before) {
      const auto given = texts.fields(), now = after.at(de).fields();
      for (std::size_t i = 0; i < given.size(); ++i) {
        const bool same = i < now.size() ? same_field(given[i], now[i]) : given[i].empty();
        EXPECT_TRUE(same) << de << ' ' << i << ' ' << given[i];
      }
    }
    EXPECT_EQ(read_text(copy, text), 1);
    EXPECT_EQ(written(copy), text);
  });
}

using Lines = std::vector<std::string>;

/// The entities of a file by DE number, each by itself and without its references, whose targets may be lost; those
/// whose parameter data are not read begin with "incomplete".
std::map<int, Lines> entities_by_number(igsFile& file) {
  constexpr std::string_view references[] = {
      "@", "NullPointer", "}", "= -", "View =", "\tLevel =", "Matrix =", "Colour =", "LineFont =", "LabelDisplay ="};
  std::map<int, Lines> entities;
  igsFileIT it(&file);
  while (++it != 0) {
    if (it()->manager()->visited() == 0) entities[it()->de_number()].emplace_back("incomplete");
  }
  const igsTraversalScope traversal(file);
  while (++it != 0) it()->manager()->set_visited(1);
  while (++it != 0) {
    it()->manager()->set_visited(0);
    std::istringstream text(printed(*it()));
    for (std::string line; std::getline(text, line);) {
      const auto holds = [&line](std::string_view mark) { return line.find(mark) != line.npos; };
      if (std::none_of(std::begin(references), std::end(references), holds))
        entities[it()->de_number()].push_back(line);
    }
  }
  return entities;
}

/// A real file whose records have 80 columns and a section letter, in order; of any other, there are no entities. Read
/// without its last section, so that nothing is tidied up: as a damaged file is left.
struct WholeFile {
  explicit WholeFile(const std::string& bytes) {
    std::istringstream in(bytes);
    std::size_t at = 0;
    for (std::string line; std::getline(in, line); at += line.size() + 1) {
      const std::string record = line.substr(0, line.find_last_not_of('\r') + 1);
      if (record.size() != 80 || std::string_view("SGDPT").find(record[72]) == std::string_view::npos) return;
      if (record[72] == 'D') entry_end[number_at(record, 74, 7) - 1] = ends.size();
      if (record[72] == 'P') data_end[number_at(record, 66, 7)] = ends.size();
      ends.push_back(at + 80);
      if (record[72] == 'T') break;
    }
    igsFile file;
    read_text(file, bytes.substr(0, at));
    entities = entities_by_number(file);
  }
  std::vector<std::size_t> ends;                   ///< of records
  std::map<int, std::size_t> entry_end, data_end;  ///< last records by DE number
  std::map<int, Lines> entities;

  /// Whether an entity's last record, and the one after it, which tells that it has ended, stand before the damage.
  bool is_sound(const std::map<int, std::size_t>& last, int de, std::size_t damage) const {
    const auto found = last.find(de);
    return found != last.end() && found->second + 1 < ends.size() && ends[found->second + 1] <= damage;
  }

  /// Reads bytes that are sound before `damage`; the number of entities that had to be equal.
  int compare(const std::string& bytes, std::size_t damage) const {
    constexpr std::size_t directory_lines = 10;
    igsFile file;
    const int result = read_text(file, bytes);
    std::map<int, Lines> found = entities_by_number(file);
    int compared = 0, missing = 0;
    for (const auto& [de, lines] : entities) {
      if (lines[0] == "incomplete" || !is_sound(entry_end, de, damage)) continue;
      const bool has_data = is_sound(data_end, de, damage);
      Lines now = found[de], expected = lines;
      if (now.empty()) {
        EXPECT_FALSE(has_data) << "entity " << de << " is lost";
        ++missing;
        continue;
      }
      if (file.error_log().structure_log().num_errors(de) != 0) continue;  // the damaged record names it as its own
      if (now[0] == "incomplete") now.erase(now.begin());
      if (!has_data) now.resize(directory_lines), expected.resize(directory_lines);
      EXPECT_EQ(now, expected) << de;
      ++compared;
    }
    // Only a reading that gets to the end of the data drops what has none. Else it is the entity before a bad record.
    EXPECT_TRUE(missing <= 1 || file.parameter_data_read() != 0);
    file.check();
    file.clean(1);
    EXPECT_TRUE(result == 0 || column_fault(written(file)).empty());
    return compared;
  }
};

TEST_P(RealFiles, AreReadUpToTheDamage) {
  // Sanitizers slow everything down: a quick pass, unless IGES_EVERY_DAMAGE is set.
  const bool quick = is_sanitized && std::getenv("IGES_EVERY_DAMAGE") == nullptr;  // NOLINT(concurrency-mt-unsafe)
  int compared = 0;
  for_each_file(150'000, 50, [&](const std::string& bytes) {
    const WholeFile file(bytes);
    std::mt19937 random(static_cast<unsigned>(bytes.size()));
    for (int n = quick ? 6 : 80; n > 0 && !HasFailure(); --n) {
      std::string damaged = bytes;
      const std::size_t at = random() % bytes.size();
      while (damaged[at] == bytes[at]) damaged[at] = static_cast<char>(random());
      if (n % 2 == 0) damaged.resize(at);
      SCOPED_TRACE((n % 2 == 0 ? "cut at byte " : "changed at byte ") + std::to_string(at));
      compared += file.compare(damaged, at);
    }
  });
  EXPECT_TRUE(IsSkipped() || compared > 0) << "nothing was looked at";
}

INSTANTIATE_TEST_SUITE_P(Part, RealFiles, testing::Range(std::size_t{0}, num_parts));

}  // namespace
}  // namespace igs_test
