// Times the fields of the Parameter Data sections of files, all of them decoded as reals and kept in no object. Beside
// that, the floor and the plain way (programs.h).
//   igs_field_bench [BENCHMARK-OPTION...] FILE-OR-FOLDER...
#include "igs/input/igsInStream.h"
#include "programs.h"

namespace {

// Every field takes a column at least, or the reader stands still at a boundary, which reset() steps over.
std::int64_t decode_all(const std::string& text, double& sum) {
  igs_bench::TextBuffer buffer(text);
  std::istream in(&buffer);
  igsInStream fields(in);
  std::int64_t count = 0;
  for (; fields.fatal_error() == 0; fields.reset()) {
    if (fields.in_section(igsParameterSectionId) == 0) fields.skip_line();
    for (; fields.in_section(igsParameterSectionId) != 0; ++count) {
      double value = 0;
      fields.read_double(value);
      sum += value;
    }
  }
  return count;
}

void time_fields(benchmark::State& state, const igs_bench::Input& input) {
  std::int64_t count = 0;
  for (auto _ : state) {
    double sum = 0;
    count = 0;
    for (const std::string& text : input.texts) count += decode_all(text, sum);
    benchmark::DoNotOptimize(sum);
  }
  igs_bench::set_rates(state, input, "fields", count);
}

}  // namespace

int main(int argc, char** argv) {
  using igs_bench::time_floor, igs_bench::time_plain;
  return igs_bench::run(argc, argv, {{"floor", time_floor}, {"plain", time_plain}, {"fields", time_fields}});
}
