#pragma once

#include <algorithm>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "exit_status.h"
#include "report.h"

/// Does `work(name)`, which returns an ExitStatus, for one file after the other. A file that cannot be opened, and one
/// that is too much for the machine, is complained of, handed to `failure(name, reason)` and never stops the others.
/// Returns the highest status.
template <class Work, class Failure>
int for_each_file(const std::vector<std::string>& names, Work work, Failure failure) {
  int status = exit_clean;
  for (const std::string& name : names) {
    const auto fail = [&](const std::string& reason) {
      complain(name, reason);
      failure(name, reason);
      status = exit_failed;
    };
    try {
      Model model(name);
      const std::string error = model.open_error();
      error.empty() ? static_cast<void>(status = std::max(status, work(model))) : fail(error);
    } catch (const std::bad_alloc&) {
      fail("out of memory");
    } catch (const std::exception& exception) {
      fail(exception.what());
    }
    if (!flush_output()) return exit_failed;
  }
  return status;
}
