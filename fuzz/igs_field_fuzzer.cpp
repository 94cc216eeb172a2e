// The fields of one run of records. The first line of an input chooses how it is read, the rest is the data:
//
//     P3,;irh       section (P, G or D), records per entity (a digit), delimiters, then kinds of fields in turn:
//     data ...      i, r, h for free integers, reals and strings; I, S for integers and texts of 8 columns
//
// The records are read three times: by igsInStream, by igsInStream from a stream in pieces and with every record sent
// through the repair steps, and field by field with decoders that are never asked for the conversion at one stroke.
// Value, codes and position have to agree after every field, and reading has to end.

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "igs/input/igsInStream.h"
#include "igs/input/number.h"
#include "invariants.h"
#include "pieces.h"

namespace {
using igs_fuzz::require;

struct Plan {
  char section = 'P';
  int records_per_entity = 0;  ///< 0: all belong to one
  char delimiter = ',', end = ';';
  std::string kinds = "i";
};

// Of the letters P alone, as it stands behind the data: the others occur in numbers.
bool is_delimiter(char c) {
  return c == 'P' ||
         (std::ispunct(static_cast<unsigned char>(c)) != 0 && std::string("+-.()_").find(c) == std::string::npos);
}

Plan plan_of(const std::string& line) {
  Plan plan;
  std::size_t at = 0;
  const auto next = [&] { return at < line.size() ? line[at++] : '\0'; };
  if (const char c = next(); c == 'G' || c == 'D') plan.section = c;
  plan.records_per_entity = static_cast<unsigned char>(next()) % 10;
  if (const char c = next(); is_delimiter(c)) plan.delimiter = c;
  if (const char c = next(); is_delimiter(c)) plan.end = c;
  if (at < line.size()) plan.kinds = line.substr(at);
  return plan;
}

std::string right(int number, std::size_t width) {
  const std::string digits = std::to_string(number);
  return std::string(width - digits.size(), ' ') + digits;
}

std::string records_of(const Plan& plan, std::string data) {
  for (char& c : data) {
    if (c >= '\t' && c <= '\r') c = ' ';  // a conversion skips other white space than a field does
  }
  const std::size_t width = plan.section == 'P' ? 64 : 72;
  std::string text;
  int number = 0;
  for (std::size_t at = 0; at < data.size(); at += width) {
    std::string record = data.substr(at, width);
    record.resize(width, ' ');
    const int entity = plan.records_per_entity > 0 ? number / plan.records_per_entity : 0;
    if (plan.section == 'P') record += ' ' + right(2 * entity + 1, 7);
    text += record + plan.section + right(++number, 7) + '\n';
  }
  return text;
}

/// What a reader knows after a field. Reals by their bits, as NaN differs from itself.
struct State {
  std::int64_t number = 0;
  std::string text;
  unsigned codes = 0;
  igsFileSection section = igsNoSectionId;
  int line = 0, column = 0;
  bool frozen = false, fatal = false;

  bool operator==(const State&) const = default;

  void set_codes(const igsIOErrorcoDynArr& errors) {
    for (const igsIOError& error : errors) codes |= 1U << static_cast<unsigned>(error.error_type());
  }
  void set_place(const igsInBuffer& in) {
    in.position(section, line, column);
    frozen = in.frozen();
    fatal = in.fatal_error() != 0;
  }
};

constexpr unsigned fixed_width = 8;

State read_field(igsInStream& in, char kind) {
  State state;
  int number = 0;
  double real = 0;
  switch (kind) {
    case 'r':
      in.read_double(real);
      state.number = std::bit_cast<std::int64_t>(real);
      break;
    case 'h':
      in.read_holerith(state.text);
      break;
    case 'I':
      in.read_integer(fixed_width, number);
      state.number = number;
      break;
    case 'S':
      in.read_string(fixed_width, state.text);
      break;
    default:
      in.read_integer(number);
      state.number = number;
  }
  state.set_codes(in.errors());
  state.set_place(in);
  return state;
}

/// A decoder that takes every field character by character.
class Slow : public igsDecoder {
 public:
  explicit Slow(igsDecoder& inner) : igsDecoder(0), m_inner(inner) {}

  void accept_character(char c, int& more, int& delimiters_allowed) override {
    taken += c;
    m_inner.accept_character(c, more, delimiters_allowed);
  }
  void decode() override { m_inner.decode(); }
  void reset_fast_decode() override {
    taken.clear();
    m_inner.reset_fast_decode();
  }
  void reset_slow_decode() override { m_inner.reset_slow_decode(); }

  std::string taken;

 protected:
  void convert() override {}
  void clear_value() override {}

 private:
  igsDecoder& m_inner;
};

class Model : public igsInEngine {
 public:
  explicit Model(std::istream& in) : igsInEngine(in) {}

  State read(char kind) {
    State state;
    m_comparable = true;
    switch (kind) {
      case 'r':
        state.set_codes(free_field(m_reals));
        state.number = std::bit_cast<std::int64_t>(m_reals.decoded_value());
        m_comparable = !has_odd_exponent(m_taken);
        break;
      case 'h':
        state.set_codes(free_field(m_strings));
        state.text = m_strings.decoded_value();
        break;
      case 'I':
        state.number = expected_integer();
        state.set_codes(fixed_field(m_integers));
        require(m_integers.decoded_value() == state.number, "an integer of fixed width is what its columns say");
        break;
      case 'S':
        state.set_codes(fixed_field(m_texts));
        state.text = m_texts.decoded_value();
        break;
      default:
        state.set_codes(free_field(m_integers));
        state.number = m_integers.decoded_value();
    }
    state.set_place(*this);
    return state;
  }
  /// False for a real that the two ways read differently on purpose: for the one, a D is a further exponent, which
  /// blanks may precede; for the other it is an E.
  bool comparable() const { return m_comparable; }

 private:
  igsIOErrorcoDynArr free_field(igsDecoder& decoder) {
    Slow slow(decoder);
    configure_for_decode(&slow);
    decode();
    m_taken = slow.taken;
    return codes(decoder);
  }
  igsIOErrorcoDynArr fixed_field(igsDecoder& decoder) {
    configure_for_decode(&decoder);
    fixed_decode(fixed_width);
    return codes(decoder);
  }
  igsIOErrorcoDynArr codes(igsDecoder& decoder) {
    igsIOErrorcoDynArr errors;
    configure_for_decode(nullptr);
    collect_errors(errors);
    decoder.collect_errors(errors);
    return errors;
  }
  /// A number that ends in the last column, else what the columns before the last one hold without their blanks.
  int expected_integer() {
    const char* const record_end = buffer() + capacity();
    const std::string field(cursor(),
                            std::min<std::size_t>(fixed_width, static_cast<std::size_t>(record_end - cursor())));
    int value = 0;
    if (igs_number::parse_int(field.c_str(), value) == fixed_width) return value;
    std::string digits = field.substr(0, std::min<std::size_t>(field.find('\0'), fixed_width - 1));
    std::erase_if(digits, [](char c) { return c == ' ' || c == '\n'; });
    igs_number::parse_int(digits.c_str(), value);
    return value;
  }
  static bool has_odd_exponent(const std::string& field) {
    const std::size_t d = field.find_first_of("dD");
    if (d == std::string::npos) return false;
    if (d + 1 < field.size() && field[d + 1] == ' ') return true;
    return std::count_if(field.begin(), field.end(),
                         [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }) > 1;
  }

  igsIntDecoder m_integers;
  igsDoubleDecoder m_reals;
  igsHolerithDecoder m_strings;
  igsStrDecoder m_texts;
  std::string m_taken;
  bool m_comparable = true;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(data, data + size);
  const std::size_t line_end = std::min(input.find('\n'), input.size());
  const Plan plan = plan_of(input.substr(0, line_end));
  const std::string text = records_of(plan, line_end < size ? input.substr(line_end + 1) : "");

  std::istringstream whole(text), again(text);
  igs_fuzz::Pieces pieces(text, 7);
  std::istream pieces_in(&pieces);
  igsInStream fast(whole);
  igsInStream repaired(pieces_in, {.messages = nullptr, .shortcuts = false});
  Model slow(again);
  for (igsInEngine* reader :
       {static_cast<igsInEngine*>(&fast), static_cast<igsInEngine*>(&repaired), static_cast<igsInEngine*>(&slow)}) {
    reader->set_param_delimiter(plan.delimiter);
    reader->set_record_delimiter(plan.end);
  }

  const bool hexadecimal_ends_early = plan.delimiter == 'P' || plan.end == 'P';
  // Every field takes a column, or it freezes the reader and the step over the boundary takes a record.
  const std::size_t most_steps = 2 * text.size() + 16;
  for (std::size_t i = 0;; ++i) {
    require(i < most_steps, "reading ends");
    if (fast.frozen()) {
      const int go_on = fast.reset();
      require(repaired.reset() == go_on && slow.reset() == go_on, "all readers come to the same end");
      if (go_on == 0) break;
    }
    const char kind = plan.kinds[i % plan.kinds.size()];
    const State state = read_field(fast, kind);
    require(read_field(repaired, kind) == state, "a record that is repaired reads like one that needs no repair");
    State expected = slow.read(kind);
    if (!slow.comparable() || (kind == 'r' && hexadecimal_ends_early)) {
      expected.number = state.number;
      expected.codes = state.codes;
    }
    require(expected == state, "fields read at one stroke and character by character alike");
  }
  return 0;
}
