#include "files/jobs.h"

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "files/complaints.h"
#include "files/progress.h"

namespace {

struct CloseFile {
  void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};
using TemporaryFile = std::unique_ptr<std::FILE, CloseFile>;

/// Its numbers on a line, then the failure.
bool write_tally(const Tally& tally, std::FILE* file) {
  const std::string numbers = std::to_string(tally.status) + ' ' + std::to_string(tally.entities) + ' ' +
                              std::to_string(tally.errors) + '\n' + tally.failure;
  return std::fwrite(numbers.data(), 1, numbers.size(), file) == numbers.size() && std::fflush(file) == 0;
}

std::optional<Tally> read_tally(std::FILE* file) {
  Tally tally;
  std::rewind(file);
  constexpr int numbers = 3;
  // NOLINTNEXTLINE(cert-err34-c): the program wrote them
  if (std::fscanf(file, "%d %lld %lld", &tally.status, &tally.entities, &tally.errors) != numbers) return std::nullopt;
  std::fgetc(file);
  for (int c = 0; (c = std::fgetc(file)) != EOF;) tally.failure += static_cast<char>(c);
  return tally;
}

/// The work for one file in a process of its own.
class Job {
 public:
  Job(const std::string& name, const FilesWork& work);
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;
  ~Job();

  pid_t process() const { return m_process; }
  bool is_running() const { return m_process > 0; }
  /// The process is gone; `status` is what waitpid says of it.
  void ended(int status);
  /// Prints what it printed, and returns its tally.
  Tally deliver(const FilesWork& work);

 private:
  [[noreturn]] void run(const FilesWork& work);

  std::string m_name;
  TemporaryFile m_out{std::tmpfile()}, m_err{std::tmpfile()}, m_result{std::tmpfile()};
  pid_t m_process = -1;
  std::optional<Tally> m_tally;
  std::string m_breakdown;
};

Job::Job(const std::string& name, const FilesWork& work) : m_name(name) {
  const bool has_files = m_out != nullptr && m_err != nullptr && m_result != nullptr;
  std::cout.flush();
  std::cerr.flush();
  m_process = has_files ? fork() : -1;
  if (m_process == 0) run(work);
  if (m_process < 0) m_breakdown = "no process for it: " + std::generic_category().message(errno);
}

Job::~Job() {
  if (!is_running()) return;
  kill(m_process, SIGTERM);
  waitpid(m_process, nullptr, 0);
}

void Job::run(const FilesWork& work) {
  const bool is_connected =
      dup2(fileno(m_out.get()), STDOUT_FILENO) >= 0 && dup2(fileno(m_err.get()), STDERR_FILENO) >= 0;
  if (!is_connected) _exit(exit_failed);
  const Tally tally = with_file(m_name, work);
  const bool is_kept = flush_output() && write_tally(tally, m_result.get());
  _exit(is_kept ? exit_clean : exit_failed);
}

void Job::ended(int status) {
  m_process = -1;
  if (WIFEXITED(status) && WEXITSTATUS(status) == exit_clean) m_tally = read_tally(m_result.get());
  if (WIFSIGNALED(status)) {
    m_breakdown = "its process was ended by signal " + std::to_string(WTERMSIG(status));
  } else if (!m_tally) {
    m_breakdown = "its process gave no results";
  }
  m_result.reset();
}

Tally Job::deliver(const FilesWork& work) {
  if (m_tally) {
    std::rewind(m_out.get());
    work.adopt(m_out.get());
  }
  if (m_err != nullptr) {
    std::rewind(m_err.get());
    copy_all(m_err.get(), std::cerr);
  }
  if (m_tally) return *m_tally;
  return failed(m_name, m_breakdown, work);
}

/// Starts jobs in the order of the names and delivers them in that order.
class JobQueue {
 public:
  JobQueue(const std::vector<std::string>& names, std::size_t jobs, const FilesWork& work)
      : m_names(names), m_jobs(std::min(jobs, most_jobs)), m_work(work) {}
  std::vector<Tally> run();

 private:
  void start_some();
  void wait_for_one();

  const std::vector<std::string>& m_names;
  std::size_t m_jobs;
  const FilesWork& m_work;
  std::map<std::size_t, Job> m_started;  ///< by place in the names; those delivered are gone
  std::size_t m_num_started = 0, m_num_running = 0;
};

std::vector<Tally> JobQueue::run() {
  std::signal(SIGCHLD, SIG_DFL);  // NOLINT(cert-err33-c): who started us may have ignored it, and waiting fails then
  const FilesProgress progress(m_names.size());
  std::vector<Tally> tallies;
  while (tallies.size() < m_names.size()) {
    progress.show(tallies.size());
    start_some();
    const auto next = m_started.find(tallies.size());
    if (next->second.is_running()) {
      wait_for_one();
      continue;
    }
    progress.hide();
    tallies.push_back(next->second.deliver(m_work));
    m_started.erase(next);
    if (!std::cout.flush()) break;
  }
  return tallies;
}

/// Those that wait for delivery hold files open: there are never more of them than of running ones.
void JobQueue::start_some() {
  while (m_num_started < m_names.size() && m_num_running < m_jobs && m_started.size() < 2 * m_jobs) {
    const std::size_t place = m_num_started++;
    const auto job = m_started.try_emplace(place, m_names[place], m_work).first;
    if (job->second.is_running()) ++m_num_running;
  }
}

void JobQueue::wait_for_one() {
  int status = 0;
  const pid_t process = waitpid(-1, &status, 0);
  if (process < 0) return;  // interrupted
  for (auto& [place, job] : m_started) {
    if (job.process() != process) continue;
    job.ended(status);
    --m_num_running;
  }
}

}  // namespace

std::vector<Tally> work_in_processes(const std::vector<std::string>& names, std::size_t jobs, const FilesWork& work) {
  return JobQueue(names, jobs, work).run();
}
