#pragma once

#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "report.h"
#include "tally.h"

/// Does `work(model)`, which returns a Tally, for the file. One that cannot be opened, or is too much for the machine,
/// is complained of and handed to `failure(name, reason)`.
template <class Work, class Failure>
Tally handle_file(const std::string& name, Work work, Failure failure) {
  const auto fail = [&](const std::string& reason) {
    complain(name, reason);
    failure(name, reason);
    Tally tally;
    tally.status = exit_failed;
    tally.failure = reason;
    return tally;
  };
  try {
    Model model(name);
    const std::string error = model.open_error();
    return error.empty() ? work(model) : fail(error);
  } catch (const std::bad_alloc&) {
    return fail("out of memory");
  } catch (const std::exception& exception) {
    return fail(exception.what());
  }
}

/// Does `work(model)`, which returns an ExitStatus, for one file after the other, none of which stops the others.
/// Returns the highest status.
template <class Work, class Failure>
int for_each_file(const std::vector<std::string>& names, Work work, Failure failure) {
  const auto tallied = [&work](Model& model) {
    Tally tally;
    tally.status = work(model);
    return tally;
  };
  int status = exit_clean;
  for (const std::string& name : names) {
    status = std::max(status, handle_file(name, tallied, failure).status);
    if (!flush_output()) return exit_failed;
  }
  return status;
}
