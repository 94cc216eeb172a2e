// Times reading, checking and writing of whole files, and the floor that no reader can go below: finding the ends of
// the lines and converting every number of the Parameter Data section, which is kept in no object.
//
//   igs_file_bench [BENCHMARK-OPTION...] FILE...
//
// Each figure is for one file, held in memory, so that no disk is timed. `bytes_per_second` counts the bytes of the
// file read, also for check and write. `peak/file` is the most memory that a read has needed, over the file's size, the
// file itself not counted.

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>

#include "igs/igs.h"
#include "igs/input/record.h"

namespace {

/// Reads from a text without a copy.
class TextBuffer : public std::streambuf {
 public:
  explicit TextBuffer(const std::string& text) {
    char* const begin = const_cast<char*>(text.data());  // never written to
    setg(begin, begin, begin + text.size());
  }
};

/// Counts what is written and keeps nothing.
class NullBuffer : public std::streambuf {
 public:
  std::size_t size() const { return m_size; }

 protected:
  int overflow(int c) override { return ++m_size, traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize count) override {
    m_size += static_cast<std::size_t>(count);
    return count;
  }

 private:
  std::size_t m_size = 0;
};

/// A figure of /proc/self/status in bytes; 0 where there is no such file.
std::size_t memory(std::string_view label) {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(label)) return std::stoul(line.substr(label.size())) * 1024;
  }
  return 0;
}

std::unique_ptr<igsFile> read(const std::string& text) {
  TextBuffer buffer(text);
  std::istream in(&buffer);
  utOstream messages(std::cerr);
  auto file = std::make_unique<igsFile>();
  return file->read(in, messages) == 1 ? std::move(file) : nullptr;
}

void set_rates(benchmark::State& state, const std::string& text, int num_entities) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * std::ssize(text));
  state.counters["entities/s"] =
      benchmark::Counter(static_cast<double>(num_entities), benchmark::Counter::kIsIterationInvariantRate);
}

void time_read(benchmark::State& state, const std::string& text) {
  int num_entities = 0;
  for (auto _ : state) {
    std::unique_ptr<igsFile> file = read(text);
    num_entities = file->num_entities();
    state.PauseTiming();  // what a file costs to delete is not asked
    file.reset();
    state.ResumeTiming();
  }
  set_rates(state, text, num_entities);
}

void time_check(benchmark::State& state, const std::string& text) {
  const std::unique_ptr<igsFile> file = read(text);
  for (auto _ : state) file->check();
  set_rates(state, text, file->num_entities());
}

void time_write(benchmark::State& state, const std::string& text) {
  const std::unique_ptr<igsFile> file = read(text);
  utOstream messages(std::cerr);
  for (auto _ : state) {
    NullBuffer buffer;
    std::ostream out(&buffer);
    if (file->write(out, messages) == 0) state.SkipWithError("write failed");
  }
  set_rates(state, text, file->num_entities());
}

/// Converts every number of a Parameter Data record; returns their sum, so that nothing is optimised away.
double sum_of_numbers(std::string_view data) {
  double sum = 0;
  const char* position = data.data();
  const char* const end = position + data.size();
  while (position < end) {
    double value = 0;
    const std::from_chars_result result = std::from_chars(position, end, value);
    sum += value;
    position = result.ec == std::errc() ? result.ptr : position + 1;
    while (position < end && *position != ',' && *position != ';') ++position;
    ++position;
  }
  return sum;
}

void time_floor(benchmark::State& state, const std::string& text) {
  for (auto _ : state) {
    double sum = 0;
    for (std::size_t start = 0; start < text.size();) {
      const std::size_t end = std::min(text.find('\n', start), text.size());
      const std::string_view record(text.data() + start, end - start);
      if (record.size() >= record_length && record[data_columns] == 'P') {
        sum += sum_of_numbers(record.substr(0, pd_data_columns));
      }
      start = end + 1;
    }
    benchmark::DoNotOptimize(sum);
  }
  set_rates(state, text, 0);
}

/// What is timed has to be right: the file is read whole, and what is written of it reads back with as many entities.
bool is_handled_rightly(const std::string& text) {
  const std::unique_ptr<igsFile> file = read(text);
  if (file == nullptr || file->num_entities() == 0) return false;
  std::ostringstream out;
  utOstream messages(std::cerr);
  if (file->write(out, messages) == 0) return false;
  const std::unique_ptr<igsFile> copy = read(out.str());
  return copy != nullptr && copy->num_entities() == file->num_entities();
}

std::string contents(const char* name) {
  std::ifstream in(name, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

/// In a process of its own, whose memory nothing has been through yet.
void print_peak_memory(const char* name) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) {
    const std::string text = contents(name);
    std::ofstream("/proc/self/clear_refs") << "5";  // the peak starts anew
    const std::size_t before = memory("VmRSS:");
    const bool was_read = read(text) != nullptr;
    const double peak = static_cast<double>(memory("VmHWM:") - before) / static_cast<double>(text.size());
    std::printf("%s: %s, peak memory of reading %.2f times its size\n", name, was_read ? "read" : "not read", peak);
    std::fflush(nullptr);
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

void register_file(const char* name, const std::string& text) {
  const std::string file = std::string(name).substr(std::string(name).find_last_of('/') + 1);
  struct Step {
    const char* name;
    void (*time)(benchmark::State&, const std::string&);
  };
  for (const Step& step :
       {Step{"floor/", time_floor}, {"read/", time_read}, {"check/", time_check}, {"write/", time_write}}) {
    benchmark::RegisterBenchmark((step.name + file).c_str(), step.time, text)
        ->Unit(benchmark::kMillisecond)
        ->MinTime(1);
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: igs_file_bench [BENCHMARK-OPTION...] FILE...\n");
    return 2;
  }
  for (int i = 1; i < argc; ++i) print_peak_memory(argv[i]);
  for (int i = 1; i < argc; ++i) {
    const std::string text = contents(argv[i]);
    if (!is_handled_rightly(text)) {
      std::fprintf(stderr, "igs_file_bench: %s cannot be read and written whole\n", argv[i]);
      return 1;
    }
    register_file(argv[i], text);
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
