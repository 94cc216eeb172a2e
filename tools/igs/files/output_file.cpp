#include "files/output_file.h"

#include <sys/stat.h>
#include <unistd.h>
#if defined(_WIN32)
#include <fcntl.h>
#include <share.h>
#endif

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <mutex>
#include <system_error>
#include <utility>

#include "files/jobs.h"

namespace {

#if defined(_WIN32)
constexpr std::array ending_signals{SIGINT, SIGTERM};

int fsync(int descriptor) { return _commit(descriptor); }

/// The stream may open the file a second time, which mkstemp would not allow here.
int make_temporary(char* name) {
  if (_mktemp(name) == nullptr) return -1;
  return _sopen(name, _O_CREAT | _O_EXCL | _O_RDWR | _O_BINARY, _SH_DENYNO, _S_IREAD | _S_IWRITE);
}

void set_permissions(int /*descriptor*/, const std::string& /*target*/) {}  // a new file has those of its folder
#else
constexpr std::array ending_signals{SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGQUIT, SIGXFSZ};

int make_temporary(char* name) { return mkstemp(name); }

constexpr mode_t permission_bits = 0777;

/// As the target has them, or as a new file would get them. Where the owner cannot be kept the writer becomes it.
void set_permissions(int descriptor, const std::string& target) {
  struct stat status {};
  if (stat(target.c_str(), &status) == 0) {
    if (fchown(descriptor, status.st_uid, status.st_gid) != 0) errno = 0;
    if (fchmod(descriptor, status.st_mode & permission_bits) != 0) errno = 0;
    return;
  }
  static const mode_t mask = [] {  // once, as it changes what other threads make meanwhile
    const mode_t found = umask(0);
    umask(found);
    return found;
  }();
  if (fchmod(descriptor, 0666 & ~mask) != 0) errno = 0;
}
#endif

// What a signal handler may touch: the names of the temporaries that exist, in memory that stays where it is.
struct Temporary {
  std::array<char, 4096> name;
  std::atomic<bool> is_taken, exists;
};
static_assert(std::atomic<bool>::is_always_lock_free);
std::array<Temporary, most_jobs> temporaries;  // NOLINT(cppcoreguidelines-avoid-non-const-global-variables)

extern "C" void remove_temporaries(int signal) {
  for (const Temporary& temporary : temporaries) {
    if (temporary.exists) unlink(temporary.name.data());
  }
  std::signal(signal, SIG_DFL);  // NOLINT(cert-err33-c): there is nothing to do about a failure here
  std::raise(signal);            // NOLINT(cert-err33-c)
}

void handle_signals() {
  for (const int signal : ending_signals) {
    if (std::signal(signal, remove_temporaries) == SIG_IGN) std::signal(signal, SIG_IGN);
  }
}

/// From now on a signal that ends the program removes this temporary. Returns its place; the number of places when it
/// is not guarded, as there are more files at a time than jobs, or the name is too long.
std::size_t guard_temporary(const std::string& name) {
  static std::once_flag once;
  std::call_once(once, handle_signals);
  std::size_t place = name.size() < temporaries[0].name.size() ? 0 : temporaries.size();
  while (place < temporaries.size() && temporaries.at(place).is_taken.exchange(true)) ++place;
  if (place == temporaries.size()) return place;
  Temporary& temporary = temporaries.at(place);
  *std::copy(name.begin(), name.end(), temporary.name.begin()) = '\0';
  temporary.exists = true;
  return place;
}

/// The temporary at this place is gone.
void release_temporary(std::size_t place) {
  if (place == temporaries.size()) return;
  temporaries.at(place).exists = false;
  temporaries.at(place).is_taken = false;
}

/// The file that `name` leads to, through symbolic links that may dangle.
std::string resolved(const std::string& name) {
  std::error_code no_link;
  if (!std::filesystem::is_symlink(name, no_link)) return name;
  std::error_code error;
  const std::filesystem::path path = std::filesystem::weakly_canonical(name, error);
  return error ? name : path.string();
}

}  // namespace

OutputFile::OutputFile(const std::string& name) : m_target(resolved(name)) {
  struct stat status {};
  const bool exists = stat(m_target.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) {
    fail(EISDIR);
  } else if (exists && access(m_target.c_str(), W_OK) != 0) {
    fail(errno);  // the rename would get round the protection
  } else if (exists && !S_ISREG(status.st_mode)) {
    open_direct();
  } else {
    open_temporary();
  }
}

OutputFile::~OutputFile() { discard(); }

void OutputFile::open_direct() {
  errno = 0;
  m_stream.open(m_target, std::ios::binary);
  if (!m_stream) fail(errno);
}

void OutputFile::open_temporary() {
  const std::filesystem::path folder = std::filesystem::path(m_target).parent_path();
  std::string name = (folder / ".igs-XXXXXX").string();
  m_descriptor = make_temporary(name.data());
  if (m_descriptor < 0) {
    fail(errno);
    return;
  }
  m_temporary = name;
  m_guard = guard_temporary(m_temporary);
  set_permissions(m_descriptor, m_target);
  m_stream.open(m_temporary, std::ios::binary);
  if (!m_stream) fail(errno);
}

bool OutputFile::commit() {
  errno = 0;
  m_stream.close();
  if (!m_stream) return fail(errno);
  if (m_temporary.empty()) return true;
  // Without it a power cut soon after the rename could leave an empty file. Disks that are full, or out of reach, may
  // say so no sooner than here or when the last descriptor is closed.
  if (fsync(m_descriptor) != 0) return fail(errno);
  if (close(std::exchange(m_descriptor, -1)) != 0) return fail(errno);
  std::error_code error;
  std::filesystem::rename(m_temporary, m_target, error);  // replaces the target everywhere, which std::rename does not
  if (error) return fail(error.default_error_condition().value());
  release_temporary(m_guard);
  m_temporary.clear();
  discard();
  return true;
}

bool OutputFile::fail(int system_error) {
  m_error = system_error != 0 ? std::generic_category().message(system_error) : "write error";
  discard();
  return false;
}

void OutputFile::discard() {
  m_stream.close();
  if (m_descriptor >= 0) close(m_descriptor);
  m_descriptor = -1;
  if (m_temporary.empty()) return;
  unlink(m_temporary.c_str());
  release_temporary(m_guard);
  m_temporary.clear();
}
