// Times what igs::shape does with whole files, beside reading them.
//
//   igs_shape_bench [BENCHMARK-OPTION...] FILE-OR-FOLDER...
//
// Files are held in memory. All is done on one thread.

#include "igs/shape/igsShape.h"
#include "programs.h"

namespace {

using igs_bench::Files;
using igs_bench::Input;
using igs_bench::num_entities;
using igs_bench::read_all;

void time_read(benchmark::State& state, const Input& input) {
  Files files;
  for (auto _ : state) {
    files = read_all(input);
    state.PauseTiming();  // what a file costs to delete is not asked
    const std::int64_t count = num_entities(files);
    files.clear();
    state.counters["entities"] = static_cast<double>(count);
    state.ResumeTiming();
  }
  state.counters["bytes"] = static_cast<double>(input.size());
}

void time_check(benchmark::State& state, const Input& input) {
  const Files files = read_all(input);
  for (const auto& file : files) file->check();
  int errors = 0;
  for (auto _ : state) {
    errors = 0;
    for (const auto& file : files) errors += igsShapeCheck(*file);
  }
  set_rates(state, input, "errors", errors);
}

void time_measure(benchmark::State& state, const Input& input) {
  const Files files = read_all(input);
  int faces = 0;
  for (auto _ : state) {
    faces = 0;
    for (const auto& file : files) faces += igs_measure(*file).faces;
  }
  set_rates(state, input, "faces", faces);
}

void time_mesh(benchmark::State& state, const Input& input) {
  const Files files = read_all(input);
  std::size_t triangles = 0;
  for (auto _ : state) {
    triangles = 0;
    for (const auto& file : files) {
      const igsShapeModel model(*file);
      for (const igsShapeMesh& mesh : igs_meshes(model, {})) triangles += mesh.triangles.size();
    }
  }
  set_rates(state, input, "triangles", static_cast<std::int64_t>(triangles));
}

}  // namespace

int main(int argc, char** argv) {
  return igs_bench::run(argc, argv,
                        {{"read", time_read}, {"check", time_check}, {"measure", time_measure}, {"mesh", time_mesh}});
}
