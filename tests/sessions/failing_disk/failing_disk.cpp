// Preloaded into the program: a disk that reports its failure late. The call that IGS_FAILING_CALL names, fsync or
// close, fails for the temporary file that stands beside the target.
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

bool is_to_fail(std::string_view call, int descriptor) {
  const char* const failing = std::getenv("IGS_FAILING_CALL");  // NOLINT(concurrency-mt-unsafe): there is one thread
  if (failing == nullptr || failing != call) return false;
  std::array<char, 4096> name{};
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), name.data(), name.size());
  if (length <= 0) return false;
  return std::string_view(name.data(), static_cast<std::size_t>(length)).find("/.igs-") != std::string_view::npos;
}

int result_of(long call, std::string_view name, int descriptor) {
  const bool fails = is_to_fail(name, descriptor);
  const long result = syscall(call, descriptor);
  if (fails) errno = EIO;
  return fails ? -1 : static_cast<int>(result);
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's own names are reserved
extern "C" int fsync(int descriptor) { return result_of(SYS_fsync, "fsync", descriptor); }
extern "C" int close(int descriptor) { return result_of(SYS_close, "close", descriptor); }
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
