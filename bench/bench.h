#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

#include "igs/igs.h"
#include "igs/input/private/record.h"

/// What the programs of this folder share.
namespace igs_bench {

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

inline std::string contents(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return std::move(text).str();
}

/// A file, or all files of a folder, held in memory, so that no disk is timed.
struct Input {
  std::string path;
  std::vector<std::string> texts;

  explicit Input(const std::filesystem::path& path) : path(path.string()) {
    if (!std::filesystem::is_directory(path)) {
      texts.push_back(contents(path));
      return;
    }
    std::vector<std::filesystem::path> paths;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
      if (entry.is_regular_file()) paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    for (const auto& p : paths) texts.push_back(contents(p));
  }
  std::size_t size() const {
    std::size_t sum = 0;
    for (const std::string& text : texts) sum += text.size();
    return sum;
  }
};

/// The file of a path, or the folder's; the one asked for last is kept.
inline const Input& input_of(const std::string& path) {
  static std::string kept_path;
  static std::unique_ptr<Input> kept;
  if (kept == nullptr || kept_path != path) {
    kept.reset();
    kept = std::make_unique<Input>(path);
    kept_path = path;
  }
  return *kept;
}

/// The file as far as it can be read; null when that is not to its end and `whole` is set.
inline std::unique_ptr<igsFile> read(const std::string& text, bool whole = false) {
  TextBuffer buffer(text);
  std::istream in(&buffer);
  NullBuffer null;
  std::ostream nowhere(&null);
  utOstream messages(nowhere);
  auto file = std::make_unique<igsFile>();
  const int was_read = file->read(in, messages);
  return was_read != 0 || !whole ? std::move(file) : nullptr;
}

using Files = std::vector<std::unique_ptr<igsFile>>;

inline Files read_all(const Input& input) {
  Files files;
  for (const std::string& text : input.texts) files.push_back(read(text));
  return files;
}

inline std::int64_t num_entities(const Files& files) {
  std::int64_t sum = 0;
  for (const auto& file : files) sum += file->num_entities();
  return sum;
}

/// Hands every line to `visit`, without its line end.
template <class Visit>
void for_each_line(const std::string& text, const Visit& visit) {
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    visit(std::string_view(text.data() + start, end - start));
    start = end + 1;
  }
}

/// The data columns of a Parameter Data record; empty for any other line.
inline std::string_view parameter_data(std::string_view line) {
  const bool is_parameter_data = line.size() >= record_length && line[data_columns] == 'P';
  return line.substr(0, is_parameter_data ? pd_data_columns : 0);
}

}  // namespace igs_bench
