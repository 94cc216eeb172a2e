// Does one thing to a file, for a tool that counts the instructions of a run:
//   igs_count none|read|check|write FILE
//   igs_count compiler
// Everything includes what comes before it, so the differences are what each step takes. Prints the number of entities.
// The second form names the compiler, which decides the figures.
#include <array>
#include <cstdlib>
#include <cstring>

#include "bench.h"

namespace {

constexpr const char* architecture =
#if defined(__x86_64__)
    "x86_64";
#elif defined(__aarch64__)
    "aarch64";
#else
    "other";
#endif

// The first words of what the compiler says of itself: "g++ 12.2.0", "Clang 14.0.6".
std::string compiler() {
  std::istringstream words(__VERSION__);
  std::string name, version;
  words >> name >> version;
  return (version.empty() ? "g++ " + name : name + ' ' + version) + ' ' + architecture;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], "compiler") == 0) {
    std::cout << compiler() << '\n';
    return 0;
  }
  constexpr std::array<const char*, 4> steps = {"none", "read", "check", "write"};
  std::size_t step = 0;
  while (argc == 3 && step < steps.size() && std::strcmp(argv[1], steps[step]) != 0) ++step;
  if (argc != 3 || step == steps.size()) {
    std::cerr << "usage: igs_count none|read|check|write FILE | compiler\n";
    return 2;
  }
  const std::string text = igs_bench::contents(argv[2]);
  const std::unique_ptr<igsFile> file = step > 0 ? igs_bench::read(text, true) : std::make_unique<igsFile>();
  if (file == nullptr) return 1;
  if (step > 1) file->check();
  if (step > 2) {
    igs_bench::NullBuffer buffer;
    std::ostream out(&buffer);
    utOstream messages(std::cerr);
    if (file->write(out, messages) == 0 || buffer.size() == 0) return 1;
  }
  std::cout << file->num_entities() << '\n' << std::flush;
  std::_Exit(0);  // what the file costs to delete is not counted
}
