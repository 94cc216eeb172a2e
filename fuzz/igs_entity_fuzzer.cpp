// Files built entity by entity from the choices that the bytes make: any class and form, with sound or odd fields,
// counts, flags, references and directory entries; the text is then damaged, or not. What holds of every file is asked
// for (check_file).

#include <array>
#include <cctype>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "invariants.h"

namespace {
using igs_fuzz::Choices;

/// How the parameter data of a kind of entity look:
///   r  real                      f  flag 0 to 3            i  small integer
///   h  string                    m  number, or the negative of a pointer
///   @NNN  pointer to an entity of that type, "@c" to a curve, "@s" to a surface, "@*" to anything
///   ( ... )  a count, and what stands between as many times    [N ... ]  the same N times without a count
///   =N  the number N             S, s, K, k  the fields of 126, 128, 112, 114
///   N  the points of 106     T, L, C, V  the fields of 124 and 214, the boundaries of 144, the members of 402 form 3
struct Kind {
  int type, min_form, max_form;
  const char* fields;
};
constexpr Kind kinds[] = {
    {100, 0, 0, "rrrrrrr"},
    {102, 0, 0, "(@c)"},
    {104, 0, 3, "[11r]"},
    {106, 1, 1, "=1N"},
    {106, 2, 2, "=2N"},
    {106, 3, 3, "=3N"},
    {106, 11, 11, "=1N"},
    {106, 12, 12, "=2N"},
    {106, 13, 13, "=3N"},
    {106, 20, 21, "=1N"},
    {106, 31, 38, "=1N"},
    {106, 40, 40, "=1N"},
    {106, 63, 63, "=1N"},
    {108, -1, 1, "rrrr@crrrr"},
    {110, 0, 0, "rrrrrr"},
    {112, 0, 0, "K"},
    {114, 0, 0, "k"},
    {116, 0, 0, "rrr@308"},
    {118, 0, 1, "@c@cff"},
    {120, 0, 0, "@110@crr"},
    {122, 0, 0, "@crrr"},
    {123, 0, 0, "rrr"},
    {124, 0, 1, "T"},
    {126, 0, 5, "S"},
    {128, 0, 9, "s"},
    {130, 0, 0, "@cf@cifrrrrrrrrr"},
    {140, 0, 0, "rrrr@s"},
    {141, 0, 0, "ff@s(@cf(@c))"},
    {142, 0, 0, "f@s@c@cf"},
    {143, 0, 0, "f@s(@141)"},
    {144, 0, 0, "@sfC"},
    {186, 0, 0, "@514f(@514f)"},
    {190, 0, 0, "@116@123"},
    {190, 1, 1, "@116@123@123"},
    {192, 0, 0, "@116@123r"},
    {192, 1, 1, "@116@123r@123"},
    {194, 0, 0, "@116@123rr"},
    {194, 1, 1, "@116@123rr@123"},
    {196, 0, 0, "@116r"},
    {196, 1, 1, "@116r@123@123"},
    {198, 0, 0, "@116@123rr"},
    {198, 1, 1, "@116@123rr@123"},
    {202, 0, 0, "@212@106@106rrr@214@214"},
    {204, 0, 0, "@212@c@c@214@214@106@106"},
    {206, 0, 0, "@212@214@214rr"},
    {208, 0, 0, "rrrr@212(@214)"},
    {210, 0, 0, "@212(@214)"},
    {212, 0, 105, "(irrmrrffrrrh)"},
    {214, 1, 12, "L"},
    {216, 0, 2, "@212@214@214@106@106"},
    {218, 0, 0, "@212@106"},
    {218, 1, 1, "@212@106@214"},
    {220, 0, 0, "@212@214@c"},
    {222, 0, 0, "@212@214rr"},
    {222, 1, 1, "@212@214rr@214"},
    {228, 0, 1, "@212(@c)(@214)"},
    {230, 0, 0, "@cirrrrr(@c)"},
    {304, 1, 1, "f@308rr"},
    {304, 2, 2, "(r)h"},
    {308, 0, 0, "fh(@*)"},
    {310, 0, 0, "ihmi(iii(fii))"},
    {312, 0, 1, "rrmrrffrrr"},
    {314, 0, 0, "rrrh"},
    {402, 1, 1, "(@*)"},
    {402, 3, 3, "V"},
    {402, 7, 7, "(@*)"},
    {402, 14, 15, "(@*)"},
    {402, 16, 16, "=1(@*)"},
    {404, 0, 0, "(@410rr)(@*)"},
    {404, 1, 1, "(@410rrr)(@*)"},
    {408, 0, 0, "@308rrrr"},
    {410, 0, 0, "ir@108@108@108@108@108@108"},
    {416, 1, 1, "h"},
    {502, 1, 1, "(rrr)"},
    {504, 1, 1, "(@c@502i@502i)"},
    {508, 1, 1, "(f@504if(f@c))"},
    {510, 1, 1, "@s(@508)"},
    {514, 1, 1, "(@510f)"},
    {0, 0, 0, ""},
    {406, 15, 15, "=1h"},
};

constexpr int curve_types[] = {100, 102, 104, 106, 110, 112, 126, 130, 142};
constexpr int surface_types[] = {108, 114, 118, 120, 122, 128, 140, 143, 144, 190, 192, 194, 196, 198};
constexpr std::string_view sound_reals[] = {"0.",        "1.",   "0.5", "-1.", "2.", "6.28318530717959",
                                            "1.5707963", "3.D0", ""};
constexpr std::string_view odd_reals[] = {"1.D308",  "-1.D308",
                                          "1.D-308", "4.9D-324",
                                          "1.E400",  "NAN.",
                                          "-INF.",   "99999999.",
                                          "1D",      "1.5.5",
                                          "x",       "1.E-7",
                                          "7",       "0.1234567890123456789",
                                          "-0.",     "1.79769313486232D+308"};
constexpr std::string_view odd_integers[] = {"-1", "2147483647", "-2147483648", "99999999999", "1.5",
                                             "x",  "",           "65536",       "- 1"};
constexpr std::string_view strings[] = {"4Htext", "1H ",        "0H",   "",        "3H;,;",
                                        "-1Hx",   "99999999Hx", "text", "5H a  b", "2H\x01\xff"};
constexpr std::string_view statuses[] = {"00000000", "00010000", "00000100", "00000200", "00010500",
                                         "01020302", "-1-1-1-1", "99999999", "        ", "0001 0 0"};

struct Entity {
  const Kind* kind;
  int form;
};

/// Writes the parameter data of entities.
class Fields {
 public:
  Fields(Choices& choices, const std::vector<Entity>& entities) : m_choices(choices), m_entities(entities) {}

  std::string of(const Entity& entity) {
    m_text = std::to_string(entity.kind->type);
    if (m_choices.once_in(32)) m_text = std::to_string(m_choices.below(600));
    run(entity.kind->fields);
    if (m_choices.once_in(16)) m_text.resize(m_choices.below(m_text.size() + 1));
    if (m_choices.once_in(16)) m_text += ",1,1,1,1,1";
    return m_text + ";";
  }

 private:
  void add(std::string_view field) {
    m_text += ',';
    m_text += field;
  }
  void add(int number) { add(std::to_string(number)); }
  void reals(int count) {
    for (int i = 0; i < count; ++i) real();
  }
  void real() {
    if (m_choices.once_in(16)) {
      add(m_choices.one_of(odd_reals));
    } else {
      add(m_choices.one_of(sound_reals));
    }
  }
  void integer(unsigned limit) {
    if (m_choices.once_in(16)) {
      add(m_choices.one_of(odd_integers));
    } else {
      add(static_cast<int>(m_choices.below(limit)));
    }
  }
  /// Writes a count, which may be wrong, and returns the right one.
  int count() {
    const int right = static_cast<int>(m_choices.below(5));
    if (m_choices.once_in(24)) {
      integer(8);
    } else {
      add(right);
    }
    return right;
  }

  /// The DE number of the first entity of one of the types, searched from a chosen place on; else of any.
  template <class Types>
  int pointer_to(const Types& types) {
    const std::size_t size = m_entities.size(), start = m_choices.below(size);
    for (std::size_t i = 0; i < size; ++i) {
      const std::size_t at = (start + i) % size;
      for (const int type : types) {
        if (m_entities[at].kind->type == type) return static_cast<int>(2 * at + 1);
      }
    }
    return static_cast<int>(2 * start + 1);
  }
  void pointer(const char*& pattern) {
    const char what = *++pattern;
    int de = 0;
    if (what == 'c') {
      de = pointer_to(curve_types);
    } else if (what == 's') {
      de = pointer_to(surface_types);
    } else if (what == '*') {
      de = static_cast<int>(2 * m_choices.below(m_entities.size()) + 1);
    } else {
      de = pointer_to(std::array{100 * (what - '0') + 10 * (pattern[1] - '0') + (pattern[2] - '0')});
      pattern += 2;
    }
    constexpr int odd[] = {0, 0, -1, 2, INT_MAX, INT_MIN, 3, 9999999};
    add(m_choices.once_in(12) ? m_choices.one_of(odd) : de);
  }

  void run(const char* pattern) {
    for (; *pattern != '\0' && *pattern != ')' && *pattern != ']'; ++pattern) one(pattern);
  }
  static const char* end_of_list(const char* pattern) {
    int depth = 0;
    for (;; ++pattern) {
      if (*pattern == '(' || *pattern == '[') ++depth;
      if ((*pattern == ')' || *pattern == ']') && --depth == 0) return pattern;
    }
  }
  void one(const char*& pattern) {
    switch (*pattern) {
      case 'r':
        return real();
      case 'f':
        return integer(4);
      case 'i':
        return integer(9);
      case 'h':
        return add(m_choices.one_of(strings));
      case 'm':
        m_choices.once_in(2) ? integer(9) : add(-static_cast<int>(2 * m_choices.below(m_entities.size()) + 1));
        return;
      case '@':
        return pointer(pattern);
      case '=':
        return add(*++pattern - '0');
      case '(':
        for (int i = count(); i > 0; --i) run(pattern + 1);
        pattern = end_of_list(pattern);
        return;
      case '[': {
        int times = 0;
        while (std::isdigit(static_cast<unsigned char>(*++pattern)) != 0) times = times * 10 + (*pattern - '0');
        for (int i = times; i > 0; --i) run(pattern);
        while (*pattern != ']') ++pattern;
        return;
      }
      default:
        return irregular(*pattern);
    }
  }
  void irregular(char what) {
    switch (what) {
      case 'N':
        return copious_data();
      case 'K':
        return spline_curve();
      case 'k':
        return spline_surface();
      case 'S':
        return rational_curve();
      case 's':
        return rational_surface();
      case 'T':
        return matrix();
      case 'L':
        return leader();
      case 'C':
        return boundaries();
      default:
        return visibility();
    }
  }

  void copious_data() {
    const int tuple = m_text.back() - '0';
    const int points = count();
    if (tuple == 1) real();
    if (tuple == 1 && points > 2 && m_choices.once_in(2)) {  // closed
      add("0.,0.");
      reals(2 * (points - 2));
      add("0.,0.");
    } else {
      reals(points * (tuple == 1 ? 2 : 3 * (tuple - 1)));
    }
  }
  void spline_curve() {
    add(3), integer(7), add(3);
    const int segments = count();
    for (int i = 0; i <= segments; ++i) add(std::to_string(i) + ".");
    reals(12 * segments + 12);
  }
  void spline_surface() {
    integer(7), integer(2);
    const int m = count(), n = count();
    reals(m + 1 + n + 1);
    reals(48 * (m + 1) * (n + 1));
  }
  void knots(int count) {
    for (int i = 0; i < count; ++i) {
      if (m_choices.once_in(8)) {
        real();
      } else {
        add(std::to_string(i) + ".");
      }
    }
  }
  void weights(int count) {
    for (int i = 0; i < count; ++i) m_choices.once_in(4) ? real() : add("1.");
  }
  void flags(int count) {
    for (int i = 0; i < count; ++i) integer(2);
  }
  void rational_curve() {
    const int k = count(), m = count();
    flags(4);
    knots(k + m + 2);
    weights(k + 1);
    reals(3 * (k + 1));
    add("0."), add(std::to_string(k + m + 1) + ".");
    reals(3);
  }
  void rational_surface() {
    const int k1 = count(), k2 = count(), m1 = count(), m2 = count();
    flags(5);
    knots(k1 + m1 + 2), knots(k2 + m2 + 2);
    weights((k1 + 1) * (k2 + 1));
    reals(3 * (k1 + 1) * (k2 + 1) + 4);
  }
  void matrix() {
    if (m_choices.once_in(3)) return reals(12);
    constexpr std::string_view sound[] = {"1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.", "1.,0.,0.,0.,0.,1.,0.,0.,0.,0.,-1.,0.",
                                          "0.9999,0.,0.,0.,0.,1.,0.,0.,0.,0.,1.,0.",
                                          "2.,0.,0.,5.,0.,2.,0.,0.,0.,0.,2.,0."};
    add(m_choices.one_of(sound));
  }
  void leader() {
    const int segments = count();
    reals(5 + 2 * segments);
  }
  void boundaries() {
    const int inner = count();
    for (int i = 0; i <= inner; ++i) run("@142");
  }
  void visibility() {
    const int views = count(), members = count();
    for (int i = 0; i < views; ++i) run("@410");
    for (int i = 0; i < members; ++i) run("@*");
  }

  Choices& m_choices;
  const std::vector<Entity>& m_entities;
  std::string m_text;
};

std::string right(const std::string& text, std::size_t width) {
  return text.size() < width ? std::string(width - text.size(), ' ') + text : text.substr(0, width);
}
std::string right(int number, std::size_t width) { return right(std::to_string(number), width); }

void cut(const std::string& text, std::size_t width, std::vector<std::string>& lines) {
  for (std::size_t at = 0; at < text.size(); at += width) {
    lines.push_back(text.substr(at, width));
    lines.back().resize(width, ' ');
  }
}

/// The sections of a file as lines without their ends.
class Builder {
 public:
  explicit Builder(Choices& choices) : m_choices(choices) {
    for (unsigned i = 1 + choices.below(24); i > 0; --i) {
      const Kind& kind = choices.one_of(kinds);
      const std::size_t forms = static_cast<std::size_t>(kind.max_form) + 1 - static_cast<std::size_t>(kind.min_form);
      const int form = kind.min_form + static_cast<int>(choices.below(forms));
      m_entities.push_back({&kind, choices.once_in(32) ? 77 : form});
    }
  }

  std::vector<std::string> lines() {
    Fields fields(m_choices, m_entities);
    for (const Entity& entity : m_entities) {
      const std::size_t first = m_data.size();
      const int de = static_cast<int>(m_directory.size() + 1);
      cut(fields.of(entity), 64, m_data);
      for (std::size_t i = first; i < m_data.size(); ++i) m_data[i] += right(de, 8);
      directory_entry(entity, first + 1, m_data.size() - first);
    }
    std::vector<std::string> global;
    cut("1H,,1H;,4Hfuzz,8Hfuzz.igs,3Higs,3H0.1,32,38,6,308,15,4Hfuzz,1.," + std::to_string(m_choices.below(13)) +
            ",2HMM,1,0.01,15H20000101.000000,1.D-6,1000.,4Hname,3Horg,11,0,15H20000101.000000;",
        72, global);
    std::vector<std::string> all;
    add(all, {std::string(72, ' ')}, 'S');
    add(all, global, 'G');
    add(all, m_directory, 'D');
    add(all, m_data, 'P');
    std::string counts = "S      1G" + right(static_cast<int>(global.size()), 7);
    counts += 'D' + right(static_cast<int>(m_directory.size()), 7) + 'P' + right(static_cast<int>(m_data.size()), 7);
    counts.resize(72, ' ');
    add(all, {counts}, 'T');
    return all;
  }

 private:
  static void add(std::vector<std::string>& all, const std::vector<std::string>& lines, char letter) {
    int number = 0;
    for (const std::string& line : lines) all.push_back(line + letter + right(++number, 7));
  }
  int pointer() { return static_cast<int>(2 * m_choices.below(m_entities.size()) + 1); }
  /// 0, or now and then something else.
  std::string attribute(bool negative) {
    if (!m_choices.once_in(12)) return "0";
    if (m_choices.once_in(4)) return std::string(m_choices.one_of(odd_integers)).substr(0, 8);
    if (negative && m_choices.once_in(2)) return std::to_string(m_choices.below(12));
    return std::to_string(negative ? -pointer() : pointer());
  }
  void directory_entry(const Entity& entity, std::size_t first_line, std::size_t num_lines) {
    const int type = entity.kind->type;
    std::string first, second;
    for (const std::string& field : {std::to_string(type), std::to_string(first_line), attribute(true), attribute(true),
                                     attribute(true), attribute(false), attribute(false), attribute(false)}) {
      first += right(field, 8);
    }
    for (const std::string& field :
         {std::to_string(type), attribute(true), attribute(true), std::to_string(num_lines),
          std::to_string(entity.form), std::string(), std::string(), std::string("label"), attribute(true)}) {
      second += right(field, 8);
    }
    m_directory.push_back(first + std::string(m_choices.once_in(4) ? m_choices.one_of(statuses) : statuses[0]));
    m_directory.push_back(second);
  }

  Choices& m_choices;
  std::vector<Entity> m_entities;
  std::vector<std::string> m_directory, m_data;
};

void damage(Choices& choices, std::vector<std::string>& lines) {
  const std::size_t at = choices.below(lines.size());
  std::string& line = lines[at];
  const std::size_t column = line.empty() ? 0 : choices.below(line.size());
  switch (choices.below(8)) {
    case 0:
      lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
      break;
    case 1:
      lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), std::string(line));
      break;
    case 2:
      line.resize(column);
      break;
    case 3:
      line.insert(column, 1, static_cast<char>(choices.byte()));
      break;
    case 4:
      line.erase(column, 1 + choices.below(8));
      break;
    case 5:
      std::swap(line, lines[choices.below(lines.size())]);
      break;
    case 6:
      line.insert(column, "\n");
      break;
    default:
      if (!line.empty()) line[column] = static_cast<char>(choices.byte());
  }
}

/// Keeps the text where the environment variable IGS_FUZZ_SHOW says, for people.
void show(const std::string& text) {
  const char* const path = std::getenv("IGS_FUZZ_SHOW");  // NOLINT(concurrency-mt-unsafe): there is one thread
  if (path != nullptr) std::ofstream(path, std::ios::binary) << text;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  igs_fuzz::Treatment treatment;
  const unsigned how = choices.byte();
  treatment.repair = (how & 3) != 3;
  treatment.delete_faulty = (how & 4) != 0;
  treatment.digits = (how & 8) != 0 ? 15 : 17;
  const unsigned damages = (how & 16) != 0 ? choices.below(6) : 0;
  std::vector<std::string> lines = Builder(choices).lines();
  for (unsigned i = 0; i < damages && !lines.empty(); ++i) damage(choices, lines);
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  show(text);
  igs_fuzz::check_file(text, treatment);
  return 0;
}
