#pragma once

#include <cstddef>
#include <cstdio>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "files/tally.h"
#include "files/with_file.h"

constexpr std::size_t most_jobs = 128;

/// The work with several files.
struct FilesWork : FileWork {
  /// Prints what `handle` printed in a process of its own; the file stands at its beginning.
  std::function<void(std::FILE* printed)> adopt;
};

/// Does the work for every name, up to `jobs` at a time in processes of their own, so that a breakdown stays with its
/// file. What they print comes out whole and in the order of the names; until its turn has come it waits in a temporary
/// file. Returns the tallies in that order, fewer when standard output fails. On Windows one file comes after the
/// other.
std::vector<Tally> work_on_files(const std::vector<std::string>& names, std::size_t jobs, const FilesWork& work);
/// The same for more than one file and one job; not on Windows.
std::vector<Tally> work_in_processes(const std::vector<std::string>& names, std::size_t jobs, const FilesWork& work);
/// The highest status of all.
int status_of(const std::vector<Tally>& tallies);
/// The status to end with: exit_failed, with a complaint, when standard output has not taken the results.
int final_status(const std::vector<Tally>& tallies);
/// Copies the rest of `from` to `out`.
void copy_all(std::FILE* from, std::ostream& out);
