#include "files/jobs.h"

#include <algorithm>
#include <array>
#include <iostream>

#include "files/complaints.h"

std::vector<Tally> work_on_files(const std::vector<std::string>& names, [[maybe_unused]] std::size_t jobs,
                                 const FilesWork& work) {
#if !defined(_WIN32)
  if (std::min(jobs, names.size()) > 1) return work_in_processes(names, jobs, work);
#endif
  std::vector<Tally> tallies;
  for (const std::string& name : names) {
    tallies.push_back(with_file(name, work));
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

void copy_all(std::FILE* from, std::ostream& out) {
  std::array<char, 1U << 16U> block{};
  for (std::size_t size = 0; (size = std::fread(block.data(), 1, block.size(), from)) > 0;) {
    out.write(block.data(), static_cast<std::streamsize>(size));
  }
  out.flush();
}
