#pragma once

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <istream>
#include <string>
#include <string_view>

#include "bench.h"

/// What the benchmark programs share.
namespace igs_bench {

/// Something to time over a file or a folder.
struct Step {
  const char* name;
  void (*time)(benchmark::State&, const Input&);
  bool prepares = false;  ///< every iteration has to read the files first, which is not timed but takes time
};

/// As many as handle about 200 MB.
inline std::int64_t iterations_for(const std::filesystem::path& path) {
  const double size = std::filesystem::is_directory(path) ? 1e8 : static_cast<double>(std::filesystem::file_size(path));
  return static_cast<std::int64_t>(std::clamp(2e8 / std::max(size, 1.), 1., 100.));
}

inline void set_rates(benchmark::State& state, const Input& input, const char* unit, std::int64_t count) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(input.size()));
  state.counters["bytes"] = static_cast<double>(input.size());
  const auto number = static_cast<double>(count);
  state.counters[unit] = number;
  state.counters[std::string(unit) + "/s"] = benchmark::Counter(number, benchmark::Counter::kIsIterationInvariantRate);
}

/// Hands every number of a Parameter Data record to `convert(first, last)`, which tells where it ends.
template <class Convert>
void convert_fields(std::string_view data, const Convert& convert) {
  const char* position = data.data();
  const char* const end = position + data.size();
  while (position < end) {
    position = convert(position, end);
    while (position < end && *position != ',' && *position != ';') ++position;
    ++position;
  }
}

/// No reader can go below: the ends of the lines are found and every number of the Parameter Data section is converted
/// and kept in no object.
inline void time_floor(benchmark::State& state, const Input& input) {
  std::int64_t count = 0;
  for (auto _ : state) {
    double sum = 0;
    count = 0;
    for (const std::string& text : input.texts) {
      for_each_line(text, [&](std::string_view line) {
        convert_fields(parameter_data(line), [&](const char* first, const char* last) {
          double value = 0;
          const std::from_chars_result result = std::from_chars(first, last, value);
          sum += value;
          count += result.ec == std::errc() ? 1 : 0;
          return result.ec == std::errc() ? result.ptr : first + 1;
        });
      });
    }
    benchmark::DoNotOptimize(sum);
  }
  set_rates(state, input, "fields", count);
}

/// What one would write first: std::getline and strtod.
inline void time_plain(benchmark::State& state, const Input& input) {
  std::int64_t count = 0;
  for (auto _ : state) {
    double sum = 0;
    count = 0;
    for (const std::string& text : input.texts) {
      TextBuffer buffer(text);
      std::istream in(&buffer);
      for (std::string line; std::getline(in, line);) {
        line.resize(parameter_data(line).size());  // strtod would read the back-pointer behind blanks
        convert_fields(line, [&](const char* first, const char*) {
          char* end = nullptr;
          sum += std::strtod(first, &end);
          count += end != first ? 1 : 0;
          return static_cast<const char*>(end);
        });
      }
    }
    benchmark::DoNotOptimize(sum);
  }
  set_rates(state, input, "fields", count);
}

/// Times the steps over the files and folders of the command line.
inline int run(int argc, char** argv, std::initializer_list<Step> steps) {
  benchmark::Initialize(&argc, argv);
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s [BENCHMARK-OPTION...] FILE-OR-FOLDER...\n", argv[0]);
    return 2;
  }
  for (int i = 1; i < argc; ++i) {
    const std::string path = argv[i];
    for (const Step& step : steps) {
      const std::string name = std::string(step.name) + '/' + std::filesystem::path(path).filename().string();
      auto* const made = benchmark::RegisterBenchmark(
          name.c_str(), [step, path](benchmark::State& state) { step.time(state, input_of(path)); });
      made->Unit(benchmark::kMillisecond);
      if (step.prepares) made->Iterations(iterations_for(path));
    }
  }
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}

}  // namespace igs_bench
