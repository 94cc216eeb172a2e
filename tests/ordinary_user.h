#pragma once

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

namespace igs_test {

/// Runs `work`, which returns an exit status, in a process whose user is bound by the permissions of files, even where
/// the tests are run by root. Returns that status; 255 when there is no such process or it was killed.
template <class Work>
int as_ordinary_user(Work work) {
  constexpr int failed = 255;
  constexpr unsigned nobody = 65534;
  const pid_t child = fork();
  if (child < 0) return failed;
  if (child == 0) {
    const bool is_bound = geteuid() != 0 || (setgroups(0, nullptr) == 0 && setgid(nobody) == 0 && setuid(nobody) == 0);
    _exit(is_bound ? work() : failed);
  }
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : failed;
}

}  // namespace igs_test
