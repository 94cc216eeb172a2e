// Whatever the bytes are, and wherever streams and folders fail: a result or a clean failure.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>

#include "fuzz/invariants.h"
#include "iges_builder.h"
#include "sanitizers.h"
#include "streams.h"

namespace igs_test {
namespace {

namespace fs = std::filesystem;

/// Points, curves, a matrix, a surface, a solid's shell, a note and a group.
IgesBuilder families() {
  std::istringstream entities(R"(110 0 0.,0.,0.,1.,0.,0. 116 0 1.,2.,3.,0 124 0 1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.
      100 0 0.,0.,0.,1.,0.,0.,1. 106 12 2,3,1.,2.,3.,4.,5.,6.,7.,8.,9. 102 0 1,1
      126 0 1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,0.,1. 128 0 1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,)"
                              R"(1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,0.,1.,0.,1.
      502 1 2,0.,0.,0.,1.,0.,0. 504 1 1,1,17,1,17,2 212 0 1,4,1.,1.,1,1.5,0.,0,0,0.,0.,0.,4Htext 402 7 2,1,3)");
  IgesBuilder builder;
  int type = 0, form = 0;
  for (std::string fields; entities >> type >> form >> fields;) builder.entity(type, form, fields);
  return builder.de_field(7, 7, "5").de_field(9, 18, "LINE");
}

/// A file of all families, and a folder of its own for what is written.
class StreamFaults : public testing::Test {
 protected:
  StreamFaults() {
    if (read_text(m_file, m_text) != 1) throw std::runtime_error("not read");
    fs::create_directory(m_folder);
    m_file.set_write_dir(m_folder.string());
    m_written = written(m_file);
  }
  ~StreamFaults() override { fs::remove_all(m_folder); }

  int write_to(const fs::path& folder) {
    m_file.set_write_dir(folder.string());
    std::string text;
    return write_text(m_file, text);
  }

  const std::string m_text = families().text();
  const fs::path m_folder = fs::temp_directory_path() / ("igs_test_" + std::to_string(getpid()));
  igsFile m_file;
  std::string m_written;
  std::ostringstream m_report;
  utOstream m_messages{m_report};
};

// A record that is cut short may still do, or have lost its section letter.
TEST_F(StreamFaults, ReadingEndsOrFailsAtEveryByte) {
  for (std::size_t size = 0; size <= m_text.size(); size += is_sanitized ? 4 : 1) {
    for (const bool throws : {false, true}) {
      SCOPED_TRACE(size);
      LimitedInput buffer(m_text, size, throws, 81);
      std::istream in(&buffer);
      igsFile file;
      const int result = file.read(in, m_messages);
      ASSERT_TRUE(result == 0 ? size < m_text.size() : size + 81 > m_text.size());
      if (result == 0) {
        const int records = static_cast<int>((size + 1) / 81);
        ASSERT_THAT(file.read_fault().code,
                    testing::AnyOf(throws ? igsIOStreamBad : igsIOEndOfInput, igsIONoSectionLetter));
        ASSERT_THAT(file.read_fault().records_before, testing::AnyOf(records, records + 1));
      }
      file.clean(0);
      if (size % 10 != 0) continue;  // temporary files take their time
      ASSERT_EQ(column_fault(written(file)), "");
    }
  }
}

TEST_F(StreamFaults, WritingFailsAtEveryByte) {
  for (std::size_t room = 0; room <= m_written.size(); room += room > 2000 ? 27 : 1) {  // thrice in a record
    LimitedOutput buffer(room, room % 3 == 0);
    std::ostream out(&buffer);
    if (room % 2 == 0) out.exceptions(std::ios::badbit | std::ios::failbit);
    int result = 1;
    ASSERT_NO_THROW(result = m_file.write(out, m_messages)) << room;
    ASSERT_EQ(result, room == m_written.size() ? 1 : 0) << room;
    ASSERT_EQ(buffer.text, m_written.substr(0, buffer.text.size())) << room;
    ASSERT_TRUE(fs::is_empty(m_folder)) << room;
  }
  LimitedOutput full(m_written.size(), false, true);
  std::ostream out(&full);
  EXPECT_EQ(m_file.write(out, m_messages), 0) << "what is not flushed is not written";
  EXPECT_EQ(written(m_file), m_written) << "the file itself is none the worse";
}

TEST_F(StreamFaults, FoldersThatTakeNoTemporaryFile) {
  std::ofstream(m_folder / "file") << "no folder";
  for (const char* folder : {"absent", "file", "file/below", "absent/below"}) {
    EXPECT_EQ(write_to(m_folder / folder), 0) << folder;
    EXPECT_FALSE(m_file.out_of_memory());
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()), 1);
  EXPECT_EQ(write_to(m_folder), 1);
}

TEST_F(StreamFaults, DiskIsFullAtEveryRecordOfTheTemporaryFile) {
  const std::size_t data = records_of(m_written, 'P').size() * 81;
  ASSERT_GT(data, 0U);
  auto* const handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  for (std::size_t room = 0; room <= data; room += 27) {
    const rlimit limited{room, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limited);  // no file grows beyond it, as on a full disk
    const int result = write_to(m_folder);
    setrlimit(RLIMIT_FSIZE, &before);
    ASSERT_EQ(result, room == data ? 1 : 0) << room;
    ASSERT_TRUE(fs::is_empty(m_folder)) << room;
  }
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(written(m_file), m_written);
}

/// Holds the promises of fuzz/invariants.h, whatever is in `text`. The clock and the options are as before then.
void expect_promises(const std::string& text, int round = 0) {
  const coResourceTable options = kel_resource_table_inquire();
  igs_fuzz::on_broken_promise = [](const char* promise) { throw std::runtime_error(promise); };
  EXPECT_NO_THROW(igs_fuzz::check_file(text, {true, round % 2 == 0, round % 3 == 0 ? 17 : 15})) << round << '\n'
                                                                                                << text;
  kel_resource_table_inquire() = options;
  ut_set_clock(nullptr);
}

TEST(BadInput, RandomAndDamagedBytes) {
  const std::string text = families().text();
  std::mt19937 random(5);
  for (int round = 0; round < 800 && !testing::Test::HasFailure(); ++round) {
    std::string damaged = text;
    for (auto n = random() % 3 + 1; n > 0; --n) {
      const std::size_t at = random() % damaged.size(), size = random() % 90;
      const auto kind = random() % 4;
      if (kind == 0) damaged[at] = static_cast<char>(random());
      if (kind == 1) damaged[at] = "0123456789-,;H.\n"[size % 16];
      if (kind == 2) damaged.erase(at, size);
      if (kind == 3) damaged.insert(at, damaged.substr(random() % damaged.size(), size));
    }
    if (round % 5 == 0) {  // and none of it is left
      damaged.resize(random() % 3000);
      for (char& c : damaged)
        c = round % 10 == 0 ? static_cast<char>(random()) : " 0123456789.,;HSGDPT\n\r\t"[random() % 23];
    }
    expect_promises(damaged, round);
  }
}

TEST(BadInput, NumbersOfAnySizeAnywhere) {
  std::istringstream numbers(R"(2147483647 -2147483647 -2147483648 2147483648 99999999999999999999 -1 1.D+999 -1.D-999
      1.D+99999999999 1H 9999999 99999999 ABCDEFGH)");
  for (std::string number; numbers >> number;) {
    IgesBuilder builder;
    for (const char* before : {"", "1,", "2,", "2,2,", "3,", "1,2,0.,"}) {
      for (const int form : {1, 2, 3, 11, 12, 13}) builder.entity(106, form, before + number + ",1.,2.,3.");
    }
    builder.entity(116, 0, "1.,2.,3.," + number);
    builder.entity(100, 0, number + ",0.,0.,1.,0.,0.,1.");
    builder.entity(110, 0, "0.,0.,0.,0.,0.," + number);
    expect_promises(builder.text());
    for (std::size_t i = 3; i <= 25; ++i) expect_promises(families().global(i, number).text());
    for (int field = 1; field <= 20; ++field) expect_promises(families().de_field(7, field, number).text());
    for (const std::size_t at : {66U, 74U}) expect_promises(families().columns('P', 4, at, left(number, 7)).text());
    expect_promises(families().columns('T', 1, 26, left(number, 7)).text());
  }
}

}  // namespace
}  // namespace igs_test
