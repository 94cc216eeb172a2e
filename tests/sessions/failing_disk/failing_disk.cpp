// Preloaded into the program: a disk that reports its failure late. The call that IGS_FAILING_CALL names, fsync or
// close, fails for the temporary file that stands beside the target, or is where the signal IGS_SIGNAL comes.
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

int result_of(long call, const std::string& name, int descriptor) {
  std::error_code none;
  const std::string file = std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(descriptor), none).string();
  const char* const failing = std::getenv("IGS_FAILING_CALL");  // NOLINT(concurrency-mt-unsafe): nobody sets it
  const bool fails = failing != nullptr && name == failing && file.find("/.igs-") != std::string::npos;
  const char* const signal = std::getenv("IGS_SIGNAL");  // NOLINT(concurrency-mt-unsafe): nobody sets it
  if (fails && signal != nullptr) std::raise(std::stoi(signal));
  const long result = syscall(call, descriptor);
  if (fails) errno = EIO;
  return fails ? -1 : static_cast<int>(result);
}

}  // namespace

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's own names are reserved
extern "C" int fsync(int descriptor) { return result_of(SYS_fsync, "fsync", descriptor); }
extern "C" int close(int descriptor) { return result_of(SYS_close, "close", descriptor); }
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
