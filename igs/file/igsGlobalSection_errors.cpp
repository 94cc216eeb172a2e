#include "igs/file/igsGlobalSection_errors.h"

#include <algorithm>
#include <array>
#include <cfloat>

#include "igs/file/igsGlobalSection.h"

namespace {

/// What a parameter becomes when its value cannot be used. Only parameters that must be given have a description.
struct Fallback {
  int parameter;
  const char* description;
  void (*apply)(igsGlobalSection&);
};

constexpr std::array fallbacks{
    Fallback{3, "product id from sending system", [](auto& s) { s.set_product_id_from_sending_system("Unknown"); }},
    Fallback{5, "system id", [](auto& s) { s.set_system_id("Unknown"); }},
    Fallback{6, "preprocessor version", [](auto& s) { s.set_preprocessor_version("Unknown"); }},
    Fallback{7, "number of bits in an integer", [](auto& s) { s.set_binary_bits_for_int(4); }},
    Fallback{8, "maximum single precision float", [](auto& s) { s.set_sp_max_pow10(38); }},
    Fallback{9, "significant figures in a single precision float", [](auto& s) { s.set_sp_sig_digs(6); }},
    Fallback{10, "maximum double precision float", [](auto& s) { s.set_dp_max_pow10(308); }},
    Fallback{11, "significant figures in a double precision float", [](auto& s) { s.set_dp_sig_digs(15); }},
    Fallback{13, nullptr, [](auto& s) { s.set_model_space_scale(1.0); }},
    Fallback{14, "units flag", [](auto&) {}},
    Fallback{17, nullptr, [](auto& s) { s.set_width_of_max_line_weight(0.0); }},
    Fallback{18, "file creation date", [](auto& s) { s.set_file_creation_date(igsDate()); }},
    Fallback{19, "minimum user-intended resolution", [](auto& s) { s.set_minimum_resolution(0.0001); }},
    Fallback{20, nullptr, [](auto& s) { s.set_max_coord_value(DBL_MAX); }},
    Fallback{23, nullptr, [](auto& s) { s.set_iges_version(3); }},
    Fallback{24, nullptr, [](auto& s) { s.set_drafting_standard(0); }},
    Fallback{25, nullptr, [](auto& s) { s.set_file_modification_date(igsDate()); }},
};

const Fallback* find_fallback(int parameter) {
  const auto* const found = std::find_if(fallbacks.begin(), fallbacks.end(),
                                         [parameter](const Fallback& f) { return f.parameter == parameter; });
  return found != fallbacks.end() ? found : nullptr;
}

}  // namespace

int igs_set_global_fallback(igsGlobalSection* section, int parameter) {
  const Fallback* const fallback = find_fallback(parameter);
  if (section == nullptr || fallback == nullptr) return 0;
  fallback->apply(*section);
  return 1;
}

int igsGlobalSectionIllegalDefault::fix() {
  const Fallback* const fallback = find_fallback(value<0>());
  if (key() == nullptr || fallback == nullptr || fallback->description == nullptr) return 0;
  fallback->apply(*key());
  message("Warning : Invalid data has been found in the global section of the file.\n");
  message("Defaulting the data for field %d (%s)\n", fallback->parameter, fallback->description);
  return 1;
}

int igsGlobalSectionInvalidMaxNumLineWeightGrads::fix() {
  return key() != nullptr ? key()->set_max_number_of_line_weights(value<0>()) : 0;
}

int igsGlobalSectionInvalidUnitsFlag::fix() {
  if (key() == nullptr) return 0;
  const utString& name = key()->units().name();
  const igsUnitType named = igsUnits::type(name);
  key()->set_units(named != 0 ? igsUnits(name, named) : igsUnits(2));
  return 1;
}

int igsGlobalSectionUnitNameTypeMismatch::fix() {
  if (key() == nullptr) return 0;
  key()->set_units(igsUnits(key()->units().type()));
  message(
      "Warning : There is a mismatch between the specified unit type and the unit name.\n"
      "Length units are being defaulted to %s.\n",
      key()->units().name().c_str());
  return 1;
}
