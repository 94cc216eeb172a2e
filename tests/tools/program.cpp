#include "tools/program.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "igs/support/ubFStream.h"

namespace igs_test {

namespace {

fs::path new_folder() {
  const fs::path name = klu_make_temp_file_name("");
  fs::remove(name);
  fs::create_directory(name);
  return name;
}

// A sanitizer's report must not pass for an exit status of the program.
constexpr const char* environment =
    "export ASAN_OPTIONS=exitcode=99 UBSAN_OPTIONS=exitcode=99:print_stacktrace=1 LC_ALL=C IGS=" IGS_PROGRAM "; ";

}  // namespace

std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char c : text) result += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return result + "'";
}

std::string read_file(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) ADD_FAILURE() << "cannot read " << path;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void write_file(const fs::path& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary);
  out << bytes;
  if (!out.flush()) ADD_FAILURE() << "cannot write " << path;
}

std::string example(const std::string& name) { return std::string(IGS_ROOT "/examples/") + name; }

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> classes_of(const Json& errors) {
  std::vector<std::string> classes;
  for (const Json& error : errors) classes.push_back(error.at("class"));
  std::sort(classes.begin(), classes.end());
  return classes;
}

std::vector<Json> objects_of(const std::string& out) {
  std::vector<Json> objects;
  for (const std::string& line : lines_of(out)) {
    EXPECT_TRUE(std::all_of(line.begin(), line.end(), [](char c) { return c >= ' ' && c <= '~'; })) << line;
    objects.push_back(Json::parse(line));
  }
  return objects;
}

Json only_object(const std::string& out) {
  const std::vector<Json> objects = objects_of(out);
  EXPECT_EQ(objects.size(), 1U) << out;
  return objects.empty() ? Json::object() : objects.front();
}

ProgramTest::ProgramTest() : m_folder(new_folder()), m_streams(new_folder()) {}

ProgramTest::~ProgramTest() {
  fs::remove_all(m_folder);
  fs::remove_all(m_streams);
}

Outcome ProgramTest::igs(const Arguments& arguments, const std::string& input) {
  std::string command = "exec \"$IGS\"";
  for (const std::string& argument : arguments) command += ' ' + quoted(argument);
  return shell(command, input);
}

Outcome ProgramTest::shell(const std::string& command, const std::string& input) {
  const std::string in = m_streams / "in";
  const std::string out = m_streams / "out";
  const std::string err = m_streams / "err";
  write_file(in, input);
  // NOLINTNEXTLINE(cert-env33-c,concurrency-mt-unsafe): the shell is wanted here
  const int result = std::system((std::string(environment) + "cd " + quoted(m_folder) + " && ( " + command + " ) <" +
                                  in + " >" + out + " 2>" + err)
                                     .c_str());
  return {WIFEXITED(result) ? WEXITSTATUS(result) : 128 + WTERMSIG(result), read_file(out), read_file(err)};
}

std::string ProgramTest::file(const std::string& name, const std::string& bytes) {
  write_file(m_folder / name, bytes);
  return name;
}

std::vector<std::string> ProgramTest::files() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(m_folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace igs_test
