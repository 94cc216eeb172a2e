#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

/// What the end-to-end tests share: running the program and reading its output.
namespace igs_test {

using Json = nlohmann::ordered_json;
using Arguments = std::vector<std::string>;
namespace fs = std::filesystem;

struct Outcome {
  int status;  ///< exit status; 128 + the number of the signal that ended the program
  std::string out, err;
};

/// `text` for a shell.
std::string quoted(const std::string& text);
std::string read_file(const fs::path& path);
void write_file(const fs::path& path, const std::string& bytes);
/// A file of examples/.
std::string example(const std::string& name);
std::vector<std::string> lines_of(const std::string& text);
/// The "class" of every error of a JSON list, sorted.
std::vector<std::string> classes_of(const Json& errors);
/// The only object of a JSON output.
Json only_object(const std::string& out);
/// All objects of a JSON output. A line that is no JSON, or not plain ASCII, fails the test.
std::vector<Json> objects_of(const std::string& out);

/// Tests that run the program get a folder of their own, which is removed afterwards.
class ProgramTest : public testing::Test {
 protected:
  ProgramTest();
  ~ProgramTest() override;

  /// Runs the program in the test's folder.
  Outcome igs(const Arguments& arguments, const std::string& input = "");
  /// Runs a shell command there, in which $IGS stands for the program.
  Outcome shell(const std::string& command, const std::string& input = "");
  /// Makes a file in the folder.
  std::string file(const std::string& name, const std::string& bytes);
  fs::path folder() const { return m_folder; }
  /// The names of the files in the folder, sorted.
  std::vector<std::string> files() const;

 private:
  fs::path m_folder;
  fs::path m_streams;
};

}  // namespace igs_test
