// Reads, checks, prints, repairs and writes files on several threads, each with files of its own, then the same files
// on one thread: what comes of each file has to be the same, also where several threads make the triangles of one file.
// The threads are the first to use the library. The files are those of the folder that IGES_CORPUS names, or else of
// the folder given:
//   igs_thread_tests FOLDER

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <latch>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "igs/igs.h"
#include "igs/shape/igsShape.h"

namespace {

constexpr std::size_t num_threads = 8;
constexpr std::size_t longest_to_print = 200000;

thread_local std::size_t records_read = 0;
thread_local std::unique_ptr<igsFile> last_file;

/// A hash of all that is said of a file and written; 0 when it cannot be read.
std::size_t work_on(const std::filesystem::path& path, bool keep, int threads_of_file) {
  const auto bytes = std::filesystem::file_size(path);
  std::ifstream in(path, std::ios::binary);
  std::ostringstream out;
  utOstream messages(out);
  igsFile file;
  file.set_options({.keep = keep});
  records_read = 0;
  if (file.read(in, messages) == 0) return 0;
  out << records_read;
  file.check();
  for (int log = 0; log < igs_num_section_logs; ++log) {
    out << ' ' << file.error_log().get_section_log(static_cast<igsLogID>(log))->num_errors();
  }
  if (bytes <= longest_to_print) {
    file.print(messages);
    const igsShapeTolerance coarse{.chord = 1, .most = 1'000};
    for (const igsShapeMesh& mesh : igs_meshes(igsShapeModel(file), coarse, threads_of_file)) {
      out << ' ' << mesh.points.size() << ' ' << mesh.triangles.size() << ' ' << mesh.area;
    }
  }
  file.clean(1);
  out << file.write(out, messages);
  return std::hash<std::string>()(out.str());
}

using Results = std::vector<std::size_t>;

/// Works on each `step`th file from `first` on.
void work(const std::vector<std::filesystem::path>& paths, Results& results, std::size_t first, std::size_t step,
          int threads_of_file) {
  last_file.reset();  // noted before anything of the library is, therefore deleted after it
  igsInBuffer::set_line_read_callback([] { ++records_read; });
  for (std::size_t i = first; i < paths.size(); i += step) results[i] = work_on(paths[i], i % 2 == 1, threads_of_file);
}

/// Leaves an entity of the default file, and perhaps a file that goes very late. All has to go with the thread: the
/// leak sanitizer tells.
void leave_something(bool a_file_too) {
  new igs116;
  if (a_file_too) last_file = std::make_unique<igsFile>();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  ut_set_clock([] { return utDateTime{2025, 1, 2, 3, 4, 5}; });
  const char* const corpus = std::getenv("IGES_CORPUS");  // NOLINT(concurrency-mt-unsafe): there is one thread yet
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(corpus != nullptr && *corpus != 0 ? corpus : argv[1])) {
    if (entry.is_regular_file()) paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());

  Results at_once(paths.size()), one_by_one(paths.size());
  std::latch all_are_there(num_threads);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < num_threads; ++i) {
    threads.emplace_back([&, i] {
      all_are_there.arrive_and_wait();
      work(paths, at_once, i, num_threads, i % 2 == 0 ? 2 : 8);
      leave_something(i % 2 == 1);
    });
  }
  for (std::thread& thread : threads) thread.join();
  igsFilecoDynArr files;
  igsObjectSystem::get_all_files(files);
  bool is_as_expected = files.empty();
  work(paths, one_by_one, 0, 1, 1);

  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (at_once[i] == one_by_one[i]) continue;
    is_as_expected = false;
    std::cerr << paths[i].string() << ": differs between many threads and one\n";
  }
  const auto num_written = paths.size() - static_cast<std::size_t>(std::count(at_once.begin(), at_once.end(), 0U));
  std::cout << num_written << " of " << paths.size() << " files read and written on " << num_threads << " threads\n";
  return is_as_expected && num_written >= num_threads ? 0 : 1;
}
