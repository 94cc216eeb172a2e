#include "igs/file/igsGlobalSection_errors.h"

#include "igs/file/igsGlobalSection.h"

int igs_set_global_fallback(igsGlobalSection* section, int parameter) {
  return section != nullptr ? section->repair(parameter) : 0;
}

int igsGlobalSectionIllegalDefault::fix() {
  const int parameter = value<0>();
  const char* const description = igsGlobalSection::description(parameter);
  if (key() == nullptr || description == nullptr) return 0;
  key()->repair(parameter);
  message("Warning : Invalid data has been found in the global section of the file.\n");
  message("Defaulting the data for field %d (%s)\n", parameter, description);
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
