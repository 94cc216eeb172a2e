#include "igs/support/ubFStream.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <random>
#include <system_error>

#if defined(_WIN32)
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {
// Creating the file with "must not exist yet" is what makes the name ours, whoever else uses the directory.
bool create_exclusively(const std::filesystem::path& path) {
#if defined(_WIN32)
  std::FILE* const file = std::fopen(path.string().c_str(), "wbx");
  if (file == nullptr) return false;
  std::fclose(file);
#else
  const int file = ::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
  if (file < 0) return false;
  ::close(file);
#endif
  return true;
}

/// The source of random numbers takes longer than the rest of a small file: it is asked once a process, and the clock
/// tells those apart that come of one process.
unsigned probably_new_number() {
  static std::atomic<unsigned> number = std::random_device()();
  return number += static_cast<unsigned>(std::chrono::steady_clock::now().time_since_epoch().count()) | 1U;
}
}  // namespace

utString klu_make_temp_file_name(const utString& directory) {
  constexpr int attempts = 100;
  std::error_code error;
  std::filesystem::path folder = directory;
  if (directory.empty()) {
    folder = std::filesystem::temp_directory_path(error);
    if (error) return {};
  }
  if (!std::filesystem::is_directory(folder, error) || error) return {};
  for (int i = 0; i < attempts; ++i) {
    const std::filesystem::path path = folder / ("igs" + std::to_string(probably_new_number()) + ".tmp");
    utString name = path.string();
    if (create_exclusively(path)) return name;
  }
  return {};
}
