#include "igs/shape/private/igsEachNumber.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

void igs_for_each_number(std::size_t count, int threads, const std::function<void(std::size_t)>& job) {
  std::atomic<std::size_t> next{0};
  std::exception_ptr failure;
  std::mutex mutex;
  const auto work = [&] {
    try {
      for (std::size_t i = next++; i < count; i = next++) job(i);
    } catch (...) {
      const std::lock_guard lock(mutex);
      failure = std::current_exception();
      next = count;
    }
  };
  const std::size_t wanted =
      threads > 0 ? static_cast<std::size_t>(threads) : std::max(1U, std::thread::hardware_concurrency());
  std::vector<std::thread> workers;
  try {
    while (workers.size() + 1 < std::min(wanted, count)) workers.emplace_back(work);
  } catch (const std::exception&) {  // there are no more threads, or no room for one: this one does what is left
  }
  work();
  for (std::thread& worker : workers) worker.join();
  if (failure) std::rethrow_exception(failure);
}
