#include "igs/file/igsUnits.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "igs/file/igsGlobalSection_errors.h"

namespace {

constexpr igsUnitType first_flag = 1;
constexpr igsUnitType last_flag = 11;
constexpr igsUnitType named_units = 3;

/// The lengths are whole numbers of 1e-10 m, so that the quotient of two is the correctly rounded factor.
struct Unit {
  igsUnitType flag;
  const char* name;
  double length;
};

constexpr Unit units[] = {
    {1, "INCH", 254e6}, {1, "IN", 254e6},  {2, "MM", 1e7}, {4, "FT", 3048e6}, {5, "MI", 16'093'440e6}, {6, "M", 1e10},
    {7, "KM", 1e13},    {8, "MIL", 254e3}, {9, "UM", 1e4}, {10, "CM", 1e8},   {11, "UIN", 254},
};

/// What people write beside the standard names.
struct UnitWords {
  igsUnitType flag;
  std::array<std::string_view, 6> words;
};

constexpr UnitWords unit_words[] = {
    {1, {"INCHES", "INS"}},
    {2, {"MMS", "MILLIMETER", "MILLIMETERS", "MILLIMETRE", "MILLIMETRES"}},
    {4, {"FOOT", "FEET"}},
    {5, {"MILE", "MILES"}},
    {6, {"METER", "METERS", "METRE", "METRES"}},
    {7, {"KMS", "KILOMETER", "KILOMETERS", "KILOMETRE", "KILOMETRES"}},
    {8, {"MILS"}},
    {9, {"MICRON", "MICRONS", "MICROMETER", "MICROMETERS", "MICROMETRE", "MICROMETRES"}},
    {10, {"CMS", "CENTIMETER", "CENTIMETERS", "CENTIMETRE", "CENTIMETRES"}},
    {11, {"MICROINCH", "MICROINCHES"}},
};

const Unit* find_unit(igsUnitType flag) {
  for (const Unit& unit : units) {
    if (unit.flag == flag) return &unit;
  }
  return nullptr;
}

}  // namespace

igsUnits::igsUnits(igsUnitType flag) : igsUnits(name(flag), flag) {}

igsUnits::igsUnits(utString name, igsUnitType flag) : m_flag(flag), m_name(std::move(name)) {}

igsGlobalError* igsUnits::check() const {
  if (m_flag < first_flag || m_flag > last_flag) return new igsGlobalSectionInvalidUnitsFlag(m_flag);
  if (check_units(m_flag, m_name) == 0) return new igsGlobalSectionUnitNameTypeMismatch(m_flag, m_name);
  return nullptr;
}

utString igsUnits::name(igsUnitType flag) {
  const Unit* const unit = find_unit(flag);
  return unit != nullptr ? unit->name : "UNKNOWN";
}

igsUnitType igsUnits::type(const utString& name) {
  for (const Unit& unit : units) {
    if (name == unit.name) return unit.flag;
  }
  return 0;
}

igsUnitType igsUnits::recognised(const utString& name) {
  const std::size_t first = name.find_first_not_of(' ');
  if (first == utString::npos) return 0;
  utString word = name.substr(first, name.find_last_not_of(' ') + 1 - first);
  if (word.ends_with('.')) word.pop_back();
  for (char& c : word) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  if (word.empty()) return 0;
  for (const UnitWords& unit : unit_words) {
    if (std::find(unit.words.begin(), unit.words.end(), word) != unit.words.end()) return unit.flag;
  }
  return type(word);
}

int igsUnits::check_units(igsUnitType flag, const utString& name) {
  const igsUnitType named = type(name);
  return named != 0 && (named == flag || flag == named_units) ? 1 : 0;
}

double igsUnits::convert_between_units(igsUnitType from, igsUnitType to) {
  const Unit* const from_unit = find_unit(from);
  const Unit* const to_unit = find_unit(to);
  return from_unit != nullptr && to_unit != nullptr ? from_unit->length / to_unit->length : 1.0;
}
