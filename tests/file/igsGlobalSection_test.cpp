#include "igs/file/igsGlobalSection.h"

#include <gmock/gmock.h>

#include <cfloat>
#include <cmath>
#include <limits>
#include <numeric>

#include "file/section_reading.h"
#include "igs/file/igsGlobalSection_errors.h"
#include "igs/file/igsObjectSystem.h"

namespace {

using igs_test::active_errors;
using igs_test::section_records;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using Strings = std::vector<std::string>;

const double infinity = std::numeric_limits<double>::infinity();

class Section : public igsGlobalSection {
 public:
  using igsGlobalSection::igsGlobalSection;
  using igsGlobalSection::tag_error;
  using igsGlobalSection::valid_delimiter;

  /// Reads Global records and what follows them.
  int read_text(const std::string& text) {
    igs_test::SectionInput input(section_records('S', "s") + text);
    while (input.in.in_section(igsStartSectionId) != 0) input.in.skip_line();
    input.in.reset();
    std::ostringstream report;
    utOstream messages(report);
    const int result = read(input.in, messages, out_of_order, blank_lines);
    at_directory = input.in.in_section(igsDirectorySectionId) != 0;
    return result;
  }
  /// Reads free-format text as the Global section of a file.
  int read_data(const std::string& data) {
    return read_text(section_records('G', data) + section_records('D', "     116"));
  }
  std::string written() {
    return igs_test::written_records([this](igsOutStream& out) {
      std::ostringstream report;
      utOstream messages(report);
      EXPECT_EQ(write(out, messages), 1);
    });
  }
  /// Its data columns run together.
  std::string written_data() {
    std::string data;
    for (const std::string& record : igs_test::records_of(written(), 'G')) data += record.substr(0, 72);
    return data;
  }

  int out_of_order = 0, blank_lines = 0;
  bool at_directory = false;
};

/// The parameters of a sound section; one of them replaced.
std::string parameters(int replaced = 0, const std::string& by = "") {
  Strings all{"1H,",
              "1H;",
              "4Htest",
              "8Htest.igs",
              "5Hmaker",
              "3H1.0",
              "32",
              "38",
              "6",
              "308",
              "15",
              "5Hother",
              "1.5",
              "2",
              "2HMM",
              "7",
              "0.25",
              "15H20200102.030405",
              "1.D-6",
              "1000.",
              "6Hauthor",
              "3Horg",
              "11",
              "2",
              "13H991231.235959"};
  if (replaced != 0) all[static_cast<std::size_t>(replaced) - 1] = by;
  return std::accumulate(all.begin() + 1, all.end(), all[0],
                         [](const std::string& a, const std::string& b) { return a + "," + b; }) +
         ";";
}

Strings fix_all(const igsFile& file) {
  Strings failed;
  igsSimpleSectionLogIT errors(file.error_log().get_section_log(igsGlobalLog));
  while (++errors != 0) {
    if (errors()->fix() == 0) failed.push_back(igs_test::describe(*errors()));
  }
  return failed;
}

/// The errors that check() adds to a file that has none of the Global section.
Strings checked(const igsGlobalSection& section) {
  const igsFile file;
  section.check();
  return active_errors(file);
}

const Strings unset_errors{"igsGlobalSectionInvalidIntegerSize -2147483647",
                           "igsGlobalSectionInvalidSinglePrecMagnitude -2147483647",
                           "igsGlobalSectionInvalidSinglePrecSignificance -2147483647",
                           "igsGlobalSectionInvalidDoublePrecMagnitude -2147483647",
                           "igsGlobalSectionInvalidDoublePrecSignificance -2147483647"};

TEST(GlobalSection, ReadsEveryParameter) {
  const igsFile file;
  Section s;
  EXPECT_EQ(s.read_data(parameters()), 1);
  EXPECT_TRUE(s.at_directory);
  EXPECT_THAT(active_errors(file), IsEmpty());
  EXPECT_THAT(checked(s), IsEmpty());
  EXPECT_EQ(s.out_of_order + s.blank_lines, 0);
  EXPECT_EQ(igs_test::printed(s),
            "GlobalSection = {\n\tParameterDelimiter = \",\"\n\tRecordDelimiter = \";\"\n"
            "\tProductIDFromSendingSystem = \"test\"\n\tFileName = \"test.igs\"\n\tSystemID = \"maker\"\n"
            "\tPreprocessorVersion = \"1.0\"\n\tBinaryBitsForInt = 32\n\tSPMaxPow10 = 38\n\tSPSigDigs = 6\n"
            "\tDPMaxPow10 = 308\n\tDPSigDigs = 15\n\tProductIDForReceivingSystem = \"other\"\n"
            "\tModelSpaceScale = 1.5\n\tUnitsFlag = 2\n\tUnitsName = \"MM\"\n\tMaxNumberOfLineWeights = 7\n"
            "\tWidthOfMaxLineWeight = 0.25\n\tFileCreationDate = \"20200102.030405\"\n"
            "\tMinimumResolution = 1e-06\n\tMaxCoordValue = 1000\n\tNameOfAuthor = \"author\"\n"
            "\tAuthorsOrganization = \"org\"\n\tIGESVersion = 11\n\tDraftingStandard = 2\n"
            "\tFileModificationDate = \"991231.235959\"\n}\n");
}

TEST(GlobalSection, WritesWhatItReads) {
  Section s, again;
  s.read_data(parameters());
  const std::string text = s.written();
  EXPECT_EQ(again.read_text(text + section_records('D', "     116")), 1);
  EXPECT_EQ(igs_test::printed(again), igs_test::printed(s));
  EXPECT_EQ(again.written(), text);
  EXPECT_THAT(text, testing::StartsWith("1H,,1H;,4Htest,8Htest.igs,5Hmaker,3H1.0,32,38,6,308,15,5Hother,1.5"));
}

TEST(GlobalSection, WritesTheModificationDateFromVersion8On) {
  Section s;
  s.read_data(parameters());
  EXPECT_THAT(s.written_data(), HasSubstr("11,2,13H991231.235959;"));
  s.set_iges_version(7);
  EXPECT_THAT(s.written_data(), HasSubstr("7,2;"));
}

TEST(GlobalSection, NewSection) {
  const igs_test::FixedClock clock;
  const igsGlobalSection s;
  EXPECT_EQ(s.parameter_delimiter(), ',');
  EXPECT_EQ(s.record_delimiter(), ';');
  for (const utString& text :
       {s.product_id_from_sending_system(), s.file_name(), s.system_id(), s.preprocessor_version(),
        s.product_id_for_receiving_system(), s.name_of_author(), s.authors_organization()}) {
    EXPECT_EQ(text, "Unknown");
  }
  EXPECT_EQ(s.model_space_scale(), 1.0);
  EXPECT_EQ(s.units(), igsUnits("MM", 2));
  EXPECT_EQ(s.max_number_of_line_weights(), 1);
  EXPECT_EQ(s.width_of_max_line_weight(), 0.0);
  EXPECT_EQ(s.file_creation_date().date_string(), "20261121.123059");
  EXPECT_EQ(s.file_modification_date().date_string(), "20261121.123059");
  EXPECT_EQ(s.iges_version(), 3);
  EXPECT_EQ(s.max_version(), 11);
  EXPECT_EQ(s.drafting_standard(), 0);
  Strings errors = unset_errors;
  errors.insert(errors.end(), {"igsGlobalSectionInvalidMinResolution -1.79769313486232e+308",
                               "igsGlobalSectionInvalidMaxCoordinate -1.79769313486232e+308"});
  EXPECT_EQ(checked(s), errors);
}

TEST(GlobalSection, AbsentParameters) {
  const igs_test::FixedClock clock;
  for (const char* data : {",;", ",,;", "1H,,1H;;", ",,,,,,,,,,,,,,,,,,,,,,,,;", ", , , ;"}) {
    const igsFile file;
    Section s;
    EXPECT_EQ(s.read_data(data), 1) << data;
    EXPECT_TRUE(s.at_directory) << data;
    EXPECT_THAT(active_errors(file),
                ElementsAre("igsGlobalSectionIllegalDefault 3,1", "igsGlobalSectionIllegalDefault 5,1",
                            "igsGlobalSectionIllegalDefault 6,1", "igsGlobalSectionIllegalDefault 7,2",
                            "igsGlobalSectionIllegalDefault 8,2", "igsGlobalSectionIllegalDefault 9,2",
                            "igsGlobalSectionIllegalDefault 10,2", "igsGlobalSectionIllegalDefault 11,2",
                            "igsGlobalSectionIllegalDefault 14,2", "igsGlobalSectionIllegalDefault 18,1",
                            "igsGlobalSectionIllegalDefault 19,3"))
        << data;
    EXPECT_EQ(s.product_id_from_sending_system() + s.file_name() + s.product_id_for_receiving_system(), "");
    EXPECT_EQ(s.model_space_scale(), 1.0);
    EXPECT_EQ(s.units(), igsUnits("UNKNOWN", igs_unset_int));
    EXPECT_EQ(s.max_number_of_line_weights(), 1);
    EXPECT_EQ(s.width_of_max_line_weight(), 0.0);
    EXPECT_EQ(s.file_creation_date().date_string(), "20261121.123059");
    EXPECT_EQ(s.minimum_resolution(), 0.0001);
    EXPECT_EQ(s.max_coord_value(), DBL_MAX);
    EXPECT_EQ(s.name_of_author(), "unknown");
    EXPECT_EQ(s.authors_organization(), "unknown");
    EXPECT_EQ(s.iges_version(), 3);
    EXPECT_EQ(s.drafting_standard(), 0);
    Strings errors = unset_errors;
    errors.emplace_back("igsGlobalSectionInvalidUnitsFlag -2147483647");
    EXPECT_EQ(checked(s), errors) << data;
  }
}

TEST(GlobalSection, AbsentReceivingProductAndModificationDateAreCopies) {
  Section s;
  s.read_data(parameters(12, ""));
  EXPECT_EQ(s.product_id_for_receiving_system(), "test");
  s.read_data(parameters(25, ""));
  EXPECT_EQ(s.file_modification_date().date_string(), "20200102.030405");
}

TEST(GlobalSection, FixesGiveEveryParameterItsFallback) {
  const igs_test::FixedClock clock;
  igsFile file;
  igs_test::RecordingSink sink;
  file.set_message_stream(&sink);
  Section s(&file);
  s.read_data(",;");
  s.check();
  EXPECT_THAT(fix_all(file), IsEmpty());
  EXPECT_THAT(checked(s), IsEmpty());
  EXPECT_EQ(s.product_id_from_sending_system() + s.system_id() + s.preprocessor_version(), "UnknownUnknownUnknown");
  EXPECT_EQ(s.file_name(), "");
  EXPECT_THAT(
      (Strings{std::to_string(s.binary_bits_for_int()), std::to_string(s.sp_max_pow10()),
               std::to_string(s.sp_sig_digs()), std::to_string(s.dp_max_pow10()), std::to_string(s.dp_sig_digs())}),
      ElementsAre("4", "38", "6", "308", "15"));
  EXPECT_EQ(s.units(), igsUnits("MM", 2));

  std::string texts;
  for (const char* field : {"3 (product id from sending system", "5 (system id", "6 (preprocessor version",
                            "7 (number of bits in an integer", "8 (maximum single precision float",
                            "9 (significant figures in a single precision float", "10 (maximum double precision float",
                            "11 (significant figures in a double precision float", "14 (units flag",
                            "18 (file creation date", "19 (minimum user-intended resolution"}) {
    texts +=
        "Warning : Invalid data has been found in the global section of the file.\nDefaulting the data for field " +
        std::string(field) + ")\n";
  }
  EXPECT_EQ(sink.text, texts);
  EXPECT_THAT(sink.tags, testing::Each("iges"));
}

struct Check {
  int parameter;
  const char* text;       // as it stands in the file
  const char* error;      // of read or check; "" for none
  const char* read_back;  // the parameter after the fix, as it is written
};

TEST(GlobalSection, OneBadParameter) {
  const igs_test::FixedClock clock;
  const Check checks[] = {
      {7, "3", "igsGlobalSectionInvalidIntegerSize 3", "4"},
      {7, "4", "", "4"},
      {7, "xyz", "igsGlobalSectionInvalidIntegerSize 0", "4"},
      {8, "37", "igsGlobalSectionInvalidSinglePrecMagnitude 37", "38"},
      {8, "38", "", "38"},
      {9, "5", "igsGlobalSectionInvalidSinglePrecSignificance 5", "6"},
      {10, "37", "igsGlobalSectionInvalidDoublePrecMagnitude 37", "308"},
      {10, "38", "", "38"},
      {11, "5", "igsGlobalSectionInvalidDoublePrecSignificance 5", "15"},
      {11, "6", "", "6"},
      {13, "0.", "igsGlobalSectionInvalidModelSpaceScale 0", "1."},
      {13, "-1.", "igsGlobalSectionInvalidModelSpaceScale -1", "1."},
      {14, "0", "igsGlobalSectionInvalidUnitsFlag 0", "2"},
      {14, "12", "igsGlobalSectionInvalidUnitsFlag 12", "2"},
      {14, "3", "", "3"},
      {14, "1", "igsGlobalSectionUnitNameTypeMismatch 1,MM", "1"},
      {15, "", "", "2HMM"},
      {15, "2Hmm", "igsGlobalSectionUnitNameTypeMismatch 2,mm", "2HMM"},
      {16, "0", "igsGlobalSectionInvalidMaxNumLineWeightGrads 1", "1"},
      {16, "32768", "", "32768"},
      {16, "40000", "igsGlobalSectionInvalidMaxNumLineWeightGrads 32768", "32768"},
      {17, "-0.5", "igsGlobalSectionInvalidMaxLineWeightWidth -0.5", "0."},
      {18, "15H20200230.030405", "igsGlobalSectionInvalidFileCreationDate 20200230.030405", "15H20261121.123059"},
      {18, "0H", "igsGlobalSectionInvalidFileCreationDate ", "15H20261121.123059"},
      {18, "13H120102.030405", "", "13H120102.030405"},
      {19, "9.D-16", "igsGlobalSectionInvalidMinResolution 9e-16", "1.D-4"},
      {19, "1.D-15", "", "1.D-15"},
      {20, "0.", "", "0."},
      {20, "-1.7976931348623157D308", "igsGlobalSectionInvalidMaxCoordinate -1.79769313486232e+308", nullptr},
      {23, "0", "igsGlobalSectionInvalidIgesVersion 0", "3"},
      {23, "12", "igsGlobalSectionInvalidIgesVersion 12", "3"},
      {24, "-1", "igsGlobalSectionInvalidDraftingStandard -1", "0"},
      {24, "8", "igsGlobalSectionInvalidDraftingStandard 8", "0"},
      {24, "7", "", "7"},
      {25, "13H270102.030405", "igsGlobalSectionInvalidFileModificationDate 270102.030405", "15H20261121.123059"}};
  for (const Check& c : checks) {
    SCOPED_TRACE(std::to_string(c.parameter) + " = " + c.text);
    const igsFile file;
    Section s, expected;
    EXPECT_EQ(s.read_data(parameters(c.parameter, c.text)), 1);
    s.check();
    Strings errors = active_errors(file);
    std::erase(errors, "igsGlobalSectionExtraModificationDate");  // version flag 0
    EXPECT_EQ(errors, *c.error == '\0' ? Strings() : Strings{c.error});
    fix_all(file);
    EXPECT_THAT(checked(s), IsEmpty());
    expected.read_data(parameters(c.parameter, c.read_back != nullptr ? c.read_back : "1.7976931348623157D308"));
    if (c.parameter == 14 && s.units().type() == 1) expected.set_units(igsUnits(1));
    expected.set_file_modification_date(s.file_modification_date());
    EXPECT_EQ(igs_test::printed(s), igs_test::printed(expected));
  }
}

TEST(GlobalSection, UnitFixes) {
  struct Case {
    const char *flag, *name;
    igsUnits fixed;
    const char* message;
  };
  const char* const mismatch =
      "Warning : There is a mismatch between the specified unit type and the unit name.\n"
      "Length units are being defaulted to ";
  for (const Case& c : {Case{"0", "2HIN", igsUnits("IN", 1), ""},
                        {"0", "3Hell", igsUnits("MM", 2), ""},
                        {"99", "2HKM", igsUnits("KM", 7), ""},
                        {"1", "2HMM", igsUnits("INCH", 1), "INCH.\n"},
                        {"3", "3Hell", igsUnits("UNKNOWN", 3), "UNKNOWN.\n"}}) {
    igsFile file;
    igs_test::RecordingSink sink;
    file.set_message_stream(&sink);
    Section s(&file);
    std::string data = parameters(14, c.flag);
    data.replace(data.find("2HMM"), 4, c.name);
    s.read_data(data);
    s.check();
    EXPECT_THAT(fix_all(file), IsEmpty());
    EXPECT_EQ(s.units(), c.fixed) << c.flag << c.name;
    EXPECT_EQ(sink.text, *c.message == '\0' ? "" : mismatch + utString(c.message));
  }
}

TEST(GlobalSection, RealsThatAreNotFiniteFailTheCheck) {
  Section s;
  s.read_data(parameters());
  for (const double value : {infinity, std::nan("")}) {
    EXPECT_EQ(s.set_model_space_scale(value) + s.set_width_of_max_line_weight(value) + s.set_minimum_resolution(value),
              0);
    s.set_max_coord_value(value);
    EXPECT_EQ(checked(s).size(), 1U);
  }
}

TEST(GlobalSection, ModificationDateOfAnEarlierVersionIsIgnored) {
  const igs_test::FixedClock clock;
  struct Case {
    const char *version, *date;
    Strings errors;
    const char* kept;
  };
  for (const Case& c : {Case{"6", "13H991231.235959", {"igsGlobalSectionExtraModificationDate"}, "20261121.123059"},
                        Case{"6", "", {}, "20261121.123059"},
                        Case{"7", "0", {"igsGlobalSectionExtraModificationDate"}, "20261121.123059"},
                        Case{"8", "13H991231.235959", {}, "991231.235959"}}) {
    const igsFile file;
    Section s;
    std::string data = parameters(25, c.date);
    data.replace(data.find(",11,2,"), 6, "," + std::string(c.version) + ",2,");
    EXPECT_EQ(s.read_data(data), 1);
    EXPECT_EQ(active_errors(file), c.errors) << data;
    EXPECT_EQ(s.file_modification_date().date_string(), c.kept) << data;
  }
}

TEST(GlobalSection, ValidDelimiters) {
  const Section s;
  const std::string refused = "0123456789+-.DEH ";
  for (int code = 0; code < 256; ++code) {
    const bool control = code < 32 || code == 127;
    const char c = static_cast<char>(code);
    EXPECT_EQ(s.valid_delimiter(c), !control && refused.find(c) == std::string::npos ? 1 : 0) << code;
  }
}

TEST(GlobalSection, Delimiters) {
  struct Case {
    const char* start;  // the text of the first two parameters
    int result;
    char parameter, record;
    Strings errors;
  };
  const Case cases[] = {
      {"1H,,1H;,", 1, ',', ';', {}},
      {",,", 1, ',', ';', {}},
      {",1H#,", 1, ',', '#', {}},
      {"1H||1H#|", 1, '|', '#', {}},
      {"1H;;1H,;", 1, ';', ',', {}},
      {"1H,, 1H;,", 1, ',', ';', {}},
      {"1H,;1H;,", 0, ',', ';', {}},
      {"1h,,1H;,", 0, ',', ';', {}},
      {"1X,,1H;,", 0, ',', ';', {}},
      {"1H55", 0, ',', ';', {"igsGlobalSectionInvalidParamDelim 5"}},
      {"1HHH1H;,", 0, ',', ';', {"igsGlobalSectionInvalidParamDelim H"}},
      {"1H  1H;,", 0, ',', ';', {"igsGlobalSectionInvalidParamDelim  "}},
      {"2H,,1H;,", 0, ',', ';', {"igsGlobalSectionInvalidParamDelim 2"}},
      {" 1H,,1H;,", 0, ',', ';', {"igsGlobalSectionInvalidParamDelim  "}},
      {";", 0, ',', ';', {"igsGlobalSectionInvalidParamDelim ;"}},
      {"1H,,1H0,", 0, ',', ';', {"igsGlobalSectionInvalidRecordDelim 0"}},
      {"1H,,0H,", 0, ',', ';', {"igsGlobalSectionInvalidRecordDelim "}},
      {"1H,,2H;;,", 0, ',', ';', {"igsGlobalSectionInvalidRecordDelim ;;"}},
  };
  for (const Case& c : cases) {
    const igsFile file;
    Section s;
    std::string rest = parameters().substr(8);
    for (char& character : rest) {
      character = character == ',' ? c.parameter : character == ';' ? c.record : character;
    }
    EXPECT_EQ(s.read_data(c.start + rest), c.result) << c.start;
    EXPECT_EQ(s.parameter_delimiter(), c.result != 0 ? c.parameter : ',') << c.start;
    EXPECT_EQ(s.record_delimiter(), c.result != 0 ? c.record : ';') << c.start;
    EXPECT_EQ(active_errors(file), c.errors) << c.start;
    EXPECT_EQ(s.at_directory, c.result != 0) << c.start;
    if (c.result != 0) {
      EXPECT_EQ(s.name_of_author(), "author") << c.start;
    }
  }
}

TEST(GlobalSection, StepsOverWhatFollowsTheParameters) {
  const std::string directory = section_records('D', "     116");
  std::string surplus = parameters();
  surplus.back() = ',';
  struct Case {
    const char* name;
    std::string text;
    int result, out_of_order, blank_lines;
  };
  const std::string second = igs_test::left("", 72) + "G      9\n";
  const Case cases[] = {
      {"more parameters", section_records('G', surplus + utString(300, '7') + ";") + directory, 1, 0, 0},
      {"more records", section_records('G', parameters() + utString(300, ' ')) + directory, 1, 0, 0},
      {"no record delimiter", section_records('G', surplus) + directory, 1, 0, 0},
      {"few parameters", section_records('G', "1H,,1H;,4Htest") + directory, 1, 0, 0},
      {"an unfinished string", section_records('G', "1H,,1H;,999Htest") + directory, 1, 0, 0},
      {"blank line",
       section_records('G', utString("1H,,1H;,9Hand")) + "\n" + igs_test::left("so on,;", 72) + "G      2\n" +
           directory,
       1, 0, 1},
      {"blank line behind",
       section_records('G', ",;") + igs_test::left("x", 72) + "G      2\n   \n" + second.substr(0, 79) + "3\n" +
           directory,
       1, 0, 1},
      {"sequence",
       section_records('G', utString("1H,,1H;,9Hand")) + igs_test::left("so on,;", 72) + "G      7\n" + directory, 1, 1,
       0},
      {"end of file", section_records('G', parameters()), 0, 0, 0}};
  for (const Case& c : cases) {
    Section s;
    EXPECT_EQ(s.read_text(c.text), c.result) << c.name;
    EXPECT_EQ(s.at_directory, c.result != 0) << c.name;
    EXPECT_EQ(s.out_of_order, c.out_of_order) << c.name;
    EXPECT_EQ(s.blank_lines, c.blank_lines) << c.name;
  }
}

TEST(GlobalSection, StringsRunOnOverRecordsAndHoldDelimiters) {
  Section s, again;
  const utString name = utString(70, 'x') + ",;" + utString(10, 'y');
  s.read_data(parameters(4, "82H" + name));
  EXPECT_EQ(s.file_name(), name);
  again.read_text(s.written() + section_records('D', "     116"));
  EXPECT_EQ(again.file_name(), name);
}

TEST(GlobalSection, SettersRefuseWhatTheCheckReports) {
  Section s;
  s.read_data(parameters());
  const std::string before = igs_test::printed(s);
  const int refused = s.set_parameter_delimiter('5') + s.set_parameter_delimiter(';') + s.set_record_delimiter('H') +
                      s.set_record_delimiter(',') + s.set_product_id_from_sending_system("") + s.set_file_name("") +
                      s.set_system_id("") + s.set_preprocessor_version("") + s.set_binary_bits_for_int(3) +
                      s.set_sp_max_pow10(37) + s.set_sp_sig_digs(5) + s.set_dp_max_pow10(37) + s.set_dp_sig_digs(5) +
                      s.set_product_id_for_receiving_system("") + s.set_model_space_scale(0.0) +
                      s.set_max_number_of_line_weights(0) + s.set_max_number_of_line_weights(32769) +
                      s.set_width_of_max_line_weight(-1e-9) + s.set_minimum_resolution(1e-16) +
                      s.set_name_of_author("") + s.set_authors_organization("");
  EXPECT_EQ(refused, 0);
  EXPECT_EQ(igs_test::printed(s), before);
  const int taken = s.set_parameter_delimiter('|') + s.set_record_delimiter('#') + s.set_file_name("f") +
                    s.set_binary_bits_for_int(4) + s.set_sp_max_pow10(38) + s.set_sp_sig_digs(6) +
                    s.set_dp_max_pow10(38) + s.set_dp_sig_digs(6) + s.set_model_space_scale(1e-3) +
                    s.set_max_number_of_line_weights(32768) + s.set_width_of_max_line_weight(0.0) +
                    s.set_minimum_resolution(1e-15);
  EXPECT_EQ(taken, 12);
  EXPECT_THAT(checked(s), IsEmpty());
  EXPECT_THAT(s.written(), testing::StartsWith("1H||1H#|4Htest|1Hf|"));
}

TEST(GlobalSection, ErrorsThatRepairNothing) {
  const igsFile file;
  Section s;
  const std::string before = igs_test::printed(s);
  for (igsGlobalError* error : std::initializer_list<igsGlobalError*>{
           new igsGlobalSectionInvalidParamDelim('x'), new igsGlobalSectionInvalidRecordDelim('x'),
           new igsGlobalSectionExtraModificationDate, new igsGlobalSectionUserDefinedUnits, new igsGlobalSectionFatal,
           new igsGlobalSectionNoConstruct, new igsGlobalSectionEndNoRecordDelim, new igsGlobalSectionEndPremature,
           new igsGlobalSectionEndExtraData, new igsGlobalSectionIllegalDefault(4, 1),
           new igsGlobalSectionIllegalDefault(13, 3), new igsGlobalSectionIllegalDefault(0, 2)}) {
    s.tag_error(error);
    EXPECT_EQ(error->fix(), 0) << igs_test::describe(*error);
  }
  // Without a section there is nothing to repair.
  for (igsGlobalError* error : std::initializer_list<igsGlobalError*>{
           new igsGlobalSectionIllegalDefault(3, 1), new igsGlobalSectionInvalidIntegerSize(1),
           new igsGlobalSectionInvalidMaxNumLineWeightGrads(1), new igsGlobalSectionInvalidUnitsFlag(0),
           new igsGlobalSectionUnitNameTypeMismatch(1, "MM")}) {
    EXPECT_EQ(error->fix(), 0) << igs_test::describe(*error);
  }
  s.tag_error(nullptr);
  EXPECT_EQ(igs_test::printed(s), before);
}

TEST(GlobalSection, AFileKeepsItsOwnSection) {
  igsFile file, other;
  igs_test::RecordingSink sink;
  file.set_message_stream(&sink);
  Section s(&other);
  s.read_data(parameters());
  s.set_units(igsUnits("MM", 1));
  igsObjectSystem::set_current_file(file);
  file.set_global_section(s);
  EXPECT_EQ(igs_test::printed(file.global_section()), igs_test::printed(s));
  file.clean(0);
  EXPECT_EQ(file.global_section().units(), igsUnits(1));
  EXPECT_THAT(sink.text, HasSubstr("defaulted to INCH.\n"));
  EXPECT_EQ(s.units(), igsUnits("MM", 1));
}

}  // namespace
