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
#if defined(_WIN32)
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO}) _setmode(descriptor, _O_BINARY);
#else
  // A reader that goes away is a write error like any other, so that temporary files are removed.
  std::signal(SIGPIPE, SIG_IGN);  // NOLINT(cert-err33-c): without it the default holds
#endif
  try {
    return run_command_line(argc, argv);
  } catch (const std::exception& error) {
    std::cerr << "igs: " << error.what() << std::endl;
    return exit_failed;
  }
}
