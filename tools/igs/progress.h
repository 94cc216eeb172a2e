#pragma once

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

 private:
  static void record_read();
  void show(const std::string& state) const;

  std::string m_name;
  std::uintmax_t m_size;
  std::uintmax_t m_records = 0;
};
