#pragma once

/// Does what the call asks for, or complains of the call. Returns an ExitStatus.
int run_command_line(int argc, char** argv);
