#include "igs/file/igsUnits.h"

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

int igsUnits::check_units(igsUnitType flag, const utString& name) {
  const igsUnitType named = type(name);
  return named != 0 && (named == flag || flag == named_units) ? 1 : 0;
}

double igsUnits::convert_between_units(igsUnitType from, igsUnitType to) {
  const Unit* const from_unit = find_unit(from);
  const Unit* const to_unit = find_unit(to);
  return from_unit != nullptr && to_unit != nullptr ? from_unit->length / to_unit->length : 1.0;
}
