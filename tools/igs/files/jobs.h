#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "files/tally.h"
#include "files/with_file.h"

constexpr std::size_t most_jobs = 128;

/// The work with several files.
struct FilesWork : FileWork {
  /// Prints what `handle` or `failure` printed of one file, where that is not to be printed as it stands; may be
  /// missing.
  std::function<void(const std::string& printed)> merge = {};
};

/// Does the work for every name, up to `jobs` at a time on threads of their own: `handle` and `failure` are called on
/// any of them, for different files at once. What they print comes out whole and in the order of the names, `merge` is
/// called in that order, one call at a time. Returns the tallies in that order, fewer when standard output fails.
std::vector<Tally> work_on_files(const std::vector<std::string>& names, std::size_t jobs, const FilesWork& work);
/// The highest status of all.
int status_of(const std::vector<Tally>& tallies);
/// The status to end with: exit_failed, with a complaint, when standard output has not taken the results.
int final_status(const std::vector<Tally>& tallies);
