#pragma once

/// What the program's exit status says. The values never change. Of several files the highest wins.
enum ExitStatus : int {
  exit_clean = 0,   ///< no error is left
  exit_errors = 1,  ///< errors are left
  exit_failed = 2   ///< a file could not be opened, read to its end or written, or the call is wrong
};
