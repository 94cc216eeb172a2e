// Times reading, checking, cleaning and writing of whole files. Beside that, the floor that no reader can go below, and
// the plain way (programs.h).
//
//   igs_file_bench [BENCHMARK-OPTION...] FILE-OR-FOLDER...
//
// Files are held in memory, so that no disk is timed. `bytes_per_second` counts the bytes of the file read, also for
// check, clean and write. `peak` is the most memory that reading has needed, in bytes, the file itself and the program
// not counted; not given of folders.

#include <sys/wait.h>
#include <unistd.h>

#include "programs.h"

namespace {

using igs_bench::Files;
using igs_bench::Input;
using igs_bench::num_entities;
using igs_bench::read;
using igs_bench::read_all;

/// A figure of /proc/self/status in bytes; 0 where there is no such file.
std::size_t memory(std::string_view label) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(label)) return std::stoul(line.substr(label.size())) * 1024;
  }
  return 0;
}

constexpr std::size_t warm_up_size = 20000;

/// What the process of peak_memory() does: prints the peak of reading a file.
int print_peak_memory(const char* path) {
  const Input input(path);
  read(input.texts.front().substr(0, warm_up_size));  // the program's own pages do not count
  std::ofstream("/proc/self/clear_refs") << "5";      // the peak starts anew
  const std::size_t before = memory("VmRSS:");
  for (const std::string& text : input.texts) read(text);
  std::cout << memory("VmHWM:") - before << std::endl;
  return 0;
}

/// In a process of its own, whose memory nothing has been through yet.
double peak_memory(const Input& input) {
  int channel[2] = {};
  if (pipe(channel) != 0) return 0;
  const pid_t child = fork();
  if (child == 0) {
    dup2(channel[1], STDOUT_FILENO);
    execl("/proc/self/exe", "igs_file_bench", "--peak", input.path.c_str(), nullptr);
    _exit(1);
  }
  close(channel[1]);
  char text[32] = {};
  const ssize_t size = child > 0 ? ::read(channel[0], text, sizeof text - 1) : 0;
  if (child > 0) waitpid(child, nullptr, 0);
  close(channel[0]);
  return size > 0 ? std::strtod(text, nullptr) : 0;
}

/// What is timed has to be right: a file is read whole, and what is written of it reads back with as many entities. A
/// folder may hold any files.
bool is_handled_rightly(const Input& input) {
  if (input.texts.size() != 1) return !input.texts.empty();
  const std::unique_ptr<igsFile> file = read(input.texts[0], true);
  if (file == nullptr || file->num_entities() == 0) return false;
  std::ostringstream out;
  utOstream messages(std::cerr);
  if (file->write(out, messages) == 0) return false;
  const std::unique_ptr<igsFile> copy = read(out.str(), true);
  return copy != nullptr && copy->num_entities() == file->num_entities();
}

void time_read(benchmark::State& state, const Input& input) {
  static std::string known;  // asked once a file, not once a repetition
  static double peak = 0;
  if (known != input.path) {
    if (!is_handled_rightly(input)) return state.SkipWithError("cannot be read and written whole");
    known = input.path;
    peak = peak_memory(input);
  }
  std::int64_t count = 0;
  for (auto _ : state) {
    Files files = read_all(input);
    state.PauseTiming();  // what a file costs to delete is not asked
    count = num_entities(files);
    files.clear();
    state.ResumeTiming();
  }
  set_rates(state, input, "entities", count);
  if (input.texts.size() == 1) state.counters["peak"] = peak;
}

void time_check(benchmark::State& state, const Input& input) {
  const Files files = read_all(input);
  for (auto _ : state) {
    for (const auto& file : files) file->check();
  }
  set_rates(state, input, "entities", num_entities(files));
}

void time_clean(benchmark::State& state, const Input& input) {
  std::int64_t count = 0;
  for (auto _ : state) {
    state.PauseTiming();  // a file that is clean already would be another task
    Files files = read_all(input);
    count = num_entities(files);
    state.ResumeTiming();
    for (const auto& file : files) file->clean(0);
    state.PauseTiming();
    files.clear();
    state.ResumeTiming();
  }
  set_rates(state, input, "entities", count);
}

void time_write(benchmark::State& state, const Input& input) {
  const Files files = read_all(input);
  utOstream messages(std::cerr);
  for (auto _ : state) {
    for (const auto& file : files) {
      igs_bench::NullBuffer buffer;
      std::ostream out(&buffer);
      if (file->write(out, messages) == 0) state.SkipWithError("write failed");
    }
  }
  set_rates(state, input, "entities", num_entities(files));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "--peak") return print_peak_memory(argv[2]);
  return igs_bench::run(argc, argv,
                        {{"floor", igs_bench::time_floor},
                         {"plain", igs_bench::time_plain},
                         {"read", time_read},
                         {"check", time_check},
                         {"clean", time_clean, true},
                         {"write", time_write}});
}
