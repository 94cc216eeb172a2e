#include "igs/file/private/igsStringCounts.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace {

class CountedFields {
 public:
  CountedFields(utString& text, char parameter_delimiter, char record_delimiter, const std::vector<igsFieldKind>& kinds)
      : m_text(text), m_delimiters{parameter_delimiter, record_delimiter}, m_kinds(kinds) {}

  std::vector<int> correct() {
    std::vector<int> corrected;
    std::size_t begin = 0;
    for (std::size_t n = 0; n < m_kinds.size() && begin < m_text.size(); ++n) {
      begin = std::min(m_text.find_first_not_of(' ', begin), m_text.size());
      if (const std::size_t string = head(begin); string != 0 && !ends_at_delimiter(begin)) {
        if (correct_count(begin, string, n)) corrected.push_back(static_cast<int>(n) + 1);
      }
      const std::size_t end = end_of_field(begin);
      if (end == m_text.size() || m_text[end] == m_delimiters[1]) break;
      begin = end + 1;
    }
    return corrected;
  }

 private:
  std::string_view delimiters() const { return {m_delimiters, 2}; }

  /// Length of the count and the H of the string that begins here; 0 where none does.
  std::size_t head(std::size_t begin) const {
    const std::size_t h = m_text.find_first_not_of("0123456789", begin);
    return h != utString::npos && h > begin && (m_text[h] == 'H' || m_text[h] == 'h') ? h + 1 - begin : 0;
  }
  /// The position behind the counted characters of a string, or the field's begin.
  std::size_t behind_string(std::size_t begin) const {
    const std::size_t string = head(begin);
    if (string == 0) return begin;
    const std::string_view counted = igsFieldTexts::string(std::string_view(m_text).substr(begin));
    return begin + string + counted.size();
  }
  std::size_t end_of_field(std::size_t begin) const {
    return std::min(m_text.find_first_of(delimiters(), behind_string(begin)), m_text.size());
  }
  bool ends_at_delimiter(std::size_t begin) const {
    const std::size_t next = m_text.find_first_not_of(' ', behind_string(begin));
    return next != utString::npos && delimiters().find(m_text[next]) != std::string_view::npos;
  }

  /// How many of the fields from `begin` on, the first being that of `kinds[n]`, are what they have to be.
  int num_fitting(std::size_t begin, std::size_t n) const {
    int fitting = 0;
    for (; n < m_kinds.size() && begin < m_text.size(); ++n) {
      begin = std::min(m_text.find_first_not_of(' ', begin), m_text.size());
      const std::size_t end = end_of_field(begin);
      const utString field = m_text.substr(begin, end - begin);
      const igsFieldKind kind = igsFieldTexts::kind(field.substr(0, field.find_last_not_of(' ') + 1));
      const bool fits = kind == m_kinds[n] || (m_kinds[n] == igsFieldKind::real && kind == igsFieldKind::integer);
      fitting += fits && (head(begin) == 0 || ends_at_delimiter(begin)) ? 1 : 0;
      if (end == m_text.size() || m_text[end] == m_delimiters[1]) break;
      begin = end + 1;
    }
    return fitting;
  }

  bool correct_count(std::size_t begin, std::size_t head, std::size_t n) {
    constexpr int most_candidates = 32;
    int best_fitting = num_fitting(end_of_field(begin) + 1, n + 1);
    std::size_t best_end = 0;
    std::size_t end = begin + head;
    for (int i = 0; i < most_candidates; ++i, ++end) {
      end = m_text.find_first_of(delimiters(), end);
      if (end == utString::npos) break;
      const int fitting = num_fitting(end + 1, n + 1);
      if (fitting > best_fitting) best_fitting = fitting, best_end = end;
    }
    if (best_end == 0) return false;
    m_text.replace(begin, head, std::to_string(best_end - begin - head) + 'H');
    return true;
  }

  utString& m_text;
  char m_delimiters[2];
  const std::vector<igsFieldKind>& m_kinds;
};

}  // namespace

std::vector<int> igs_correct_string_counts(utString& text, char parameter_delimiter, char record_delimiter,
                                           const std::vector<igsFieldKind>& kinds) {
  constexpr std::size_t longest = 65536;  // no Global section is as long
  if (text.size() > longest) return {};
  return CountedFields(text, parameter_delimiter, record_delimiter, kinds).correct();
}
