// Times the records of files: all of them are read and checked, none of their fields is decoded. Beside that, getline.
//   igs_record_bench [BENCHMARK-OPTION...] FILE-OR-FOLDER...
#include "igs/input/igsInBuffer.h"
#include "programs.h"

namespace {

void time_records(benchmark::State& state, const igs_bench::Input& input) {
  std::int64_t count = 0;
  for (auto _ : state) {
    count = 0;
    for (const std::string& text : input.texts) {
      igs_bench::TextBuffer buffer(text);
      std::istream in(&buffer);
      igsInBuffer records(in);
      for (; records.fatal_error() == 0; ++count) records.skip_line();
    }
  }
  igs_bench::set_rates(state, input, "records", count);
}

void time_lines(benchmark::State& state, const igs_bench::Input& input) {
  std::int64_t count = 0;
  for (auto _ : state) {
    count = 0;
    for (const std::string& text : input.texts) {
      igs_bench::TextBuffer buffer(text);
      std::istream in(&buffer);
      for (std::string line; std::getline(in, line); ++count) benchmark::DoNotOptimize(line.data());
    }
  }
  igs_bench::set_rates(state, input, "records", count);
}

}  // namespace

int main(int argc, char** argv) {
  return igs_bench::run(argc, argv, {{"getline", time_lines}, {"records", time_records}});
}
