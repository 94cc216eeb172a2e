// Memory that runs out at the n-th allocation, for every n, while a file is read, checked, repaired and written: a
// failure that is reported, nothing lost, and a process that goes on as before. A program of its own, since it replaces
// operator new.
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
#include <utility>

#include "iges_builder.h"
#include "igs/igs.h"
#include "sanitizers.h"
#include "streams.h"

namespace {

long live = 0;  // blocks in use

/// Once: the n-th allocation fails and those after it succeed. For good: those after it fail, too.
enum class Shortage { once, for_good };

struct Plan {
  long left = 0;  ///< allocations until one fails; 0 when none does
  bool for_good = false;
  bool reached = false;

  void fail_at(long n, Shortage shortage) { *this = {n, shortage == Shortage::for_good, false}; }
  /// True when the allocation that was to fail was reached.
  bool stop() { return std::exchange(*this, Plan()).reached; }
  bool refuses() {
    if (left > 0 && --left == 0) return reached = true;
    return reached && for_good;
  }
};
Plan plan;

void* take(std::size_t size, std::size_t alignment) noexcept {
  const std::size_t rounded = (size + alignment - 1) / alignment * alignment;
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
  void* const memory = std::aligned_alloc(alignment, rounded == 0 ? alignment : rounded);
  if (memory != nullptr) ++live;
  return memory;
}

void* take_or_throw(std::size_t size, std::size_t alignment) {
  void* const memory = plan.refuses() ? nullptr : take(size, alignment);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void give_back(void* memory) noexcept {
  if (memory == nullptr) return;
  --live;
  std::free(memory);  // NOLINT(cppcoreguidelines-no-malloc)
}

// Whoever asks in this way can do without.
void* take_if_possible(std::size_t size, std::size_t alignment) noexcept {
  return plan.reached && plan.for_good ? nullptr : take(size, alignment);
}

constexpr std::size_t usual = __STDCPP_DEFAULT_NEW_ALIGNMENT__;
}  // namespace

void* operator new(std::size_t size) { return take_or_throw(size, usual); }
void* operator new[](std::size_t size) { return take_or_throw(size, usual); }
void* operator new(std::size_t size, std::align_val_t a) { return take_or_throw(size, static_cast<std::size_t>(a)); }
void* operator new[](std::size_t size, std::align_val_t a) { return take_or_throw(size, static_cast<std::size_t>(a)); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take_if_possible(size, usual); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return take_if_possible(size, usual); }
void operator delete(void* memory) noexcept { give_back(memory); }
void operator delete[](void* memory) noexcept { give_back(memory); }
void operator delete(void* memory, std::size_t) noexcept { give_back(memory); }
void operator delete[](void* memory, std::size_t) noexcept { give_back(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { give_back(memory); }
void operator delete[](void* memory, std::align_val_t) noexcept { give_back(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { give_back(memory); }
void operator delete[](void* memory, std::size_t, std::align_val_t) noexcept { give_back(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { give_back(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { give_back(memory); }

namespace igs_test {
namespace {

constexpr long cold_stride = is_sanitized ? 29 : 1;  // a process of its own for each
constexpr long stride = is_sanitized ? 3 : 1;

/// Keeps what is written without taking memory.
class FixedOutput : public std::streambuf {
 public:
  FixedOutput() { clear(); }
  void clear() { setp(m_block, m_block + sizeof m_block); }
  std::string_view text() const { return {pbase(), static_cast<std::size_t>(pptr() - pbase())}; }

 private:
  char m_block[1 << 20];
};
class TemporaryFolder {
 public:
  TemporaryFolder() {
    const std::filesystem::path memory = "/dev/shm";  // tens of thousands of files come and go
    const bool exists = access(memory.c_str(), W_OK) == 0;
    std::string name = ((exists ? memory : std::filesystem::temp_directory_path()) / "igs_alloc_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_path = name;
  }
  ~TemporaryFolder() { std::filesystem::remove_all(m_path); }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::filesystem::path& path() const { return m_path; }

 private:
  std::filesystem::path m_path;
};

/// What one pass over a file came to.
struct Pass {
  bool reached = false;    ///< the allocation that was to fail
  bool reported = false;   ///< by a constructor's exception, a result or out_of_memory()
  bool consistent = true;  ///< results agree with out_of_memory(), and the file can be printed and written afterwards
};

utDateTime fixed_clock() { return {2026, 11, 21, 12, 0, 0}; }

/// Reads, checks, repairs and writes `text`, the `n`-th allocation failing; the file that is left is then looked at and
/// written to `out` with all the memory it wants.
Pass pass_over(std::string_view text, const utString& folder, std::ostream& out, long n, Shortage shortage) {
  ut_set_clock(fixed_clock);
  static NoOutput nowhere;
  std::ostream silence(&nowhere);
  utOstream messages(silence);
  TextInput buffer(text);
  std::istream in(&buffer);
  Pass pass;
  plan.fail_at(n, shortage);
  try {
    igsFile file;
    file.set_write_dir(folder);
    const auto note = [&](bool agrees) {
      pass.reported = pass.reported || file.out_of_memory();
      pass.consistent = pass.consistent && agrees;
    };
    const int was_read = file.read(in, messages);
    note(was_read == 0 || !file.out_of_memory());
    file.check();
    note(true);
    file.clean(1);
    note(true);
    const int was_written = file.write(silence, messages);
    note((was_written == 0) == file.out_of_memory());
    pass.reached = plan.stop();
    file.print(messages);
    note(file.write(out, messages) == 1 && out.good());
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
  std::ifstream in(std::string(IGS_ROOT) + '/' + name, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

/// What a process that has never used the library before comes to.
struct FirstUse {
  bool reached = false, reported = false, consistent = false;
  long live = -1;           ///< blocks in use in the end
  std::size_t written = 0;  ///< a hash of what the second, undisturbed pass writes
  bool operator==(const FirstUse&) const = default;
};

FirstUse first_use(std::string_view text, const utString& folder, long n, Shortage shortage, FixedOutput& output) {
  std::ostream out(&output);
  const Pass pass = pass_over(text, folder, out, n, shortage);
  output.clear();
  pass_over(text, folder, out, 0, shortage);
  return {pass.reached, pass.reported, pass.consistent, live, std::hash<std::string_view>()(output.text())};
}

/// Does it in a process of its own.
FirstUse first_use_elsewhere(std::string_view text, const utString& folder, long n, Shortage shortage) {
  const auto output = std::make_unique<FixedOutput>();
  int ends[2];
  FirstUse result;
  if (pipe(ends) != 0) return result;
  const pid_t child = fork();
  if (child == 0) {
    const FirstUse here = first_use(text, folder, n, shortage, *output);
    _exit(write(ends[1], &here, sizeof here) == sizeof here ? 0 : 1);
  }
  close(ends[1]);
  if (read(ends[0], &result, sizeof result) != sizeof result) result = {};
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return result;
}

// Comes first in this file, so that nothing has used the library yet.
TEST(FirstUseOutOfMemory, IsReportedAndForgotten) {
  const TemporaryFolder folder;
  const utString directory = folder.path().string();
  const std::string text = file_text("fuzz/seeds/file/line.igs");
  FirstUse expected = first_use_elsewhere(text, directory, 0, Shortage::once);
  ASSERT_TRUE(expected.consistent);
  for (const Shortage shortage : {Shortage::once, Shortage::for_good}) {
    bool reached = true;
    for (long n = 1; reached; n += cold_stride) {
      const FirstUse result = first_use_elsewhere(text, directory, n, shortage);
      reached = result.reached;
      expected.reached = expected.reported = reached;
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

struct Case {
  const char* name;
  std::string (*text)();
  long stride;
};
void PrintTo(const Case& c, std::ostream* os) { *os << c.name; }

const Case cases[] = {
    {"Faulty", [] { return file_text("examples/bracket-faulty.igs"); }, stride},
    {"Damaged", [] { return file_text("examples/bracket-damaged.igs"); }, stride},
    {"Solid", [] { return file_text("fuzz/seeds/file/brep.igs"); }, stride},
    {"Curves", [] { return file_text("fuzz/seeds/file/curves.igs"); }, stride},
    {"Drawing", [] { return file_text("fuzz/seeds/file/drawing.igs"); }, stride},
    {"Structure", [] { return file_text("fuzz/seeds/file/structure.igs"); }, stride},
    {"Surfaces", [] { return file_text("fuzz/seeds/file/surfaces.igs"); }, stride},
    {"Unknown", [] { return file_text("fuzz/seeds/file/unknown.igs"); }, stride},
    {"Large", large_text, 499 * stride},
};

class OutOfMemory : public testing::TestWithParam<Case> {};

TEST_P(OutOfMemory, IsReportedAndForgotten) {
  const TemporaryFolder folder;
  const utString directory = folder.path().string();
  const std::string text = GetParam().text();
  ASSERT_FALSE(text.empty());
  const auto output = std::make_unique<FixedOutput>();
  const auto undisturbed = [&] {
    output->clear();
    std::ostream out(output.get());
    pass_over(text, directory, out, 0, Shortage::once);
    return std::string(output->text());
  };
  const std::string expected = undisturbed();
  ASSERT_NE(expected, "");
  undisturbed();
  bool reached = true;
  for (long n = 1; reached; n += GetParam().stride) {
    reached = false;
    for (const Shortage shortage : {Shortage::once, Shortage::for_good}) {
      SCOPED_TRACE("allocation " + std::to_string(n) + (shortage == Shortage::once ? "" : " and all after it"));
      Pass pass;
      {
        output->clear();
        std::ostream out(output.get());
        const long in_use = live;
        pass = pass_over(text, directory, out, n, shortage);
        ASSERT_EQ(live, in_use) << "memory is lost";
      }
      reached = reached || pass.reached;
      ASSERT_EQ(pass.reported, pass.reached);
      ASSERT_TRUE(pass.consistent);
      ASSERT_TRUE(output->text().empty() || column_fault(std::string(output->text())).empty()) << output->text();
      ASSERT_TRUE(std::filesystem::is_empty(folder.path()));
    }
    ASSERT_EQ(undisturbed(), expected) << "the next file suffers from allocation " << n;
  }
}

INSTANTIATE_TEST_SUITE_P(File, OutOfMemory, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace igs_test
