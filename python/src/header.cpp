#include "header.h"

#include <pybind11/stl.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "text/text.h"
#include "values.h"

namespace {

using Section = igsGlobalSection;

/// The Global section of a file.
struct Header {
  std::shared_ptr<Host> host;

  const Section& section() const { return host->file().global_section(); }
  /// What a file leaves out that keeps what it reads is written as it is, whatever its default.
  bool has(int parameter) const {
    return !host->was_read() || !host->file().options().keep || section().given(parameter);
  }
  /// Refuses, the section as it was, where the change returns 0.
  void change(const std::string& refusal, const std::function<int(Section&)>& change) const;
};

void Header::change(const std::string& refusal, const std::function<int(Section&)>& change) const {
  Section changed = section();
  if (change(changed) == 0) throw py::value_error(refusal);
  host->changed_file().set_global_section(changed);
}

py::object shown(const utString& text) { return text.empty() ? py::object(py::none()) : py::str(to_utf8(text)); }
py::object shown(char c) { return py::str(std::string(1, c)); }
py::object shown(const igsDate& date) { return shown(date.date_string()); }
py::object shown(int number) { return number == igs_unset_int ? py::object(py::none()) : py::int_(number); }
py::object shown(double number) { return igs_is_undefined_real(number) ? py::object(py::none()) : py::float_(number); }

/// What the setters of the library take, made of what Python gives.
template <class Value>
utString taken_value(const char* name, const Value& value) {
  expect_printable(value, name);
  return utString(value);
}
double taken_value(const char* name, double value) { return real_of(value, name); }
int taken_value(const char*, int value) { return value; }

class HeaderClass : public py::class_<Header> {
 public:
  using py::class_<Header>::class_;

  /// A parameter; `refusal` goes on after its name.
  template <class Value, class Get, class Set>
  HeaderClass& add(int number, const char* name, Get get, Set set, const char* refusal, const char* doc) {
    const auto take = [=](const Header& self) -> py::object {
      const Section& section = self.section();
      return self.has(number) ? shown(std::invoke(get, section)) : py::none();
    };
    const auto put = [=](const Header& self, const Value& value) {
      const auto parameter = taken_value(name, value);
      self.change(std::string(name) + " " + refusal,
                  [&](Section& section) { return std::invoke(set, section, parameter); });
    };
    def_property(name, take, put, doc);
    return *this;
  }
  template <class Get, class Set>
  HeaderClass& text(int number, const char* name, Get get, Set set, const char* doc) {
    return add<std::string>(number, name, get, set, "is not empty", doc);
  }
};

/// For a setter that takes whatever it is given.
template <class Set, class IsValid>
auto if_valid(Set set, IsValid is_valid) {
  return [=](Section& section, const auto& value) {
    if (!is_valid(section, value)) return 0;
    std::invoke(set, section, value);
    return 1;
  };
}

template <class Set>
auto delimiter(Set set) {
  return [=](Section& section, const utString& text) {
    return text.size() == 1 ? std::invoke(set, section, text.front()) : 0;
  };
}

template <class Set>
auto date(Set set) {
  return [=](Section& section, const utString& text) {
    const igsDate value(text);
    if (value.check() == 0) return 0;
    std::invoke(set, section, value);
    return 1;
  };
}

void define_system(HeaderClass& header) {
  constexpr const char* delimiters =
      "is one character, not the other delimiter, and none of which numbers and strings consist";
  header
      .add<std::string>(1, "parameter_delimiter", &Section::parameter_delimiter,
                        delimiter(&Section::set_parameter_delimiter), delimiters, "1: what parts parameters.")
      .add<std::string>(2, "record_delimiter", &Section::record_delimiter, delimiter(&Section::set_record_delimiter),
                        delimiters, "2: what ends records.")
      .text(3, "product_id_from_sending_system", &Section::product_id_from_sending_system,
            &Section::set_product_id_from_sending_system, "3: what the sender calls the product.")
      .text(4, "file_name", &Section::file_name, &Section::set_file_name, "4: the name that the file was given.")
      .text(5, "system_id", &Section::system_id, &Section::set_system_id, "5: the system that wrote the file.")
      .text(6, "preprocessor_version", &Section::preprocessor_version, &Section::set_preprocessor_version,
            "6: the version of what translated it to IGES.")
      .add<int>(7, "binary_bits_for_int", &Section::binary_bits_for_int, &Section::set_binary_bits_for_int,
                "is 4 or more", "7: bits of an integer on the sending system.")
      .add<int>(8, "sp_max_pow10", &Section::sp_max_pow10, &Section::set_sp_max_pow10, "is 38 or more",
                "8: the largest power of ten of a single precision real.")
      .add<int>(9, "sp_sig_digs", &Section::sp_sig_digs, &Section::set_sp_sig_digs, "is 6 or more",
                "9: significant digits of a single precision real.")
      .add<int>(10, "dp_max_pow10", &Section::dp_max_pow10, &Section::set_dp_max_pow10, "is 38 or more",
                "10: the largest power of ten of a double precision real.")
      .add<int>(11, "dp_sig_digs", &Section::dp_sig_digs, &Section::set_dp_sig_digs, "is 6 or more",
                "11: significant digits of a double precision real.")
      .text(12, "product_id_for_receiving_system", &Section::product_id_for_receiving_system,
            &Section::set_product_id_for_receiving_system, "12: what the receiver is to call the product.");
}

void define_model(HeaderClass& header) {
  header
      .add<double>(13, "model_space_scale", &Section::model_space_scale, &Section::set_model_space_scale, "is above 0",
                   "13: model units by real world units.")
      .add<int>(16, "max_number_of_line_weights", &Section::max_number_of_line_weights,
                &Section::set_max_number_of_line_weights, "is 1 to 32768", "16: the number of line weights.")
      .add<double>(17, "width_of_max_line_weight", &Section::width_of_max_line_weight,
                   &Section::set_width_of_max_line_weight, "is 0 or more",
                   "17: the width of the thickest line, in the units of the file.")
      .add<double>(19, "minimum_resolution", &Section::minimum_resolution, &Section::set_minimum_resolution,
                   "is 1e-15 or more",
                   "19: the smallest distance of coordinates that counts, in the units of the file.")
      .add<double>(20, "max_coord_value", &Section::max_coord_value,
                   if_valid(&Section::set_max_coord_value, [](const Section&, double) { return true; }), "",
                   "20: no coordinate is larger, in the units of the file.");
}

void define_origin(HeaderClass& header) {
  constexpr const char* dates = "is a date, \"YYYYMMDD.HHNNSS\" or \"YYMMDD.HHNNSS\", from 1980 to this year";
  const auto is_version = [](const Section& section, int version) {
    return version >= 1 && version <= section.max_version();
  };
  const auto is_standard = [](const Section&, int standard) { return standard >= 0 && standard <= 7; };
  header
      .add<std::string>(18, "file_creation_date", &Section::file_creation_date, date(&Section::set_file_creation_date),
                        dates, "18: when the file was made: \"YYYYMMDD.HHNNSS\", or with a year of two digits.")
      .text(21, "name_of_author", &Section::name_of_author, &Section::set_name_of_author, "21: who made the file.")
      .text(22, "authors_organization", &Section::authors_organization, &Section::set_authors_organization,
            "22: where the author works.")
      .add<int>(23, "iges_version", &Section::iges_version, if_valid(&Section::set_iges_version, is_version),
                "is a version flag: 3 for IGES 2.0 to 11 for IGES 5.3, or one below",
                "23: the version flag; 11 is IGES 5.3.")
      .add<int>(24, "drafting_standard", &Section::drafting_standard,
                if_valid(&Section::set_drafting_standard, is_standard), "is 0 to 7",
                "24: the drafting standard flag, 0 for none.")
      .add<std::string>(
          25, "file_modification_date", &Section::file_modification_date, date(&Section::set_file_modification_date),
          dates, "25: when the model was last changed, as `file_creation_date`; written from version flag 8 on.");
}

constexpr int named_units = 3;  // the flag of units that have a name alone

/// The standard name, else that in the file.
py::object units_of(const Header& self) {
  const igsUnits& units = self.section().units();
  if (self.has(14) && units.type() != named_units && igsUnits::name(units.type()) != igsUnits::name(named_units)) {
    return shown(igsUnits::name(units.type()));
  }
  return self.has(15) ? shown(units.name()) : py::none();
}

void set_units(const Header& self, const std::variant<int, std::string>& units) {
  const auto* const flag = std::get_if<int>(&units);
  const igsUnitType type = flag != nullptr ? *flag : igsUnits::recognised(std::get<std::string>(units));
  const auto set = [type](Section& section) {
    if (type < 1 || type == named_units || igsUnits::name(type) == igsUnits::name(named_units)) return 0;
    section.set_units(igsUnits(type));
    return 1;
  };
  self.change("units are INCH, MM, FT, MI, M, KM, MIL, UM, CM or UIN, or their flag, 1 to 11 but for 3", set);
}

std::vector<std::string> names() {
  std::vector<std::string> list;
  for (const igsGlobalParameter& parameter : Section().parameters()) list.push_back(parameter.name);
  return list;
}

py::object item(const py::object& self, const std::string& name) {
  const std::vector<std::string> known = names();
  if (std::ranges::find(known, name) == known.end()) throw py::key_error("no Global parameter is called " + name);
  return self.attr(name.c_str());
}

std::vector<std::string> start_of(const Host& host) {
  const igsStartSection& section = host.file().start_section();
  std::vector<std::string> lines;
  utString line;
  for (int i = 0; section.line(i, line) != 0; ++i) {
    line.erase(line.find_last_not_of(' ') + 1);
    lines.push_back(to_utf8(line));
  }
  return lines;
}

void set_start(Host& host, const std::vector<std::string>& lines) {
  igsStartSection section;
  for (int i = 0; const std::string& line : lines) {
    expect_printable(line, "a line");
    const bool is_last = static_cast<std::size_t>(i) + 1 == lines.size();
    const bool is_set = line.empty() && !is_last ? true : section.set_line(i, line.empty() ? " " : line) != 0;
    if (!is_set) throw py::value_error("line " + std::to_string(i + 1) + " has more than 72 bytes");
    ++i;
  }
  host.changed_file().set_start_section(section);
}

}  // namespace

void define_header(py::module_& module, HostClass& host) {
  HeaderClass header(module, "Header",
                     "The Global section: its parameters by name, as attributes and as a mapping. What a file leaves "
                     "out is None; what the standard does not have raises a ValueError, the file as it was.");
  define_system(header);
  define_model(header);
  header.def_property(
      "units", units_of, set_units,
      "14 and 15: \"INCH\", \"MM\", \"FT\", \"MI\", \"M\", \"KM\", \"MIL\", \"UM\", \"CM\" or \"UIN\", or what "
      "the file calls units that have a name alone. To be set by a name, the usual words among them, or "
      "by the flag. No length changes.");
  define_origin(header);
  header.def("keys", [](const Header&) { return names(); })
      .def("__getitem__", item)
      .def("__iter__", [](const Header&) { return py::iter(py::cast(names())); })
      .def("__len__", [](const Header&) { return names().size(); });
  host.def_property_readonly("header", [](Host& self) { return Header{self.shared_from_this()}; })
      .def_property("start", start_of, set_start);
}
