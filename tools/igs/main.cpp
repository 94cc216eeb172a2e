#include <csignal>
#include <exception>
#include <iostream>
#if defined(_WIN32)
#include <fcntl.h>
#include <unistd.h>
#endif

#include "command_line/command_line.h"
#include "files/exit_status.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::cin.tie(nullptr);  // reading it on one thread would flush what another writes
#if defined(_WIN32)
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO}) _setmode(descriptor, _O_BINARY);
#else
  // Where the reader of a report goes away, no one is left to complain to, whatever the caller does with the signal.
  std::signal(SIGPIPE, SIG_DFL);  // NOLINT(cert-err33-c): without it there is a complaint
#endif
  try {
    return run_command_line(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "igs: " << error.what() << std::endl;
    return exit_failed;
  }
}
