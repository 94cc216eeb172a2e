#include "igs/shape/private/igsDerivedTolerance.h"

#include <algorithm>
#include <cmath>

#include "igs/file/igsGlobalSection.h"

namespace {
constexpr double usual_gap = 0.01;  // millimetres
constexpr igsUnitType millimetres = 2;

bool has_length(igsUnitType flag) { return flag >= 1 && flag <= 11 && flag != 3; }
}  // namespace

double igs_derived_tolerance(const igsGlobalSection& global, double diagonal) {
  const double told = global.minimum_resolution();
  const double resolution = std::isfinite(told) ? std::max(told, 0.0) : 0.0;
  const igsUnitType units = global.units().type();
  if (!has_length(units)) return std::max(resolution, 1e-5 * diagonal);
  const double usual = usual_gap * igsUnits::convert_between_units(millimetres, units);
  return std::min(std::max(resolution, usual), 1e-3 * diagonal);
}
