// Records of damaged physical lines. An input that begins with "*" makes sound records of its bytes and damages them in
// ways that lose nothing: the same records have to come out. Any other input is a text:
//
//   - with and without shortcuts, at once and in pieces, the same records come out, and reading ends;
//   - a line that ends as a record ends comes out with its letter and number in their columns;
//   - the canonical records among them, read again, come out as they are;
//   - stepping from record to record, however the reader is frozen, meets the same codes at the same places, and ends.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "igs/input/igsInBuffer.h"
#include "igs/input/private/record.h"
#include "invariants.h"
#include "pieces.h"

namespace {
using igs_fuzz::require;

constexpr std::size_t columns = record_length;
constexpr std::size_t longest_record = 4 * columns;
const std::string first_record = std::string(72, ' ') + "S      1\n";

/// The records as the reader makes them, before anything in them is marked. A first record is put before the text.
class Records : public igsInBuffer {
 public:
  Records(std::istream& in, bool shortcuts) : igsInBuffer(in, {.messages = nullptr, .shortcuts = shortcuts}) {}

  std::vector<std::string> all(std::size_t most) {
    std::vector<std::string> records;
    for (std::size_t i = 0; igsInBufferFiller::fatal_error() == 0; ++i) {
      require(i <= most, "reading ends");
      // Where 80 blanks have been cut from a longer line there is no record, though the input goes on.
      if (get(*this) != 0) records.emplace_back(buffer(), capacity());
    }
    return records;
  }
};

std::vector<std::string> records_in(const std::string& text, bool shortcuts, std::size_t piece) {
  igs_fuzz::Pieces pieces(first_record + text, piece);
  std::istream in(&pieces);
  return Records(in, shortcuts).all(text.size() + 1);
}

bool is_section_letter(char c) { return std::string_view("SGDPT").find(c) != std::string_view::npos; }
bool is_digit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

/// A section letter, blanks and an unbroken number end the text.
bool ends_as_record(const std::string& text) {
  std::size_t at = text.find_last_not_of(' ') + 1;
  if (at == 0 || !is_digit(text[at - 1])) return false;
  while (at > 0 && is_digit(text[at - 1])) --at;
  while (at > 0 && text[at - 1] == ' ') --at;
  return at > 0 && is_section_letter(text[at - 1]);
}

/// Blanks, then at least one digit, in the last `width` characters.
bool right_aligned(std::string_view text, std::size_t width) {
  const std::string_view field = text.substr(text.size() - width);
  const std::size_t first = field.find_first_not_of(' ');
  return first != std::string_view::npos &&
         std::all_of(field.begin() + static_cast<std::ptrdiff_t>(first), field.end(), is_digit);
}

bool is_canonical(const std::string& record) {
  if (record.size() != columns || !right_aligned(record, sequence_columns)) return false;
  const char letter = record[data_columns];
  if (!is_section_letter(letter)) return false;
  return letter != 'P' || (record[pd_data_columns] == ' ' &&
                           right_aligned(std::string_view(record).substr(0, data_columns), sequence_columns));
}

void check_records(const std::string& text) {
  const std::vector<std::string> records = records_in(text, true, text.size() + columns + 1);
  require(records_in(text, false, 1 + text.size() % 97) == records, "the same records come out, however they are read");
  std::string canonical_text;
  std::vector<std::string> canonical;
  for (const std::string& record : records) {
    require(!record.empty() && record.size() <= longest_record,
            "a record is neither empty nor longer than a few lines");
    require(record.find_first_of(std::string_view("\n\r\t\0", 4)) == std::string::npos, "a record is one line");
    if (!is_canonical(record)) continue;
    canonical.push_back(record);
    canonical_text += record + '\n';
  }
  require(records_in(canonical_text, false, 11) == canonical,
          "the records that were rebuilt are read again as they are");
}

/// Each line that ends as a record, between two sound records: what comes of it ends in the columns it should.
void check_lines(const std::string& text) {
  std::string lines;
  std::size_t count = 0;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) {
    if (line.size() >= 2 * columns || !ends_as_record(line)) continue;
    if (line.find_first_of(std::string_view("\r\0\t\x7f", 4)) != std::string::npos) continue;
    (lines += line) += '\n' + first_record;
    ++count;
  }
  const std::vector<std::string> records = records_in(lines, true, lines.size() + columns + 1);
  require(records.size() == 2 * count, "a line that ends as a record is one");
  for (std::size_t i = 0; i < records.size(); i += 2) {
    require(records[i].size() >= columns && right_aligned(records[i], sequence_columns) &&
                is_section_letter(records[i][records[i].size() - sequence_columns - 1]),
            "the letter and the number that end a line stand in their columns");
  }
}

/// What a walk over the records meets, one line a step. The last byte of the text chooses how it steps.
std::string walk(const std::string& text, bool shortcuts, std::size_t piece) {
  igs_fuzz::Pieces pieces(text, piece);
  std::istream stream(&pieces);
  igsInBuffer in(stream, {.messages = nullptr, .shortcuts = shortcuts});
  const unsigned stride = text.empty() ? 1 : 1 + static_cast<unsigned char>(text.back()) % 90;
  std::string steps;
  for (std::size_t i = 0;; ++i) {
    require(i < 4 * text.size() + 16, "stepping from record to record ends");
    igsFileSection section = igsNoSectionId;
    int line = 0, column = 0;
    in.position(section, line, column);
    igsIOErrorcoDynArr errors;
    in.collect_errors(errors);
    for (const int number :
         {static_cast<int>(section), line, column, in.backpointer(), static_cast<int>(*in), in.frozen() ? 1 : 0}) {
      steps += std::to_string(number) + ' ';
    }
    for (const igsIOError& error : errors) steps += 'e' + std::to_string(error.error_type());
    steps += '\n';
    if (!in.frozen()) {
      in += stride;
    } else if (in.reset() == 0) {
      break;
    }
  }
  return steps;
}

/// The blanks before the number, and those before the letter or the back-pointer but for one, are left out.
std::string shortened(std::string record) {
  const std::size_t letter = data_columns;
  record.erase(letter + 1, record.find_first_not_of(' ', letter + 1) - letter - 1);
  const std::size_t end = record[letter] == 'P' ? record.find_first_not_of(' ', pd_data_columns) : letter;
  const std::size_t begin = record.find_last_not_of(' ', end - 1) + 1;
  if (begin + 1 < end) record.erase(begin, end - begin - 1);
  return record;
}

/// A sound record without anything in its data that looks like the end of a record or like a lost decimal point.
std::string sound_record(igs_fuzz::Choices& choices, char letter, int number) {
  const std::size_t width = letter == 'P' ? pd_data_columns : data_columns;
  std::string record = "A";
  for (unsigned length = choices.below(width); record.size() < length;) record += "ABC,;.- Hx 7"[choices.below(12)];
  record.resize(width, ' ');
  const auto number_in = [](unsigned value, std::size_t field) {
    const std::string digits = std::to_string(value);
    return std::string(field - digits.size(), ' ') + digits;
  };
  if (letter == 'P') record += number_in(2 * choices.below(5000) + 1, 1 + sequence_columns);
  return record + letter + number_in(static_cast<unsigned>(number), sequence_columns);
}

void check_repairs(igs_fuzz::Choices choices) {
  // One kind of line end a file: what stands between a carriage return and the next line feed is not a line by itself.
  constexpr std::string_view line_ends[] = {"\n", "\r\n", "\r", ""};
  const std::string_view line_end = choices.one_of(line_ends);
  const bool with_line_ends = !line_end.empty();
  std::vector<std::string> records;
  std::string text;
  std::size_t section = 0;
  int number = 0;
  while (!choices.used_up()) {
    if (section < 4 && choices.once_in(4)) {
      ++section;
      number = 0;
    }
    std::string record = sound_record(choices, "SGDPT"[section], ++number);
    records.push_back(record);
    if (choices.once_in(3)) {
      std::replace(record.begin(), record.begin() + pd_data_columns, ' ', choices.once_in(2) ? '\t' : '\0');
    }
    if (with_line_ends && choices.once_in(2)) record = shortened(record);
    if (with_line_ends && choices.once_in(8)) (text += "   ") += line_end;
    (text += record) += line_end;
  }
  require(records_in(text, true, text.size() + columns + 1) == records, "damage that loses nothing is repaired");
  check_records(text);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 0 && data[0] == '*') {
    check_repairs({data + 1, size - 1});
    return 0;
  }
  const std::string text(data, data + size);
  check_records(text);
  check_lines(text);
  require(walk(text, true, text.size() + 1) == walk(text, false, 1 + size % 89),
          "with and without shortcuts the same is met at the same places");
  return 0;
}
