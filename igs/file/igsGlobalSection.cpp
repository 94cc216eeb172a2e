#include "igs/file/igsGlobalSection.h"

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <optional>

#include "igs/catalogue/igsInfoDB.h"
#include "igs/errors/igsErrorLog.h"
#include "igs/file/igsFile.h"
#include "igs/file/igsGlobalSection_errors.h"
#include "igs/file/igsObjectSystem.h"
#include "igs/input/igsInStream.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/utOstream.h"

namespace {

constexpr char default_parameter_delimiter = ',';
constexpr char default_record_delimiter = ';';
constexpr int min_integer_bits = 4;
constexpr int min_magnitude = 38;
constexpr int min_significance = 6;
constexpr int max_line_weights = 32768;
constexpr double min_resolution = 1e-15;
constexpr double default_resolution = 0.0001;
constexpr int num_drafting_standards = 8;
/// The first version flag (IGES 5.0) whose Global section has a modification date.
constexpr int version_with_modification_date = 8;

bool at_least(double value, double low) { return std::isfinite(value) && value >= low; }
bool above_zero(double value) { return std::isfinite(value) && value > 0.0; }

template <class Value>
int take_if(bool acceptable, Value& member, const Value& value) {
  if (!acceptable) return 0;
  member = value;
  return 1;
}

int take_text(utString& member, const utString& text) { return take_if(!text.empty(), member, text); }

void read_field(igsInStream& in, int& value) { in.read_integer(value); }
void read_field(igsInStream& in, double& value) { in.read_double(value); }
void read_field(igsInStream& in, utString& value) { in.read_holerith(value); }

/// Reads a parameter, which becomes `fallback` when it is not given. True when it was given.
template <class Value>
bool read_or(igsInStream& in, Value& value, const Value& fallback) {
  read_field(in, value);
  const bool given = in.take_value_present() != 0;
  if (!given) value = fallback;
  return given;
}

/// Turns the conditions of the fields read into the flags of the file.
void note_line_faults(igsInStream& in, int& out_of_order, int& blank_lines) {
  if (in.error_type(igsIOSequenceOutOfOrder) != 0) out_of_order = 1;
  if (in.error_type(igsIOBlankLine) != 0) blank_lines = 1;
}

class ParameterPrinter {
 public:
  explicit ParameterPrinter(utOstream& os) : m_os(os) {}

  void operator()(const char* label, const utString& text) { m_os << label << " = \"" << text << '"' << utEndl; }
  void operator()(const char* label, char c) { (*this)(label, utString(1, c)); }
  void operator()(const char* label, const igsDate& date) { (*this)(label, date.date_string()); }
  void operator()(const char* label, int value) { m_os << label << " = " << value << utEndl; }
  void operator()(const char* label, double value) { m_os << label << " = " << value << utEndl; }

 private:
  utOstream& m_os;
};

class ParameterWriter {
 public:
  explicit ParameterWriter(igsOutStream& out) : m_out(out) {}

  void operator()(const char*, const utString& text) { m_out.write_holerith(text); }
  void operator()(const char*, char c) { m_out.write_holerith(utString(1, c)); }
  void operator()(const char*, const igsDate& date) { m_out.write_holerith(date.date_string()); }
  void operator()(const char*, int value) { m_out.write_integer(value); }
  void operator()(const char*, double value) { m_out.write_double(value); }

 private:
  igsOutStream& m_out;
};

}  // namespace

int igsGlobalSection::set_parameter_delimiter(char delimiter) {
  return take_if(valid_delimiter(delimiter) != 0 && delimiter != m_record_delimiter, m_parameter_delimiter, delimiter);
}

int igsGlobalSection::set_record_delimiter(char delimiter) {
  return take_if(valid_delimiter(delimiter) != 0 && delimiter != m_parameter_delimiter, m_record_delimiter, delimiter);
}

int igsGlobalSection::set_product_id_from_sending_system(const utString& text) {
  return take_text(m_product_id_from_sending_system, text);
}

int igsGlobalSection::set_file_name(const utString& text) { return take_text(m_file_name, text); }

int igsGlobalSection::set_system_id(const utString& text) { return take_text(m_system_id, text); }

int igsGlobalSection::set_preprocessor_version(const utString& text) { return take_text(m_preprocessor_version, text); }

int igsGlobalSection::set_binary_bits_for_int(int bits) {
  return take_if(bits >= min_integer_bits, m_binary_bits_for_int, bits);
}

int igsGlobalSection::set_sp_max_pow10(int power) { return take_if(power >= min_magnitude, m_sp_max_pow10, power); }

int igsGlobalSection::set_sp_sig_digs(int digits) { return take_if(digits >= min_significance, m_sp_sig_digs, digits); }

int igsGlobalSection::set_dp_max_pow10(int power) { return take_if(power >= min_magnitude, m_dp_max_pow10, power); }

int igsGlobalSection::set_dp_sig_digs(int digits) { return take_if(digits >= min_significance, m_dp_sig_digs, digits); }

int igsGlobalSection::set_product_id_for_receiving_system(const utString& text) {
  return take_text(m_product_id_for_receiving_system, text);
}

int igsGlobalSection::set_model_space_scale(double scale) {
  return take_if(above_zero(scale), m_model_space_scale, scale);
}

int igsGlobalSection::set_max_number_of_line_weights(int number) {
  return take_if(number >= 1 && number <= max_line_weights, m_max_number_of_line_weights, number);
}

int igsGlobalSection::set_width_of_max_line_weight(double width) {
  return take_if(at_least(width, 0.0), m_width_of_max_line_weight, width);
}

int igsGlobalSection::set_minimum_resolution(double resolution) {
  return take_if(at_least(resolution, min_resolution), m_minimum_resolution, resolution);
}

int igsGlobalSection::set_name_of_author(const utString& text) { return take_text(m_name_of_author, text); }

int igsGlobalSection::set_authors_organization(const utString& text) { return take_text(m_authors_organization, text); }

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

int igsGlobalSection::read(igsInStream& in, utOstream& messages, int& out_of_order, int& blank_lines) {
  const int delimiters_read =
      read_parameter_delimiter(in, messages) != 0 && read_record_delimiter(in, messages) != 0 ? 1 : 0;
  if (delimiters_read != 0) read_parameters(in, messages);
  note_line_faults(in, out_of_order, blank_lines);
  if (delimiters_read == 0) return 0;

  if (in.reset() != 0) in.clear_errors();
  while (in.in_section(igsGlobalSectionId) != 0) in.skip_line();
  note_line_faults(in, out_of_order, blank_lines);
  const int result = in.reset();
  if (result != 0) in.clear_errors();
  return result;
}

// The delimiter is read column by column: before it is known, no field has an end.
int igsGlobalSection::read_parameter_delimiter(igsInStream& in, utOstream& /*messages*/) {
  char delimiter = default_parameter_delimiter;
  utString text;
  in.read_string(1, text);
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
  read_or(in, text, utString(1, default_record_delimiter));
  // One character cannot do both: every field would end the record, and the file could not be read back.
  if (text.size() != 1 || valid_delimiter(text[0]) == 0 || text[0] == m_parameter_delimiter) {
    tag_error(new igsGlobalSectionInvalidRecordDelim(text));
    return 0;
  }
  m_record_delimiter = text[0];
  in.set_record_delimiter(m_record_delimiter);
  return 1;
}

void igsGlobalSection::read_parameters(igsInStream& in, utOstream& messages) {
  read_required(in, 3, m_product_id_from_sending_system);
  read_or(in, m_file_name, utString());
  read_required(in, 5, m_system_id);
  read_required(in, 6, m_preprocessor_version);
  read_required(in, 7, m_binary_bits_for_int);
  read_required(in, 8, m_sp_max_pow10);
  read_required(in, 9, m_sp_sig_digs);
  read_required(in, 10, m_dp_max_pow10);
  read_required(in, 11, m_dp_sig_digs);
  read_or(in, m_product_id_for_receiving_system, m_product_id_from_sending_system);
  read_or(in, m_model_space_scale, 1.0);
  read_units(in, messages);
  read_number_of_line_weights(in);
  read_or(in, m_width_of_max_line_weight, 0.0);
  read_creation_date(in);
  if (!read_or(in, m_minimum_resolution, default_resolution)) {
    tag_error(new igsGlobalSectionIllegalDefault(19, igsGlobalReal));
  }
  read_or(in, m_max_coord_value, DBL_MAX);
  read_or(in, m_name_of_author, utString("unknown"));
  read_or(in, m_authors_organization, utString("unknown"));
  read_or(in, m_iges_version, 3);
  read_or(in, m_drafting_standard, 0);
  read_modification_date(in);
}

void igsGlobalSection::read_required(igsInStream& in, int parameter, utString& text) {
  if (!read_or(in, text, utString())) tag_error(new igsGlobalSectionIllegalDefault(parameter, igsGlobalString));
}

void igsGlobalSection::read_required(igsInStream& in, int parameter, int& number) {
  if (!read_or(in, number, unset_int)) tag_error(new igsGlobalSectionIllegalDefault(parameter, igsGlobalInteger));
}

int igsGlobalSection::read_units(igsInStream& in, utOstream& /*messages*/) {
  igsUnitType flag = unset_int;
  read_required(in, 14, flag);
  utString name;
  m_units = read_or(in, name, utString()) ? igsUnits(name, flag) : igsUnits(flag);
  return 1;
}

void igsGlobalSection::read_number_of_line_weights(igsInStream& in) {
  int number = 1;
  read_or(in, number, 1);
  m_max_number_of_line_weights = std::clamp(number, 1, max_line_weights);
  if (number != m_max_number_of_line_weights) {
    tag_error(new igsGlobalSectionInvalidMaxNumLineWeightGrads(m_max_number_of_line_weights));
  }
}

void igsGlobalSection::read_creation_date(igsInStream& in) {
  utString text;
  if (read_or(in, text, utString())) {
    m_file_creation_date = igsDate(text);
  } else {
    tag_error(new igsGlobalSectionIllegalDefault(18, igsGlobalString));
  }
}

void igsGlobalSection::read_modification_date(igsInStream& in) {
  utString text;
  const bool given = read_or(in, text, utString());
  if (m_iges_version >= version_with_modification_date) {
    m_file_modification_date = given ? igsDate(text) : m_file_creation_date;
  } else if (given) {
    tag_error(new igsGlobalSectionExtraModificationDate);
  }
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
  check_number_formats();
  if (!above_zero(m_model_space_scale)) tag_fault(new igsGlobalSectionInvalidModelSpaceScale(m_model_space_scale));
  tag_fault(m_units.check());
  if (!at_least(m_width_of_max_line_weight, 0.0)) {
    tag_fault(new igsGlobalSectionInvalidMaxLineWeightWidth(m_width_of_max_line_weight));
  }
  if (m_file_creation_date.check() == 0) {
    tag_fault(new igsGlobalSectionInvalidFileCreationDate(m_file_creation_date.date_string()));
  }
  if (!at_least(m_minimum_resolution, min_resolution)) {
    tag_fault(new igsGlobalSectionInvalidMinResolution(m_minimum_resolution));
  }
  if (is_undefined_real(m_max_coord_value) || !std::isfinite(m_max_coord_value)) {
    tag_fault(new igsGlobalSectionInvalidMaxCoordinate(m_max_coord_value));
  }
  if (m_iges_version < 1 || m_iges_version > max_version()) {
    tag_fault(new igsGlobalSectionInvalidIgesVersion(m_iges_version));
  }
  if (m_drafting_standard < 0 || m_drafting_standard >= num_drafting_standards) {
    tag_fault(new igsGlobalSectionInvalidDraftingStandard(m_drafting_standard));
  }
  if (m_file_modification_date.check() == 0) {
    tag_fault(new igsGlobalSectionInvalidFileModificationDate(m_file_modification_date.date_string()));
  }
}

void igsGlobalSection::check_number_formats() const {
  if (m_binary_bits_for_int < min_integer_bits) {
    tag_fault(new igsGlobalSectionInvalidIntegerSize(m_binary_bits_for_int));
  }
  if (m_sp_max_pow10 < min_magnitude) tag_fault(new igsGlobalSectionInvalidSinglePrecMagnitude(m_sp_max_pow10));
  if (m_sp_sig_digs < min_significance) tag_fault(new igsGlobalSectionInvalidSinglePrecSignificance(m_sp_sig_digs));
  if (m_dp_max_pow10 < min_magnitude) tag_fault(new igsGlobalSectionInvalidDoublePrecMagnitude(m_dp_max_pow10));
  if (m_dp_sig_digs < min_significance) tag_fault(new igsGlobalSectionInvalidDoublePrecSignificance(m_dp_sig_digs));
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

template <class Visitor>
void igsGlobalSection::parameters(Visitor visitor) const {
  visitor("ParameterDelimiter", m_parameter_delimiter);
  visitor("RecordDelimiter", m_record_delimiter);
  visitor("ProductIDFromSendingSystem", m_product_id_from_sending_system);
  visitor("FileName", m_file_name);
  visitor("SystemID", m_system_id);
  visitor("PreprocessorVersion", m_preprocessor_version);
  visitor("BinaryBitsForInt", m_binary_bits_for_int);
  visitor("SPMaxPow10", m_sp_max_pow10);
  visitor("SPSigDigs", m_sp_sig_digs);
  visitor("DPMaxPow10", m_dp_max_pow10);
  visitor("DPSigDigs", m_dp_sig_digs);
  visitor("ProductIDForReceivingSystem", m_product_id_for_receiving_system);
  visitor("ModelSpaceScale", m_model_space_scale);
  visitor("UnitsFlag", m_units.type());
  visitor("UnitsName", m_units.name());
  visitor("MaxNumberOfLineWeights", m_max_number_of_line_weights);
  visitor("WidthOfMaxLineWeight", m_width_of_max_line_weight);
  visitor("FileCreationDate", m_file_creation_date);
  visitor("MinimumResolution", m_minimum_resolution);
  visitor("MaxCoordValue", m_max_coord_value);
  visitor("NameOfAuthor", m_name_of_author);
  visitor("AuthorsOrganization", m_authors_organization);
  visitor("IGESVersion", m_iges_version);
  visitor("DraftingStandard", m_drafting_standard);
}

void igsGlobalSection::set_what_was_never_set() {
  const auto set = [](auto& member, auto unset, auto value) {
    if (member == unset) member = value;
  };
  set(m_binary_bits_for_int, unset_int, static_cast<int>(CHAR_BIT * sizeof(int)));
  set(m_sp_max_pow10, unset_int, std::numeric_limits<float>::max_exponent10);
  set(m_sp_sig_digs, unset_int, std::numeric_limits<float>::digits10);
  set(m_dp_max_pow10, unset_int, std::numeric_limits<double>::max_exponent10);
  set(m_dp_sig_digs, unset_int, std::numeric_limits<double>::digits10);
  set(m_minimum_resolution, undefined_real, default_resolution);
  set(m_max_coord_value, undefined_real, DBL_MAX);
}

int igsGlobalSection::write(igsOutStream& out, utOstream& /*messages*/) {
  set_what_was_never_set();
  out.set_section(igsGlobalSectionId);
  out.set_delimiters(utString(1, m_parameter_delimiter), utString(1, m_record_delimiter));
  ParameterWriter writer(out);
  parameters(writer);
  if (m_iges_version >= version_with_modification_date) writer("", m_file_modification_date);
  const int result = out.reset();
  if (result != 0) out.clear_errors();
  return result;
}

void igsGlobalSection::print(utOstream& os) const {
  os << "GlobalSection = {" << utEndl;
  utOstream inner(os, 1);
  ParameterPrinter printer(inner);
  parameters(printer);
  printer("FileModificationDate", m_file_modification_date);
  os << '}' << utEndl;
}
