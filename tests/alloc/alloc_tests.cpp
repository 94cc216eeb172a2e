// Memory that runs out at the n-th allocation, for every n, while a file is read, checked, repaired and written: a
// failure that is reported, nothing lost, and a process that goes on as before. A program of its own, since it replaces
// operator new.
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <new>
#include <sstream>
#include <string>
#include <string_view>

#include "iges_builder.h"
#include "igs/igs.h"
#include "own_memory.h"
#include "sanitizers.h"
#include "streams.h"

namespace igs_test {
namespace {

constexpr bool is_slow = is_sanitized || IGS_EMULATED;
constexpr long cold_stride = is_slow ? 29 : 1;  // a process of its own for each
constexpr long stride = is_slow ? 3 : 1;

/// Keeps what is written without taking memory.
class FixedOutput : public std::streambuf {
 public:
  FixedOutput() { clear(); }
  void clear() { setp(m_block, m_block + sizeof m_block); }
  std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

 private:
  char m_block[1 << 20];
};
struct TemporaryFolder {
  TemporaryFolder() {
    const bool exists = access("/dev/shm", W_OK) == 0;  // memory: tens of thousands of files come and go
    path = (exists ? "/dev/shm" : std::filesystem::temp_directory_path()) / "igs_alloc_XXXXXX";
    if (mkdtemp(path.data()) == nullptr) throw std::runtime_error("no temporary folder");
  }
  ~TemporaryFolder() { std::filesystem::remove_all(path); }
  std::string path;
};

/// What one pass over a file came to.
struct Pass {
  bool reached = false;    ///< the allocation that was to fail
  bool reported = false;   ///< by a constructor's exception, a result or out_of_memory()
  bool consistent = true;  ///< results agree with out_of_memory(), and the file can be printed and written afterwards
  bool operator==(const Pass&) const = default;
};

/// Reads, checks, repairs and writes `text`, the `n`-th allocation failing and, when `for_good`, those after it; the
/// file that is left is then looked at and written to `output` with all the memory it wants.
Pass pass_over(std::string_view text, const utString& folder, FixedOutput& output, long n = 0, bool for_good = false) {
  ut_set_clock([] { return utDateTime{2026, 11, 21, 12, 0, 0}; });
  Streams streams(text);
  output.clear();
  std::ostream out(&output);
  Pass pass;
  plan = {n, for_good};
  try {
    igsFile file;
    file.set_write_dir(folder);
    const auto note = [&](bool agrees) {
      pass.reported = pass.reported || file.out_of_memory();
      pass.consistent = pass.consistent && agrees;
    };
    const int was_read = file.read(streams.in, streams.messages);
    note(was_read == 0 || !file.out_of_memory());
    file.check();
    note(true);
    file.clean(1);
    note(true);
    const int was_written = file.write(streams.out, streams.messages);
    note((was_written == 0) == file.out_of_memory());
    pass.reached = plan.stop();
    file.print(streams.messages);
    note(file.write(out, streams.messages) == 1 && out.good());
    file.check();
    file.clean(0);
    note(!file.out_of_memory());
  } catch (const std::bad_alloc&) {  // of the constructor, or of set_write_dir
    pass.reached = plan.stop();
    pass.reported = true;
  }
  return pass;
}

std::string file_text(const std::string& name) {
  std::ostringstream text;
  text << std::ifstream(std::string(IGS_ROOT) + '/' + name, std::ios::binary).rdbuf();
  return text.str();
}

/// What a process that has never used the library before comes to.
struct FirstUse {
  Pass pass{.consistent = false};
  std::size_t live = 0;     ///< blocks in use in the end
  std::size_t written = 0;  ///< a hash of what the second, undisturbed pass writes
  bool operator==(const FirstUse&) const = default;
};

/// In memory that processes share.
FirstUse& shared_result() {
  void* const memory = mmap(nullptr, sizeof(FirstUse), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return *new (memory) FirstUse;
}

FirstUse first_use_elsewhere(std::string_view text, const utString& folder, long n, bool for_good) {
  static FirstUse& result = shared_result();
  result = {};
  const auto output = std::make_unique<FixedOutput>();
  const pid_t child = fork();
  if (child == 0) {
    result.pass = pass_over(text, folder, *output, n, for_good);
    pass_over(text, folder, *output);
    result.live = blocks_in_use;
    result.written = std::hash<std::string_view>()(output->text());
    _exit(0);
  }
  waitpid(child, nullptr, 0);
  return result;
}

// Comes first in this file, so that nothing has used the library yet.
TEST(FirstUseOutOfMemory, IsReportedAndForgotten) {
  const TemporaryFolder folder;
  const std::string text = file_text("fuzz/seeds/file/line.igs");
  FirstUse expected = first_use_elsewhere(text, folder.path, 0, false);
  ASSERT_TRUE(expected.pass.consistent);
  for (const bool for_good : {false, true}) {
    bool reached = true;
    for (long n = 1; reached; n += cold_stride) {
      const FirstUse result = first_use_elsewhere(text, folder.path, n, for_good);
      reached = result.pass.reached;
      expected.pass.reached = expected.pass.reported = reached;
      ASSERT_EQ(result.live, expected.live) << n;
      ASSERT_EQ(result, expected) << n;
    }
  }
}

/// Faults of every kind among many entities.
std::string large_text() {
  IgesBuilder builder;
  for (int i = 0; i < 300; ++i) {
    builder.line(i % 3);
    builder.entity(102, 0, "2," + std::to_string(6 * i + 1) + "," + std::to_string(6 * i + 5));
    builder.entity(106, 12, "2,3,1.,2.,3.,4.,5.,6.,7.,8.", {.level = -1, .matrix = 3, .label = "LINE"});
  }
  return builder.text();
}

class OutOfMemory : public testing::TestWithParam<std::string> {};

TEST_P(OutOfMemory, IsReportedAndForgotten) {
  const TemporaryFolder folder;
  const bool is_large = GetParam() == "large";
  const std::string text = is_large ? large_text() : file_text(GetParam());
  ASSERT_FALSE(text.empty());
  const auto output = std::make_unique<FixedOutput>();
  const auto undisturbed = [&] {
    pass_over(text, folder.path, *output);
    return std::string(output->text());
  };
  const std::string expected = undisturbed();
  ASSERT_NE(expected, "");
  undisturbed();
  bool reached = true;
  for (long n = 1; reached; n += is_large ? 499 * stride : stride) {
    reached = false;
    for (const bool for_good : {false, true}) {
      SCOPED_TRACE("allocation " + std::to_string(n) + (for_good ? " and all after it" : ""));
      const std::size_t in_use = blocks_in_use;
      const Pass pass = pass_over(text, folder.path, *output, n, for_good);
      ASSERT_EQ(blocks_in_use, in_use) << "memory is lost";
      reached = reached || pass.reached;
      ASSERT_EQ(pass.reported, pass.reached);
      ASSERT_TRUE(pass.consistent);
      ASSERT_TRUE(output->text().empty() || column_fault(std::string(output->text())).empty()) << output->text();
      ASSERT_TRUE(std::filesystem::is_empty(folder.path));
    }
    ASSERT_EQ(undisturbed(), expected) << "the next file suffers from allocation " << n;
  }
}

INSTANTIATE_TEST_SUITE_P(File, OutOfMemory,
                         testing::Values("examples/bracket-faulty.igs", "examples/bracket-damaged.igs",
                                         "fuzz/seeds/file/brep.igs", "fuzz/seeds/file/curves.igs",
                                         "fuzz/seeds/file/drawing.igs", "fuzz/seeds/file/structure.igs",
                                         "fuzz/seeds/file/surfaces.igs", "fuzz/seeds/file/unknown.igs", "large"));

}  // namespace
}  // namespace igs_test
