#pragma once

#include <array>
#include <cstddef>
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

// Large files that are meant to hurt, as texts.
namespace igs_test {

/// Puts together a file of a great many entities; quick, and no more than the text in memory.
class HostileText {
 public:
  /// Adds an entity; returns its DE number. `data` starts with the type number and ends with the delimiter.
  int add(int type, std::string_view data, int form = 0, int matrix = 0) {
    constexpr std::size_t data_columns = 64;
    const int de = 2 * m_entities++ + 1, first_line = m_lines + 1;
    while (!data.empty()) {
      std::size_t length = data.size();
      if (length > data_columns) length = data.find_last_of(",;", data_columns - 1) + 1;
      append(m_data, "%-64.*s %7dP%7d\n", static_cast<int>(length), data.data(), de, ++m_lines);
      data.remove_prefix(length);
    }
    append(m_directory, "%8d%8d%8d%8d%8d%8d%8d%8d%8sD%7d\n", type, first_line, 0, 0, 0, 0, matrix, 0, "00000000", de);
    append(m_directory, "%8d%8d%8d%8d%8d%16s%8s%8dD%7d\n", type, 0, 0, m_lines - first_line + 1, form, "", "", 0,
           de + 1);
    return de;
  }
  int next_de() const { return 2 * m_entities + 1; }

  std::string text() const {
    constexpr std::array<const char*, 3> global = {
        "1H,,1H;,4Htest,8Htest.igs,5Hmaker,3H1.0,32,38,6,308,15,4Htest,1.,2,", "2HMM,1,0.,15H20200102.030405,1.D-6,",
        "1000.,6Hauthor,3Horg,11,0,15H20200102.030405;"};
    std::string text;
    append(text, "%-72sS%7d\n", "A file made for a test.", 1);
    for (int line = 0; const char* const fields : global) append(text, "%-72sG%7d\n", fields, ++line);
    text += m_directory;
    text += m_data;
    append(text, "S%7dG%7dD%7dP%7d%40sT%7d\n", 1, static_cast<int>(global.size()), 2 * m_entities, m_lines, "", 1);
    return text;
  }

 private:
  template <class... Values>
  static void append(std::string& text, const char* format, Values... values) {
    std::array<char, 128> line{};
    const int length = std::snprintf(line.data(), line.size(), format, values...);
    text.append(line.data(), static_cast<std::size_t>(length));
  }

  int m_entities = 0;
  int m_lines = 0;
  std::string m_directory, m_data;
};

inline std::string repeated(std::string_view piece, int count) {
  std::string text;
  text.reserve(piece.size() * static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) text += piece;
  return text;
}

/// `count` entities that are all the same.
inline std::string many(int type, std::string_view data, int form, int count) {
  HostileText file;
  for (int i = 0; i < count; ++i) file.add(type, data, form);
  return file.text();
}

/// A sound first entity (DE 1), then one whose list has `count` times the fields `piece`.
inline std::string one_list(int type, int form, const std::string& head, std::string_view piece, int count,
                            std::string_view first = "110,0.,0.,0.,1.,1.,1.;") {
  HostileText file;
  const int first_type = std::stoi(std::string(first.substr(0, 3)));
  file.add(first_type, first, first_type == 106 ? 2 : 0);
  std::string data = head + repeated(piece, count);
  data.back() = ';';
  file.add(type, data, form);
  return file.text();
}

/// A chain of references, one entity to the next; the last one refers to the first where `is_cycle`.
struct Chain {
  const char* name;
  void (*add)(HostileText& file, int next);
};

inline std::string chain_text(const Chain& chain, int length, bool is_cycle) {
  HostileText file;
  for (int i = 1; i <= length; ++i) {
    const int last = is_cycle ? 1 : 0;
    chain.add(file, i == length ? last : -1);
  }
  return file.text();
}

}  // namespace igs_test
