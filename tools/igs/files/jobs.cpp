#include "files/jobs.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <iostream>
#include <mutex>
#include <new>
#include <optional>
#include <sstream>
#include <thread>
#include <utility>

#include "files/complaints.h"
#include "files/progress.h"

namespace {

/// What came of one file.
struct Result {
  std::string out, err;
  std::optional<Tally> tally;  ///< nothing when memory ran out, even for a complaint about it

  std::size_t size() const { return out.size() + err.size(); }
};

/// Does the work; what it prints is collected.
Result collected(const std::string& name, const FileWork& work) {
  try {
    std::ostringstream out, err;
    Tally tally = with_file(name, work, {out, err});
    if (out && err) return {std::move(out).str(), std::move(err).str(), std::move(tally)};
  } catch (const std::bad_alloc&) {  // so that all of it goes
  }
  return {};
}

/// The names, from which threads take one after the other. Who finishes the file whose turn it is to be printed prints
/// it, and all finished ones behind it, while the others go on.
class Queue {
 public:
  Queue(const std::vector<std::string>& names, const FilesWork& work)
      : m_names(names), m_work(work), m_progress(names.size()), m_finished(names.size()) {
    m_tallies.reserve(names.size());
  }
  /// Works on as many threads, this one among them, or on as many as there can be.
  std::vector<Tally> run(std::size_t num_threads);

 private:
  static constexpr std::size_t most_waiting = 64U << 20U;

  void work();
  void deliver(std::unique_lock<std::mutex>& lock);
  bool print(Result& result);

  const std::vector<std::string>& m_names;
  const FilesWork& m_work;
  FilesProgress m_progress;
  std::mutex m_mutex;  ///< of all that follows
  std::condition_variable m_delivered;
  std::size_t m_num_taken = 0;
  std::vector<std::optional<Result>> m_finished;  ///< by place in the names; those printed are gone
  std::size_t m_waiting = 0;                      ///< bytes in m_finished
  bool m_is_delivering = false;                   ///< a thread prints
  bool m_is_over = false;                         ///< standard output has failed
  std::vector<Tally> m_tallies;                   ///< of the printed ones; who delivers adds to it
};

std::vector<Tally> Queue::run(std::size_t num_threads) {
  m_progress.show(0);
  std::vector<std::thread> others;
  others.reserve(num_threads);
  try {
    while (others.size() + 1 < num_threads) others.emplace_back([this] { work(); });
  } catch (const std::exception&) {  // those that there are will do
  }
  work();
  for (std::thread& thread : others) thread.join();
  return std::move(m_tallies);
}

void Queue::work() {
  std::unique_lock lock(m_mutex);
  for (;;) {
    m_delivered.wait(lock, [this] { return m_waiting < most_waiting || m_is_over; });
    if (m_is_over || m_num_taken == m_names.size()) return;
    const std::size_t place = m_num_taken++;
    lock.unlock();
    Result result = collected(m_names[place], m_work);
    lock.lock();
    m_waiting += result.size();
    m_finished[place] = std::move(result);
    if (!m_is_delivering) deliver(lock);
  }
}

void Queue::deliver(std::unique_lock<std::mutex>& lock) {
  m_is_delivering = true;
  while (!m_is_over && m_tallies.size() < m_names.size() && m_finished[m_tallies.size()]) {
    std::optional<Result> result;
    result.swap(m_finished[m_tallies.size()]);
    lock.unlock();
    const bool is_printed = print(*result);
    lock.lock();
    m_waiting -= result->size();
    m_is_over = !is_printed;
    m_delivered.notify_all();
  }
  m_is_delivering = false;
}

/// False when standard output has failed.
bool Queue::print(Result& result) {
  m_progress.hide();
  if (m_work.merge) {
    m_work.merge(result.out);
  } else {
    std::cout << result.out;
  }
  std::cerr << result.err;
  if (!result.tally) result.tally = failed(m_names[m_tallies.size()], "out of memory", m_work, standard_streams());
  std::cout.flush();
  std::cerr.flush();
  m_tallies.push_back(std::move(*result.tally));
  m_progress.show(m_tallies.size());
  return static_cast<bool>(std::cout);
}

}  // namespace

std::vector<Tally> work_on_files(const std::vector<std::string>& names, std::size_t jobs, const FilesWork& work) {
  const std::size_t num_threads = std::min({jobs, names.size(), most_jobs});
  if (num_threads > 1 || work.merge) return Queue(names, work).run(num_threads);
  std::vector<Tally> tallies;
  for (const std::string& name : names) {
    tallies.push_back(with_file(name, work, standard_streams()));
    if (!std::cout.flush()) break;
  }
  return tallies;
}

int status_of(const std::vector<Tally>& tallies) {
  int status = exit_clean;
  for (const Tally& tally : tallies) status = std::max(status, tally.status);
  return status;
}

int final_status(const std::vector<Tally>& tallies) { return flush_output() ? status_of(tallies) : exit_failed; }
