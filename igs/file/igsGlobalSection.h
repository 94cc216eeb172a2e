#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "igs/file/igsDate.h"
#include "igs/file/igsUnits.h"
#include "igs/input/igsFieldTexts.h"
#include "igs/support/export.h"
#include "igs/support/undefined.h"
#include "igs/support/utString.h"

class igsFile;
class igsGlobalError;
class igsInStream;
class igsOutStream;
class utOstream;

/// The value of a Global parameter. Delimiters and dates are texts; the units are flag and name in one.
using igsGlobalValue = std::variant<utString, int, double, igsUnits>;

/// One parameter as igsGlobalSection::parameters lists it.
struct igsGlobalParameter {
  int number;            ///< 1 to 25; the units, 14 and 15, have 14
  utString name;         ///< of the accessor: "iges_version"
  igsGlobalValue value;  ///< as the accessor gives it
};

/// The parameters of the Global section (IGES 5.3, section 2.2.4.3). Lengths are in the file's units. An integer that
/// the file does not give is -2147483647, a real -DBL_MAX, except where a default is named.
///
/// Setters that return an int take what `check` would not complain of and return 1; they refuse the rest with 0, the
/// section as it was.
class IGS_API igsGlobalSection {
 public:
  /// A section without a file, or of `owner`, which is not owned.
  igsGlobalSection() = default;
  explicit igsGlobalSection(igsFile* owner) : m_owner(owner) {}

  /// Copies every parameter and the owner.
  void become(const igsGlobalSection& other) { *this = other; }

  /// 1 and 2. The setters refuse what valid_delimiter refuses, and a character that is the other delimiter: a file
  /// whose delimiters are the same cannot be read back, every field ending the record. Reading refuses such a section,
  /// too.
  char parameter_delimiter() const { return m_parameter_delimiter; }
  int set_parameter_delimiter(char delimiter);
  char record_delimiter() const { return m_record_delimiter; }
  int set_record_delimiter(char delimiter);

  /// 3. The setter refuses an empty text, as those of all texts do.
  const utString& product_id_from_sending_system() const { return m_product_id_from_sending_system; }
  int set_product_id_from_sending_system(const utString& text);
  /// 4.
  const utString& file_name() const { return m_file_name; }
  int set_file_name(const utString& text);
  /// 5: the system that wrote the file.
  const utString& system_id() const { return m_system_id; }
  int set_system_id(const utString& text);
  /// 6.
  const utString& preprocessor_version() const { return m_preprocessor_version; }
  int set_preprocessor_version(const utString& text);

  /// 7: bits of an integer on the sending system, at least 4.
  int binary_bits_for_int() const { return m_binary_bits_for_int; }
  int set_binary_bits_for_int(int number);
  /// 8 and 9: largest power of ten and significant digits of a single precision real, at least 38 and 6.
  int sp_max_pow10() const { return m_sp_max_pow10; }
  int set_sp_max_pow10(int number);
  int sp_sig_digs() const { return m_sp_sig_digs; }
  int set_sp_sig_digs(int number);
  /// 10 and 11: the same of a double precision real, at least 38 and 6.
  int dp_max_pow10() const { return m_dp_max_pow10; }
  int set_dp_max_pow10(int number);
  int dp_sig_digs() const { return m_dp_sig_digs; }
  int set_dp_sig_digs(int number);

  /// 12: parameter 3 unless given.
  const utString& product_id_for_receiving_system() const { return m_product_id_for_receiving_system; }
  int set_product_id_for_receiving_system(const utString& text);

  /// 13: model units by real world units, above 0.
  double model_space_scale() const { return m_model_space_scale; }
  int set_model_space_scale(double value);
  /// 14 and 15.
  const igsUnits& units() const { return m_units; }
  void set_units(const igsUnits& units);
  /// 16: number of line weight gradations, 1 to 32768; 17: width of the thickest line, at least 0.
  int max_number_of_line_weights() const { return m_max_number_of_line_weights; }
  int set_max_number_of_line_weights(int number);
  double width_of_max_line_weight() const { return m_width_of_max_line_weight; }
  int set_width_of_max_line_weight(double value);

  /// 18.
  const igsDate& file_creation_date() const { return m_file_creation_date; }
  void set_file_creation_date(const igsDate& date);
  /// 19: smallest distance between coordinates that counts as a difference, at least 1e-15.
  double minimum_resolution() const { return m_minimum_resolution; }
  int set_minimum_resolution(double value);
  /// 20: no coordinate is larger. -DBL_MAX was never set, DBL_MAX is no limit.
  double max_coord_value() const { return m_max_coord_value; }
  void set_max_coord_value(double value);

  /// 21.
  const utString& name_of_author() const { return m_name_of_author; }
  int set_name_of_author(const utString& text);
  /// 22.
  const utString& authors_organization() const { return m_authors_organization; }
  int set_authors_organization(const utString& text);

  /// 23: version flag, 1 to max_version(); 3 is IGES 2.0, 11 is IGES 5.3.
  int iges_version() const { return m_iges_version; }
  void set_iges_version(int version);
  /// 24: drafting standard flag, 0 to 7.
  int drafting_standard() const { return m_drafting_standard; }
  void set_drafting_standard(int standard);
  /// 25: read and written from version flag 8 on.
  const igsDate& file_modification_date() const { return m_file_modification_date; }
  void set_file_modification_date(const igsDate& date);

  /// 26, in a file that keeps it (igsFileOptions::keep); empty where it is not given.
  utString application_protocol() const;

  /// Whether parameter 1 to 26 has a value that the file gave, or that a host or a repair has set since; false for any
  /// other number. One whose field was empty or could not be read is not given, nor is 25 where the version has none;
  /// 26, the application protocol, is known in a file that keeps it. In such a file (igsFileOptions::keep) what was not
  /// given is written as an empty field, so that reading it again gives the same answers.
  bool given(int parameter) const;

  /// The parameters behind the last one that the file's version has, and the text behind the record delimiter, in a
  /// file that keeps them (igsFileOptions::keep). Written again.
  const igsFieldTexts& extra_fields() const { return m_extra_fields; }
  const utString& comment() const { return m_comment; }
  void set_comment(const utString& comment) { m_comment = comment; }

  /// The line of the input on which a parameter (1 to 25) stands, 1-based; 0 where it is not known
  /// (igsFileOptions::lines).
  int line(int parameter) const;

  /// All parameters in the order of the file.
  std::vector<igsGlobalParameter> parameters() const;
  /// Gives a parameter (its number) the value that repairs it and returns 1; 0 for one that has no such value.
  int repair(int parameter);
  /// What messages call a parameter that must be given ("system id"); null for any other number.
  static const char* description(int parameter);

  /// The largest version flag that igsInfoDB knows.
  int max_version() const;

  /// Logs one error for every parameter that has no valid value. A real that is not finite counts as invalid.
  void check() const;
  void print(utOstream& os) const;

 protected:
  friend class igsFile;

  /// Reads the section to its end and hands the delimiters to `in`. 0 when a delimiter is invalid or the stream cannot
  /// go on.
  int read(igsInStream& in, utOstream& messages);
  /// As above; sets `out_of_order` and `blank_lines` to 1 when `in` has met sequence numbers out of order (code 9) or
  /// blank lines (code 20), else leaves them.
  int read(igsInStream& in, utOstream& messages, int& out_of_order, int& blank_lines);
  int read_parameter_delimiter(igsInStream& in, utOstream& messages);
  int read_record_delimiter(igsInStream& in, utOstream& messages);
  int read_units(igsInStream& in, utOstream& messages);
  /// 1 for "," and ";" and whatever can be told from a number, a Hollerith string and white space: no control
  /// character, blank, digit, "+", "-", ".", "D", "E" or "H".
  int valid_delimiter(char c) const;
  /// Writes every parameter as it is held, after those that never got a value (7 to 11, 19 and 20) have been given one:
  /// the number formats of this machine, a resolution of 0.0001, no largest coordinate. A section that was read in a
  /// file that keeps what it reads holds what was given instead, and the other fields are empty. 0 only when the stream
  /// cannot go on.
  int write(igsOutStream& out, utOstream& messages);
  /// Gives the error this section and the message stream of the owner.
  void tag_error(igsGlobalError* error) const;

 private:
  void set_owner(igsFile* owner) { m_owner = owner; }
  void set_max_version() const;

  struct Table;

  bool dates_modification() const;
  int last_known() const;
  int read_parameters(igsInStream& in, utOstream& messages);
  int read_corrected(igsInStream& in, utString& records, utOstream& messages);
  void keep_rest(const igsInStream& in, const utString& records);
  void note_lines(const igsInStream& in, const utString& records,
                  const std::vector<std::pair<std::size_t, int>>& lines);
  void recover_units();
  void mark(int parameter, bool is_given = true);
  bool is_left_out(int parameter) const;
  std::string_view extra_field(int parameter) const;
  void set_what_was_never_set();
  void forget_last_check() const;
  void tag_fault(igsGlobalError* error) const;

  char m_parameter_delimiter = ',';
  char m_record_delimiter = ';';
  utString m_product_id_from_sending_system = "Unknown";
  utString m_file_name = "Unknown";
  utString m_system_id = "Unknown";
  utString m_preprocessor_version = "Unknown";
  int m_binary_bits_for_int = igs_unset_int;
  int m_sp_max_pow10 = igs_unset_int;
  int m_sp_sig_digs = igs_unset_int;
  int m_dp_max_pow10 = igs_unset_int;
  int m_dp_sig_digs = igs_unset_int;
  utString m_product_id_for_receiving_system = "Unknown";
  double m_model_space_scale = 1.0;
  igsUnits m_units;
  int m_max_number_of_line_weights = 1;
  double m_width_of_max_line_weight = 0.0;
  igsDate m_file_creation_date;
  double m_minimum_resolution = igs_undefined_real;
  double m_max_coord_value = igs_undefined_real;
  utString m_name_of_author = "Unknown";
  utString m_authors_organization = "Unknown";
  int m_iges_version = 3;
  int m_drafting_standard = 0;
  igsDate m_file_modification_date;

  std::uint32_t m_given = 0;  ///< bit n: parameter n
  igsFieldTexts m_extra_fields;
  int m_last_read = 0;  ///< the parameter before the extra fields; 0 where reading did not keep what it read
  utString m_comment;
  std::vector<int> m_lines;  ///< of the input, by parameter
  igsFile* m_owner = nullptr;
  mutable int m_max_version = 0;  // 0: not computed yet
};
