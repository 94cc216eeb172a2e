#include "igs/file/igsGlobalSection.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <iterator>
#include <limits>
#include <optional>
#include <sstream>
#include <tuple>
#include <utility>

#include "igs/catalogue/igsInfoDB.h"
#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsGlobalSection_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/file/private/igsStringCounts.h"
#include "igs/input/igsInStream.h"
#include "igs/input/private/record.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

namespace {

using Section = igsGlobalSection;

constexpr char default_parameter_delimiter = ',';
constexpr char default_record_delimiter = ';';
constexpr int min_magnitude = 38;
constexpr int min_significance = 6;
constexpr int max_line_weights = 32768;
constexpr double min_resolution = 1e-15;
constexpr double default_resolution = 0.0001;
constexpr int default_version = 3;
constexpr int num_drafting_standards = 8;
constexpr int units_flag = 14, units_name = 15, line_weights = 16, modification_date = 25,
              last_of_standard = 26;  // parameters that are told from others
/// The first version flag (IGES 5.0) whose Global section has a modification date.
constexpr int version_with_modification_date = 8;

/// All there is to know of one parameter; of the units, which are two.
template <class Value>
struct GlobalRow {
  int number;
  const char* label;
  Value Section::*member;
  Value (*absent)(const Section&) = nullptr;         ///< what it becomes where the file does not give it
  const char* description = nullptr;                 ///< of one that must be given, for messages
  bool (*valid)(const Value&) = nullptr;             ///< what its setter takes; null for anything
  igsGlobalError* (*fault)(const Value&) = nullptr;  ///< what check reports of a value that is not valid; may give null
  Value (*repaired)() = nullptr;
};

template <auto value>
auto always() {
  return value;
}
bool is_given(const utString& text) { return !text.empty(); }
utString unknown() { return "Unknown"; }

/// Texts that are given are all sound, but their setters refuse the empty text.
constexpr GlobalRow<utString> text_row(int number, const char* label, utString Section::*member,
                                       utString (*absent)(const Section&), const char* description = nullptr) {
  return {number, label, member, absent, description, is_given, nullptr, description != nullptr ? unknown : nullptr};
}

template <class Error, int least, int repaired>
constexpr GlobalRow<int> format_row(int number, const char* label, int Section::*member, const char* description) {
  return {number,
          label,
          member,
          [](const Section&) { return igs_unset_int; },
          description,
          [](const int& value) { return value >= least; },
          [](const int& value) -> igsGlobalError* { return new Error(value); },
          always<repaired>};
}

template <class Error>
constexpr GlobalRow<igsDate> date_row(int number, const char* label, igsDate Section::*member,
                                      igsDate (*absent)(const Section&), const char* description = nullptr) {
  return {number,
          label,
          member,
          absent,
          description,
          [](const igsDate& date) { return date.check() != 0; },
          [](const igsDate& date) -> igsGlobalError* { return new Error(date.date_string()); },
          [] { return igsDate(); }};
}

template <class Error, class Value>
igsGlobalError* fault_of(const Value& value) {
  return new Error(value);
}

bool at_least(double value, double low) { return std::isfinite(value) && value >= low; }

igsGlobalParameterKind kind_of(int) { return igsGlobalInteger; }
igsGlobalParameterKind kind_of(double) { return igsGlobalReal; }
igsGlobalParameterKind kind_of(const utString&) { return igsGlobalString; }
igsGlobalParameterKind kind_of(const igsDate&) { return igsGlobalString; }

/// What the fields of a parameter have to be.
void add_kinds(std::vector<igsFieldKind>& kinds, int Section::*) { kinds.push_back(igsFieldKind::integer); }
void add_kinds(std::vector<igsFieldKind>& kinds, double Section::*) { kinds.push_back(igsFieldKind::real); }
void add_kinds(std::vector<igsFieldKind>& kinds, igsUnits Section::*) {
  kinds.insert(kinds.end(), {igsFieldKind::integer, igsFieldKind::string});
}
template <class Text>
void add_kinds(std::vector<igsFieldKind>& kinds, Text Section::*) {
  kinds.push_back(igsFieldKind::string);
}

/// These take the next field; true when it is given.
bool read_field(igsInStream& in, int& value) { return in.read_integer(value), in.take_value_present() != 0; }
bool read_field(igsInStream& in, double& value) { return in.read_double(value), in.take_value_present() != 0; }
bool read_field(igsInStream& in, utString& value) { return in.read_holerith(value), in.take_value_present() != 0; }
bool read_field(igsInStream& in, igsDate& value) {
  utString text;
  const bool given = read_field(in, text);
  value = igsDate(text);
  return given;
}

void write_field(igsOutStream& out, const utString& text) { out.write_holerith(text); }
void write_field(igsOutStream& out, char c) { out.write_holerith(utString(1, c)); }
void write_field(igsOutStream& out, const igsDate& date) { out.write_holerith(date.date_string()); }
void write_field(igsOutStream& out, int value) { out.write_integer(value); }
void write_field(igsOutStream& out, double value) { out.write_double(value); }

void print_field(utOstream& os, const utString& label, const utString& text) {
  os << label << " = \"" << text << '"' << utEndl;
}
void print_field(utOstream& os, const utString& label, char c) { print_field(os, label, utString(1, c)); }
void print_field(utOstream& os, const utString& label, const igsDate& date) {
  print_field(os, label, date.date_string());
}
void print_field(utOstream& os, const utString& label, int value) { os << label << " = " << value << utEndl; }
void print_field(utOstream& os, const utString& label, double value) { os << label << " = " << value << utEndl; }
void print_field(utOstream& os, const utString& label, const igsUnits& units) {
  print_field(os, label + "Flag", units.type());
  print_field(os, label + "Name", units.name());
}

/// The values that stand for none.
bool is_unset(int value) { return value == igs_unset_int; }
bool is_unset(double value) { return igs_is_undefined_real(value); }
template <class Value>
bool is_unset(const Value&) {
  return false;
}

igsGlobalValue value_of(char c) { return utString(1, c); }
igsGlobalValue value_of(const igsDate& date) { return date.date_string(); }
template <class Value>
igsGlobalValue value_of(const Value& value) {
  return value;
}

/// "SPMaxPow10" is sp_max_pow10 where accessors are named.
utString accessor_name(const utString& label) {
  const auto is_capital = [&label](std::size_t i) { return i < label.size() && label[i] >= 'A' && label[i] <= 'Z'; };
  utString name;
  for (std::size_t i = 0; i < label.size(); ++i) {
    const bool ends_abbreviation = i + 1 < label.size() && !is_capital(i + 1);
    if (i > 0 && is_capital(i) && (!is_capital(i - 1) || ends_abbreviation)) name += '_';
    name += is_capital(i) ? static_cast<char>(label[i] - 'A' + 'a') : label[i];
  }
  return name;
}

}  // namespace

/// The one table of the section, in the order of the file.
struct igsGlobalSection::Table {
  using S = igsGlobalSection;

  static constexpr auto rows() {
    constexpr auto no_text = [](const S&) { return utString(); };
    constexpr auto unknown_person = [](const S&) { return utString("unknown"); };
    return std::tuple{
        GlobalRow<char>{1, "ParameterDelimiter", &S::m_parameter_delimiter},
        GlobalRow<char>{2, "RecordDelimiter", &S::m_record_delimiter},
        text_row(3, "ProductIDFromSendingSystem", &S::m_product_id_from_sending_system, no_text,
                 "product id from sending system"),
        text_row(4, "FileName", &S::m_file_name, no_text),
        text_row(5, "SystemID", &S::m_system_id, no_text, "system id"),
        text_row(6, "PreprocessorVersion", &S::m_preprocessor_version, no_text, "preprocessor version"),
        format_row<igsGlobalSectionInvalidIntegerSize, 4, 4>(7, "BinaryBitsForInt", &S::m_binary_bits_for_int,
                                                             "number of bits in an integer"),
        format_row<igsGlobalSectionInvalidSinglePrecMagnitude, min_magnitude, 38>(8, "SPMaxPow10", &S::m_sp_max_pow10,
                                                                                  "maximum single precision float"),
        format_row<igsGlobalSectionInvalidSinglePrecSignificance, min_significance, 6>(
            9, "SPSigDigs", &S::m_sp_sig_digs, "significant figures in a single precision float"),
        format_row<igsGlobalSectionInvalidDoublePrecMagnitude, min_magnitude, 308>(10, "DPMaxPow10", &S::m_dp_max_pow10,
                                                                                   "maximum double precision float"),
        format_row<igsGlobalSectionInvalidDoublePrecSignificance, min_significance, 15>(
            11, "DPSigDigs", &S::m_dp_sig_digs, "significant figures in a double precision float"),
        text_row(12, "ProductIDForReceivingSystem", &S::m_product_id_for_receiving_system,
                 [](const S& s) { return s.m_product_id_from_sending_system; }),
        GlobalRow<double>{13, "ModelSpaceScale", &S::m_model_space_scale, [](const S&) { return 1.0; }, nullptr,
                          [](const double& scale) { return std::isfinite(scale) && scale > 0; },
                          fault_of<igsGlobalSectionInvalidModelSpaceScale>, [] { return 1.0; }},
        GlobalRow<igsUnits>{units_flag, "Units", &S::m_units, nullptr, "units flag", nullptr,
                            [](const igsUnits& units) { return units.check(); }},
        GlobalRow<int>{line_weights, "MaxNumberOfLineWeights", &S::m_max_number_of_line_weights,
                       [](const S&) { return 1; }, nullptr,
                       [](const int& number) { return number >= 1 && number <= max_line_weights; }},
        GlobalRow<double>{17, "WidthOfMaxLineWeight", &S::m_width_of_max_line_weight, [](const S&) { return 0.0; },
                          nullptr, [](const double& width) { return at_least(width, 0.0); },
                          fault_of<igsGlobalSectionInvalidMaxLineWeightWidth>, [] { return 0.0; }},
        date_row<igsGlobalSectionInvalidFileCreationDate>(
            18, "FileCreationDate", &S::m_file_creation_date, [](const S& s) { return s.m_file_creation_date; },
            "file creation date"),
        GlobalRow<double>{19, "MinimumResolution", &S::m_minimum_resolution,
                          [](const S&) { return default_resolution; }, "minimum user-intended resolution",
                          [](const double& resolution) { return at_least(resolution, min_resolution); },
                          fault_of<igsGlobalSectionInvalidMinResolution>, [] { return default_resolution; }},
        GlobalRow<double>{
            20, "MaxCoordValue", &S::m_max_coord_value, [](const S&) { return DBL_MAX; }, nullptr,
            [](const double& largest) { return std::isfinite(largest) && !igs_is_undefined_real(largest); },
            fault_of<igsGlobalSectionInvalidMaxCoordinate>, [] { return DBL_MAX; }},
        text_row(21, "NameOfAuthor", &S::m_name_of_author, unknown_person),
        text_row(22, "AuthorsOrganization", &S::m_authors_organization, unknown_person),
        GlobalRow<int>{23, "IGESVersion", &S::m_iges_version, [](const S&) { return default_version; }, nullptr,
                       [](const int& version) { return version >= 1 && igsInfoDB::version_exists(version); },
                       fault_of<igsGlobalSectionInvalidIgesVersion>, always<default_version>},
        GlobalRow<int>{24, "DraftingStandard", &S::m_drafting_standard, [](const S&) { return 0; }, nullptr,
                       [](const int& standard) { return standard >= 0 && standard < num_drafting_standards; },
                       fault_of<igsGlobalSectionInvalidDraftingStandard>, always<0>},
        date_row<igsGlobalSectionInvalidFileModificationDate>(
            modification_date, "FileModificationDate", &S::m_file_modification_date,
            [](const S& s) { return s.dates_modification() ? s.m_file_creation_date : s.m_file_modification_date; })};
  }

  template <class Visit>
  static void each(Visit visit) {
    std::apply([&](const auto&... row) { (visit(row), ...); }, rows());
  }

  template <int number>
  static constexpr auto row() {
    constexpr int index = number > units_flag ? number - 2 : number - 1;
    static_assert(std::get<index>(rows()).number == number);
    return std::get<index>(rows());
  }

  /// What setters do: an acceptable value becomes the parameter.
  template <int number, class Value>
  static int set(S& section, const Value& value) {
    if (!row<number>().valid(value)) return 0;
    store<number>(section, value);
    return 1;
  }
  template <int number, class Value>
  static void store(S& section, const Value& value) {
    section.*row<number>().member = value;
    section.mark(number, !is_unset(value));
  }

  static void read(S& section, igsInStream& in) {
    each([&](const auto& row) { read(section, in, row); });
  }
  static void read(S&, igsInStream&, const GlobalRow<char>&) {}  // the delimiters have been read
  static void read(S& section, igsInStream& in, const GlobalRow<igsUnits>& row) {
    igsUnitType flag = igs_unset_int;
    const bool has_flag = read_field(in, flag);
    if (!has_flag) {
      flag = igs_unset_int;
      section.tag_error(new igsGlobalSectionIllegalDefault(row.number, igsGlobalInteger));
    }
    utString name;
    const bool has_name = read_field(in, name);
    section.*row.member = has_name ? igsUnits(name, flag) : igsUnits(flag);
    section.mark(units_flag, has_flag && !is_unset(flag));
    section.mark(units_name, has_name);
    if (section.m_owner != nullptr && section.m_owner->options().recover) section.recover_units();
  }
  template <class Value>
  static void read(S& section, igsInStream& in, const GlobalRow<Value>& row) {
    Value value{};
    const bool given = read_field(in, value);
    if (!given) value = row.absent(section);
    if (!given && row.description != nullptr) {
      section.tag_error(new igsGlobalSectionIllegalDefault(row.number, kind_of(value)));
    }
    settle(section, row.number, given, value);
    section.*row.member = value;
    section.mark(row.number, given && !is_unset(value) && row.number <= section.last_known());
  }

  /// Writes the fields of a parameter; where that counts, an empty one, or what stood in its place behind the last
  /// parameter that reading knew, for what was not given.
  static void write(const S& section, igsOutStream& out, const GlobalRow<igsUnits>& row) {
    const igsUnits& units = section.*row.member;
    section.is_left_out(units_flag) ? out.write_field({}) : out.write_integer(units.type());
    section.is_left_out(units_name) ? out.write_field({}) : out.write_holerith(units.name());
  }
  template <class Value>
  static void write(const S& section, igsOutStream& out, const GlobalRow<Value>& row) {
    section.is_left_out(row.number) ? out.write_field(section.extra_field(row.number))
                                    : write_field(out, section.*row.member);
  }

  /// What two of them need besides.
  template <class Value>
  static void settle(S&, int, bool, Value&) {}
  static void settle(S& section, int number, bool /*given*/, int& value) {
    const int limited = std::clamp(value, 1, max_line_weights);
    if (number != line_weights || value == limited) return;
    value = limited;
    section.tag_error(new igsGlobalSectionInvalidMaxNumLineWeightGrads(value));
  }
  static void settle(S& section, int number, bool given, igsDate& value) {
    if (number != modification_date || section.dates_modification()) return;
    value = section.m_file_modification_date;
    if (given) section.tag_error(new igsGlobalSectionExtraModificationDate);
  }
};

int igsGlobalSection::set_parameter_delimiter(char delimiter) {
  if (valid_delimiter(delimiter) == 0 || delimiter == m_record_delimiter) return 0;
  m_parameter_delimiter = delimiter;
  mark(1);
  return 1;
}

int igsGlobalSection::set_record_delimiter(char delimiter) {
  if (valid_delimiter(delimiter) == 0 || delimiter == m_parameter_delimiter) return 0;
  m_record_delimiter = delimiter;
  mark(2);
  return 1;
}

int igsGlobalSection::set_product_id_from_sending_system(const utString& text) { return Table::set<3>(*this, text); }
int igsGlobalSection::set_file_name(const utString& text) { return Table::set<4>(*this, text); }
int igsGlobalSection::set_system_id(const utString& text) { return Table::set<5>(*this, text); }
int igsGlobalSection::set_preprocessor_version(const utString& text) { return Table::set<6>(*this, text); }
int igsGlobalSection::set_binary_bits_for_int(int number) { return Table::set<7>(*this, number); }
int igsGlobalSection::set_sp_max_pow10(int number) { return Table::set<8>(*this, number); }
int igsGlobalSection::set_sp_sig_digs(int number) { return Table::set<9>(*this, number); }
int igsGlobalSection::set_dp_max_pow10(int number) { return Table::set<10>(*this, number); }
int igsGlobalSection::set_dp_sig_digs(int number) { return Table::set<11>(*this, number); }
int igsGlobalSection::set_product_id_for_receiving_system(const utString& text) { return Table::set<12>(*this, text); }
int igsGlobalSection::set_model_space_scale(double value) { return Table::set<13>(*this, value); }
int igsGlobalSection::set_max_number_of_line_weights(int number) { return Table::set<line_weights>(*this, number); }
int igsGlobalSection::set_width_of_max_line_weight(double value) { return Table::set<17>(*this, value); }
int igsGlobalSection::set_minimum_resolution(double value) { return Table::set<19>(*this, value); }
int igsGlobalSection::set_name_of_author(const utString& text) { return Table::set<21>(*this, text); }
int igsGlobalSection::set_authors_organization(const utString& text) { return Table::set<22>(*this, text); }

void igsGlobalSection::set_units(const igsUnits& units) {
  m_units = units;
  mark(units_flag, !is_unset(units.type()));
  mark(units_name);
}
void igsGlobalSection::set_file_creation_date(const igsDate& date) { Table::store<18>(*this, date); }
void igsGlobalSection::set_max_coord_value(double value) { Table::store<20>(*this, value); }
void igsGlobalSection::set_iges_version(int version) { Table::store<23>(*this, version); }
void igsGlobalSection::set_drafting_standard(int standard) { Table::store<24>(*this, standard); }
void igsGlobalSection::set_file_modification_date(const igsDate& date) { Table::store<modification_date>(*this, date); }

void igsGlobalSection::mark(int parameter, bool is_given) {
  const std::uint32_t bit = std::uint32_t{1} << parameter;
  m_given = is_given ? m_given | bit : m_given & ~bit;
}

bool igsGlobalSection::given(int parameter) const {
  if (parameter == last_of_standard) return !extra_field(parameter).empty();
  return parameter >= 1 && parameter <= modification_date && (m_given >> parameter & 1U) != 0;
}

std::string_view igsGlobalSection::extra_field(int parameter) const {
  if (m_last_read == 0 || parameter <= m_last_read) return {};
  const std::vector<std::string_view> fields = m_extra_fields.fields();
  const auto i = static_cast<std::size_t>(parameter - m_last_read - 1);
  return i < fields.size() ? fields[i] : std::string_view();
}

utString igsGlobalSection::application_protocol() const {
  return utString(igsFieldTexts::string(extra_field(last_of_standard)));
}

bool igsGlobalSection::is_left_out(int parameter) const { return m_last_read > 0 && !given(parameter); }

std::vector<igsGlobalParameter> igsGlobalSection::parameters() const {
  std::vector<igsGlobalParameter> list;
  Table::each([&](const auto& row) {
    list.push_back({row.number, accessor_name(row.label), value_of(this->*row.member)});
  });
  return list;
}

int igsGlobalSection::repair(int parameter) {
  int repaired = 0;
  Table::each([&](const auto& row) {
    if (row.number != parameter || row.repaired == nullptr) return;
    this->*row.member = row.repaired();
    mark(parameter);
    repaired = 1;
  });
  return repaired;
}

const char* igsGlobalSection::description(int parameter) {
  const char* found = nullptr;
  Table::each([&](const auto& row) {
    if (row.number == parameter) found = row.description;
  });
  return found;
}

bool igsGlobalSection::dates_modification() const { return m_iges_version >= version_with_modification_date; }

int igsGlobalSection::max_version() const {
  if (m_max_version == 0) set_max_version();
  return m_max_version;
}

void igsGlobalSection::set_max_version() const {
  while (igsInfoDB::version_exists(m_max_version + 1)) ++m_max_version;
}

int igsGlobalSection::valid_delimiter(char c) const {
  constexpr unsigned char first_printable = 0x21;
  constexpr unsigned char delete_character = 0x7f;
  const auto code = static_cast<unsigned char>(c);
  if (code < first_printable || code == delete_character || (c >= '0' && c <= '9')) return 0;
  return utString("+-.DEH").find(c) == utString::npos ? 1 : 0;
}

/// The whole section; 0 where the delimiters cannot be used.
int igsGlobalSection::read_parameters(igsInStream& in, utOstream& messages) {
  if (read_parameter_delimiter(in, messages) == 0 || read_record_delimiter(in, messages) == 0) return 0;
  Table::read(*this, in);
  in.error();  // collects, or the fields of the next section would answer for what these have met
  if (in.reset() != 0) in.clear_errors();
  while (in.in_section(igsGlobalSectionId) != 0) in.skip_line();
  return 1;
}

/// As read_parameters, from `records`, the data of all records of the section, after the counts of its strings have
/// been corrected there.
int igsGlobalSection::read_corrected(igsInStream& in, utString& records, utOstream& messages) {
  while (in.in_section(igsGlobalSectionId) != 0) in.skip_line();
  std::vector<igsFieldKind> kinds;
  Table::each([&kinds](const auto& row) { add_kinds(kinds, row.member); });
  const bool delimiter_given = records.size() > 3 && records.compare(0, 2, "1H") == 0;
  const std::size_t second = delimiter_given ? 4 : 1;
  const bool second_given = records.size() > second + 3 && records.compare(second, 2, "1H") == 0;
  const auto corrected =
      igs_correct_string_counts(records, delimiter_given ? records[2] : default_parameter_delimiter,
                                second_given ? records[second + 2] : default_record_delimiter, kinds);
  std::string lines;
  for (std::size_t i = 0; i < records.size(); i += data_columns) {
    utString line = records.substr(i, data_columns);
    line.resize(data_columns, ' ');
    lines += line + "G      1\n";
  }
  std::istringstream text(lines);
  igsInStream again(text);
  again.reset();  // a file begins with the Start section
  const int result = read_parameters(again, messages);
  in.set_param_delimiter(again.param_delimiter());
  in.set_record_delimiter(again.record_delimiter());
  if (in.reset() != 0) in.clear_errors();
  for (const int number : corrected) tag_error(new igsGlobalSectionWrongStringCount(number));
  return result;
}

int igsGlobalSection::last_known() const { return dates_modification() ? modification_date : modification_date - 1; }

void igsGlobalSection::note_lines(const igsInStream& in, const utString& records,
                                  const std::vector<std::pair<std::size_t, int>>& lines) {
  igsFieldTexts fields;
  std::vector<std::size_t> begins;
  fields.take(records, 0, in.param_delimiter(), in.record_delimiter(), &begins);
  m_lines.clear();
  auto line = lines.begin();
  for (const std::size_t begin : begins) {
    while (line != lines.end() && std::next(line) != lines.end() && std::next(line)->first <= begin) ++line;
    m_lines.push_back(line != lines.end() ? line->second : 0);
  }
}

int igsGlobalSection::line(int parameter) const {
  const auto i = static_cast<std::size_t>(parameter) - 1;
  return i < m_lines.size() ? m_lines[i] : 0;
}

void igsGlobalSection::keep_rest(const igsInStream& in, const utString& records) {
  igsFieldTexts all;
  const std::size_t end = all.take(records, 0, in.param_delimiter(), in.record_delimiter());
  const std::vector<std::string_view> fields = all.fields();
  m_extra_fields = {};
  m_last_read = last_known();
  for (auto i = static_cast<std::size_t>(m_last_read); i < fields.size(); ++i) m_extra_fields.append(fields[i]);
  const std::size_t last = records.find_last_not_of(' ') + 1;
  m_comment = end < last ? records.substr(end, last - end) : utString();
}

int igsGlobalSection::read(igsInStream& in, utOstream& messages) {
  const igsFileOptions options = m_owner != nullptr ? m_owner->options() : igsFileOptions();
  utString records;
  std::vector<std::pair<std::size_t, int>> lines;
  if (options.keep) m_last_read = modification_date;  // also where nothing can be read
  const bool note_letter = options.style.exponent_letter == igsExponentLetter::as_read;
  if (options.keep || options.recover || options.lines || note_letter) in.collect_text(&records, &lines);
  const int can_be_read = options.recover ? read_corrected(in, records, messages) : read_parameters(in, messages);
  in.collect_text(nullptr);
  if (can_be_read == 0) return 0;
  if (options.keep) keep_rest(in, records);
  if (options.lines) note_lines(in, records, lines);
  if (note_letter) m_owner->note_exponent_letter(in, records);
  const int result = in.reset();
  if (result != 0) in.clear_errors();
  return result;
}

int igsGlobalSection::read(igsInStream& in, utOstream& messages, int& out_of_order, int& blank_lines) {
  const int result = read(in, messages);
  if (in.ever_met(igsIOSequenceOutOfOrder)) out_of_order = 1;
  if (in.ever_met(igsIOBlankLine)) blank_lines = 1;
  return result;
}

// The delimiter is read column by column: before it is known, no field has an end.
int igsGlobalSection::read_parameter_delimiter(igsInStream& in, utOstream& /*messages*/) {
  char delimiter = default_parameter_delimiter;
  utString text;
  in.read_string(1, text);
  mark(1, text == "1");
  if (text == "1") {
    in.read_string(3, text);
    if (text.size() < 3 || text[0] != 'H' || text[1] != text[2]) return 0;
    delimiter = text[1];
    text = utString(1, delimiter);
    if (valid_delimiter(delimiter) == 0) {
      tag_error(new igsGlobalSectionInvalidParamDelim(text));
      return 0;
    }
  } else if (!text.empty() && text[0] != delimiter) {
    tag_error(new igsGlobalSectionInvalidParamDelim(text));
    return 0;
  }
  m_parameter_delimiter = delimiter;
  in.set_param_delimiter(delimiter);
  return 1;
}

int igsGlobalSection::read_record_delimiter(igsInStream& in, utOstream& /*messages*/) {
  // Where ";" separates parameters, it does not yet end the record.
  if (m_parameter_delimiter == default_record_delimiter) in.set_record_delimiter('\0');
  utString text;
  mark(2, read_field(in, text));
  if (!given(2)) text = default_record_delimiter;
  // One character cannot do both: every field would end the record, and the file could not be read back.
  if (text.size() != 1 || valid_delimiter(text[0]) == 0 || text[0] == m_parameter_delimiter) {
    tag_error(new igsGlobalSectionInvalidRecordDelim(text));
    return 0;
  }
  m_record_delimiter = text[0];
  in.set_record_delimiter(m_record_delimiter);
  return 1;
}

/// Takes a units name that is understood for the standard one, unless the flag stands for another unit. A flag out of
/// range stays, and is told from the name when it is repaired.
void igsGlobalSection::recover_units() {
  const utString name = m_units.name();
  const igsUnitType flag = m_units.type(), named = igsUnits::recognised(name);
  if (named == 0 || igsUnits::type(name) != 0) return;
  const igsUnits standard(named);
  if (flag == igs_unset_int || igsUnits::check_units(flag, standard.name()) != 0) {
    set_units(standard);
  } else if (igsUnits::name(flag) == igsUnits::name(0)) {
    m_units.set_name(standard.name());
  } else {
    return;
  }
  tag_error(new igsGlobalSectionReadUnitsName(name, standard.name()));
}

int igsGlobalSection::read_units(igsInStream& in, utOstream& /*messages*/) {
  Table::read(*this, in, Table::row<units_flag>());
  return 1;
}

void igsGlobalSection::tag_error(igsGlobalError* error) const {
  if (error == nullptr) return;
  // Errors repair the section that reports them, even one that is only checked.
  error->set_key(const_cast<igsGlobalSection*>(this));
  if (m_owner != nullptr) error->set_message_stream(m_owner->message_stream());
}

void igsGlobalSection::check() const {
  std::optional<igsFileScope> own_file;
  if (m_owner != nullptr) own_file.emplace(*m_owner);
  forget_last_check();
  Table::each([this](const auto& row) {
    const auto& value = this->*row.member;
    if (row.fault != nullptr && (row.valid == nullptr || !row.valid(value))) tag_fault(row.fault(value));
  });
}

void igsGlobalSection::forget_last_check() const {
  igsSimpleSectionLog* const log = igsObjectSystem::log().get_section_log(igsGlobalLog);
  igsSimpleSectionLogIT errors(log);
  while (++errors) {
    auto* const error = static_cast<igsGlobalError*>(errors());
    if (error->key() == this && error->found_by_check()) log->delete_error(error);
  }
}

void igsGlobalSection::tag_fault(igsGlobalError* error) const {
  if (error == nullptr) return;
  error->set_found_by_check();
  tag_error(error);
}

void igsGlobalSection::set_what_was_never_set() {
  const auto set = [](auto& member, auto unset, auto value) {
    if (member == unset) member = value;
  };
  set(m_binary_bits_for_int, igs_unset_int, static_cast<int>(CHAR_BIT * sizeof(int)));
  set(m_sp_max_pow10, igs_unset_int, std::numeric_limits<float>::max_exponent10);
  set(m_sp_sig_digs, igs_unset_int, std::numeric_limits<float>::digits10);
  set(m_dp_max_pow10, igs_unset_int, std::numeric_limits<double>::max_exponent10);
  set(m_dp_sig_digs, igs_unset_int, std::numeric_limits<double>::digits10);
  set(m_minimum_resolution, igs_undefined_real, default_resolution);
  set(m_max_coord_value, igs_undefined_real, DBL_MAX);
}

int igsGlobalSection::write(igsOutStream& out, utOstream& /*messages*/) {
  if (m_last_read == 0) set_what_was_never_set();
  out.set_section(igsGlobalSectionId);
  out.set_delimiters(utString(1, m_parameter_delimiter), utString(1, m_record_delimiter));
  const std::vector<std::string_view> extra = m_extra_fields.fields();
  const int last = extra.empty() ? last_known() : std::max(last_known(), m_last_read);
  Table::each([&](const auto& row) {
    if (row.number <= last) Table::write(*this, out, row);
  });
  for (auto i = static_cast<std::size_t>(last - m_last_read); i < extra.size(); ++i) out.write_field(extra[i]);
  out.set_comment(m_comment);
  const int result = out.reset();
  if (result != 0) out.clear_errors();
  return result;
}

void igsGlobalSection::print(utOstream& os) const {
  os << "GlobalSection = {" << utEndl;
  utOstream inner(os, 1);
  Table::each([&](const auto& row) { print_field(inner, row.label, this->*row.member); });
  os << '}' << utEndl;
}
