// Streams and folders that fail while a file of many entity families is read and written.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

#include "iges_builder.h"
#include "igs/file/igsFile.h"
#include "ordinary_user.h"
#include "sanitizers.h"

namespace igs_test {
namespace {

using testing::AnyOf;
namespace fs = std::filesystem;

/// Points, curves, a matrix, a surface, a solid's shell, a note and a group.
IgesBuilder families() {
  IgesBuilder b;
  b.line();
  b.point();
  b.entity(124, 0, "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.");
  b.entity(100, 0, "0.,0.,0.,1.,0.,0.,1.", {.matrix = 5});
  b.entity(106, 12, "2,3,1.,2.,3.,4.,5.,6.,7.,8.,9.", {.label = "LINE"});
  b.entity(102, 0, "1,1");
  b.entity(126, 0, "1,1,0,0,1,0,0.,0.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,0.,1.");
  b.entity(128, 0,
           "1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.,0.,0.,0.,1.,0.,0.,0.,1.,0.,1.,1.,0.,0.,1.,0.,1.");
  b.entity(502, 1, "2,0.,0.,0.,1.,0.,0.");
  b.entity(504, 1, "1,1,17,1,17,2");
  b.entity(212, 0, "1,4,1.,1.,1,1.5,0.,0,0,0.,0.,0.,4Htext");
  b.entity(402, 7, "2,1,3");
  return b;
}

constexpr std::size_t step = is_sanitized ? 4 : 1;

/// A folder of its own for each test.
class StreamFaults : public testing::Test {
 protected:
  StreamFaults() {
    std::string name = (fs::temp_directory_path() / "igs_test_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_folder = name;
  }
  ~StreamFaults() override { fs::remove_all(m_folder); }

  fs::path m_folder;
  std::ostringstream m_report;
  utOstream m_messages{m_report};
};

/// Reads a text of which `size` bytes arrive. A record that is cut short may still do, or have lost its section letter.
void expect_clean_end(igsFile& file, std::istream& in, std::size_t size, std::size_t whole, igsIOErrorCode end) {
  std::ostringstream report;
  utOstream messages(report);
  const int result = file.read(in, messages);
  ASSERT_TRUE(result == 0 || size + 81 > whole);
  ASSERT_TRUE(result == 1 || size < whole);
  if (result == 0) {
    ASSERT_THAT(file.read_fault().code, AnyOf(end, igsIONoSectionLetter));
    const int records = static_cast<int>((size + 1) / 81);
    ASSERT_THAT(file.read_fault().records_before, AnyOf(records, records + 1));
  }
  file.clean(0);
  if (size % 10 == 0) {  // temporary files take their time
    ASSERT_EQ(column_fault(written(file)), "");
  }
}

TEST_F(StreamFaults, ReadingFailsAtEveryByte) {
  const std::string text = families().text();
  for (std::size_t size = 0; size <= text.size() && !HasFatalFailure(); size += step) {
    SCOPED_TRACE(size);
    FailingInput buffer(text, size, 81);
    std::istream in(&buffer);
    igsFile file;
    expect_clean_end(file, in, size, text.size(), igsIOStreamBad);
  }
}

TEST_F(StreamFaults, ReadingEndsAtEveryByte) {
  const std::string text = families().text();
  for (std::size_t size = 0; size <= text.size() && !HasFatalFailure(); size += step) {
    SCOPED_TRACE(size);
    std::istringstream in(text.substr(0, size));
    igsFile file;
    expect_clean_end(file, in, size, text.size(), igsIOEndOfInput);
  }
}

TEST_F(StreamFaults, WritingFailsAtEveryRecord) {
  igsFile file;
  ASSERT_EQ(read_text(file, families().text()), 1);
  file.set_write_dir(m_folder.string());
  const std::string whole = written(file);
  for (std::size_t room = 0; room < whole.size(); room += 27) {  // thrice in a record; each byte: FileWriter
    FailingOutput buffer(room);
    std::ostream out(&buffer);
    ASSERT_EQ(file.write(out, m_messages), 0) << room;
    ASSERT_EQ(buffer.text, whole.substr(0, buffer.text.size())) << room;
    ASSERT_TRUE(fs::is_empty(m_folder)) << room;
  }
  EXPECT_EQ(written(file), whole) << "the file itself is none the worse";
}

TEST_F(StreamFaults, FoldersThatTakeNoTemporaryFile) {
  igsFile file;
  ASSERT_EQ(read_text(file, families().text()), 1);
  std::ofstream(m_folder / "file") << "no folder";
  std::string text;
  for (const char* folder : {"absent", "file", "file/below", "absent/below"}) {
    file.set_write_dir((m_folder / folder).string());
    EXPECT_EQ(write_text(file, text), 0) << folder;
    EXPECT_FALSE(file.out_of_memory());
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()), 1);
  file.set_write_dir(m_folder.string());
  EXPECT_EQ(write_text(file, text), 1);
}

TEST_F(StreamFaults, FolderThatIsReadOnly) {
  igsFile file;
  ASSERT_EQ(read_text(file, families().text()), 1);
  const fs::path folder = m_folder / "folder";
  const auto result_of_writing = [&file, &folder] {
    file.set_write_dir(folder.string());
    std::string text;
    return write_text(file, text);
  };
  fs::permissions(m_folder, fs::perms::owner_all | fs::perms::others_exec);  // root's temporary folders are its own
  fs::create_directory(folder);
  for (const bool may_write : {true, false}) {
    fs::permissions(folder, may_write ? fs::perms::all : fs::perms(0555));
    EXPECT_EQ(as_ordinary_user(result_of_writing), may_write ? 1 : 0);
    EXPECT_TRUE(fs::is_empty(folder));
  }
}

/// No file of this process grows beyond `size` bytes, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t size) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    rlimit limited = m_before;
    limited.rlim_cur = size;
    setrlimit(RLIMIT_FSIZE, &limited);
  }
  ~FullDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
  }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit m_before{};
  void (*m_handler)(int);
};

TEST_F(StreamFaults, DiskIsFullAtEveryRecordOfTheTemporaryFile) {
  igsFile file;
  ASSERT_EQ(read_text(file, families().text()), 1);
  file.set_write_dir(m_folder.string());
  const std::string whole = written(file);
  const std::size_t data = records_of(whole, 'P').size() * 81;
  ASSERT_GT(data, 0U);
  for (std::size_t room = 0; room <= data; room += 27) {
    std::string text;
    int result;
    {
      const FullDisk disk(room);
      result = write_text(file, text);
    }
    ASSERT_EQ(result, room == data ? 1 : 0) << room;
    ASSERT_TRUE(fs::is_empty(m_folder)) << room;
  }
  EXPECT_EQ(written(file), whole);
}

}  // namespace
}  // namespace igs_test
