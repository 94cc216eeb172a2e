#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// A progress line on standard error while one large file is worked on. Silent when standard error is no terminal and
/// for small files. One at a time.
class Progress {
 public:
  /// `size` in bytes, 0 when it is not known.
  Progress(const std::string& name, std::uintmax_t size);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { end(); }

  /// Says what is being done from now on: "checking".
  void stage(const char* activity) const;
  /// Removes the line.
  void end() const;
  /// Removes the line, if one is shown, until there is something new to say: other text is about to be written.
  static void interrupt();

 private:
  static void record_read();
  void show(const std::string& state) const;

  std::string m_name;
  std::uintmax_t m_size;
  std::uintmax_t m_records = 0;
};

/// The line while several files are worked on at the same time: "3 of 12 files done". There is no Progress meanwhile.
class FilesProgress {
 public:
  explicit FilesProgress(std::size_t total);
  ~FilesProgress();
  FilesProgress(const FilesProgress&) = delete;
  FilesProgress& operator=(const FilesProgress&) = delete;

  void show(std::size_t done) const;
  /// Removes the line: other text is about to be written.
  void hide() const;

 private:
  std::size_t m_total;
  bool m_is_on;
};
